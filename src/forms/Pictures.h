// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tol::forms {

/// The pictures of the program's small buttons and lists.
enum class Picture {
    First,
    Last,
    PageUp,
    PageDown,
    LineUp,
    LineDown,
    Action,
    Folder,
    OpenFolder,
    Drive,
    File
};

QIcon picture(Picture which);

} // namespace tol::forms
