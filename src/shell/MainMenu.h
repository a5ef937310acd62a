// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace tol::shell {

/// What a menu item of the main window does.
enum class MenuAction { OpenWindow, EndProgram, TileHorizontally, TileVertically, Cascade, NotReady };
/// New: a fresh window object at every click. Single: one that is brought to the front when it is open.
enum class Instance { New, Single };
enum class Shown { Child, Modal };

struct MenuItem {
    const char* name;
    const char* caption;
    MenuAction action;
    const char* window = nullptr; ///< with OpenWindow
    Instance instance = Instance::New;
    Shown shown = Shown::Child;
};

struct Menu {
    const char* name;
    const char* caption;
    std::span<const MenuItem> items;
};

/// The complete menu of the main window, in order.
std::span<const Menu> mainMenu();

} // namespace tol::shell
