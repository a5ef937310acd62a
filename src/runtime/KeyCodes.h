// SPDX-License-Identifier: MIT
#pragma once

namespace tol::runtime {

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

} // namespace tol::runtime
