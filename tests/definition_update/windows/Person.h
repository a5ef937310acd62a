// SPDX-License-Identifier: MIT
#pragma once

#include "support/WindowDriver.h"

namespace tol::test {

/// Who drives a window of the update.
class Person : public WindowDriver {
  public:
    explicit Person(QWidget& window) : WindowDriver(window), m_window(window) {}

    [[nodiscard]] bool isEnabled(const QString& name) const { return control(name).isEnabled(); }
    /// Clicks where the control lies, though it may be out of use.
    void poke(const QString& name) const;
    /// Of the whole program window that it lies in.
    void keepPicture(const QString& name) const;

  private:
    QWidget& m_window;
};

} // namespace tol::test
