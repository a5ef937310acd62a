// SPDX-License-Identifier: MIT
#pragma once

namespace tol::forms {
class TextBox;
}

namespace tol::screens {

/// The key to keep of a key that is about to be typed: Enter is swallowed (0) and goes on to the next control
/// in its place, unless it is kept; letters from a to z become upper case if that is wanted.
int vdEnterKey(int key, bool upper, bool keepEnter);

/// Marks the whole text of a box that is entered, so that typing replaces it.
void vdSelectAll(forms::TextBox& box);

} // namespace tol::screens
