// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QTimer>

#include <functional>

namespace tol::test {

/// Pays one visit to a window that comes up over the list and waits to be closed. It may be drawing for a
/// while before it is shown.
template <typename Window>
class Visit {
  public:
    explicit Visit(std::function<void(Window&)> act) {
        m_look.callOnTimeout([this, act = std::move(act)] {
            auto* shown = dynamic_cast<Window*>(QApplication::activeModalWidget());
            if (shown == nullptr || !shown->isVisible())
                return;
            m_look.stop();
            act(*shown);
        });
        m_look.start(5);
    }

  private:
    QTimer m_look;
};

} // namespace tol::test
