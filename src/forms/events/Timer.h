// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"

#include <QTimer>

namespace tol::forms {

/// A timer of a window. It ticks while it is enabled and the interval is not 0, and only when the event
/// loop turns. It can be found under its name as a QTimer among the window's children.
class Timer {
  public:
    Timer(QWidget& form, const QString& name, EventProcedure onTimer);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    void setInterval(int milliseconds);
    void setEnabled(bool enabled);

  private:
    void apply();

    QTimer& m_timer; // the form's
    int m_interval = 0;
    bool m_enabled = false;
};

} // namespace tol::forms
