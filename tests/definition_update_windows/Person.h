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
    /// Writes a picture of the window to the folder that TOL_SCREENSHOTS names, if any.
    void keepPicture(const QString& name) const;

  private:
    QWidget& m_window;
};

} // namespace tol::test
