// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tol::forms {

/// Measures of windows and controls are twips: 1440 to the inch, so 15 to a pixel at 96 dpi. They grow
/// with the screen's dots per inch; whole-number scaling of the display is Qt's own work.
int toPixels(int twips);
int toTwips(int pixels);

/// Where a control lies in its window, in twips.
struct Place {
    int left, top, width, height;
};
void place(QWidget& control, Place where);

} // namespace tol::forms
