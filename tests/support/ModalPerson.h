// SPDX-License-Identifier: MIT
#pragma once

#include "support/WindowDriver.h"

#include <QTimer>

#include <functional>

namespace tol::test {

/// The person before modal windows of one name: while it lives, acts once in each that comes up, as soon as
/// it is in front. A window that the person leaves open stays.
class ModalPerson {
  public:
    ModalPerson(QString name, std::function<void(const WindowDriver&)> acts);
    ModalPerson(const ModalPerson&) = delete;
    ModalPerson& operator=(const ModalPerson&) = delete;

    int windows = 0; ///< seen so far

  private:
    void look();

    QString m_name;
    std::function<void(const WindowDriver&)> m_acts;
    QTimer m_timer;
};

} // namespace tol::test
