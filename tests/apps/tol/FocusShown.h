// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QWidget;

namespace tol::test {

/// What is wrong with the keyboard's place in the window that is in front, "" for nothing: something in it
/// must have the keyboard, be in sight and in use, and be of a kind that shows that it has it. The main
/// window with no child in sight, and a menu that is open, need nothing more.
std::string focusFault(QWidget& front);

} // namespace tol::test
