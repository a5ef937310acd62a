// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QWidget;

namespace tol::forms {

using EventProcedure = std::function<void()>;

/// Runs an event procedure of the window that the control is on, unless the window is closing, minimised or
/// hidden. An error that
/// leaves it goes to the error guard; once that shows its box, no further event procedure runs. The window
/// object outlives its running procedures even if one of them unloads it.
void runEvent(QWidget& control, const EventProcedure& procedure);

/// Has the procedure run when the left button goes down and up again on the control. A click on a control
/// is not a click on what lies below it. The second of two quick clicks runs `doubleClick` instead, if there
/// is one.
void onClick(QWidget& control, EventProcedure procedure, EventProcedure doubleClick = nullptr);

} // namespace tol::forms
