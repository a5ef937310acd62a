// SPDX-License-Identifier: MIT
#include "forms/events/Timer.h"

#include <QWidget>

namespace tol::forms {

Timer::Timer(QWidget& form, const QString& name, EventProcedure onTimer) : m_timer(*new QTimer(&form)) {
    m_timer.setObjectName(name);
    QObject::connect(&m_timer, &QTimer::timeout, &form,
                     [&form, procedure = std::move(onTimer)] { runEvent(form, procedure); });
}

void Timer::setInterval(int milliseconds) {
    m_interval = milliseconds;
    apply();
}

void Timer::setEnabled(bool enabled) {
    m_enabled = enabled;
    apply();
}

void Timer::apply() {
    if (m_enabled && m_interval > 0)
        m_timer.start(m_interval);
    else
        m_timer.stop();
}

} // namespace tol::forms
