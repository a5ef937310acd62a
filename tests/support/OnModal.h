// SPDX-License-Identifier: MIT
#pragma once

#include "support/WindowDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

#include <functional>
#include <utility>

namespace tol::test {

/// A person who waits for the modal window of that name, acts once it is in front, and closes it if that has
/// left it open. Whoever shows it then goes on. It has to come while the object lives.
class OnModal {
  public:
    OnModal(QString name, std::function<void(WindowDriver&)> acts)
        : m_name(std::move(name)), m_acts(std::move(acts)) {
        m_timer.callOnTimeout([this] { look(); });
        m_timer.start(1);
    }
    OnModal(const OnModal&) = delete;
    OnModal& operator=(const OnModal&) = delete;
    ~OnModal() { EXPECT_FALSE(m_timer.isActive()) << m_name.toStdString() << " did not come"; }

  private:
    void look() {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr || window->objectName() != m_name || !window->isActiveWindow())
            return;
        m_timer.stop();
        WindowDriver desk(*window);
        m_acts(desk);
        if (window->isVisible())
            window->close();
    }

    QString m_name;
    std::function<void(WindowDriver&)> m_acts;
    QTimer m_timer;
};

} // namespace tol::test
