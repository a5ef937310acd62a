// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"

class QString;
class QWidget;

namespace tol::forms {

/// Presses and releases Tab for the control that has the focus, as soon as the event loop turns.
void pressTab();

/// Whether a change of the control's focus is to be told: not one that comes about while its window is
/// closing, minimised, hidden or on its way to the front.
bool hearsOfFocus(QWidget& control);

/// Has the procedure run whenever the control gets the focus, unless its window merely comes back to the
/// front.
void onGotFocus(QWidget& control, EventProcedure procedure);

/// Has assistive technology tell what the control that has the focus stands for now, such as the row that
/// its list highlights.
void announce(QWidget& control, const QString& text);

} // namespace tol::forms
