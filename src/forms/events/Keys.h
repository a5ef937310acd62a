// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/KeyCodes.h"

class QKeyEvent;

namespace tol::forms {

using runtime::KeyCode;
using enum runtime::KeyCode;

/// A key going down, as a window's KeyDown is told of it. Setting the code to keyNone swallows the key:
/// the control that has the focus does not see it.
struct KeyPress {
    int code = keyNone;
    int shift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt, added up
};

KeyPress keyPressOf(const QKeyEvent& event);

} // namespace tol::forms
