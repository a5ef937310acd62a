// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::screens {

/// The character that a key types, for windows that watch keys going down rather than characters. Shift is 0
/// for none, 1 for the Shift key alone; with other keys held, letters and digits come as without Shift and
/// punctuation is not told. "" for a key that types nothing. Insert and Delete pass for "-" and ".", since
/// their codes are those characters'.
std::string vdKeyCodeChar(int key, int shift);

} // namespace tol::screens
