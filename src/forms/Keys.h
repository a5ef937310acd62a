// SPDX-License-Identifier: MIT
#pragma once

class QKeyEvent;

namespace tol::forms {

/// Codes by which event procedures know keys. A letter or digit has the code of its upper-case character.
enum KeyCode : int {
    keyNone = 0,
    keyBack = 8,
    keyTab = 9,
    keyReturn = 13,
    keyEscape = 27,
    keySpace = 32,
    keyPageUp = 33,
    keyPageDown = 34,
    keyEnd = 35,
    keyHome = 36,
    keyLeft = 37,
    keyUp = 38,
    keyRight = 39,
    keyDown = 40,
    keyInsert = 45,
    keyDelete = 46,
    keyF1 = 112, ///< F2 to F12 follow
};

/// A key going down, as a window's KeyDown is told of it. Setting the code to keyNone swallows the key:
/// the control that has the focus does not see it.
struct KeyPress {
    int code = keyNone;
    int shift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt, added up
};

KeyPress keyPressOf(const QKeyEvent& event);

} // namespace tol::forms
