// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <functional>

class QPainter;

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

/// A picture that is drawn anew at each size, so that it is crisp at any scale.
struct Drawing {
    int field = 16; ///< the drawing's own square, which is stretched over the place it is given
    std::function<void(QPainter&, QIcon::Mode)> paint;
};

QIcon drawnIcon(Drawing drawing);

} // namespace tol::forms
