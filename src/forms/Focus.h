// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

namespace tol::forms {

/// Presses and releases Tab for the control that has the focus, as soon as the event loop turns.
void pressTab();

/// Has assistive technology tell what the control that has the focus stands for now, such as the row that
/// its list highlights.
void announce(QWidget& control, const QString& text);

} // namespace tol::forms
