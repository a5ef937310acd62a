// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>

namespace tol::forms {

/// A menu bar that holds the keyboard only as long as it is used: a key that means nothing to it gives the
/// keyboard back to where it was, and goes there. While the bar has the keyboard one of its titles is lit.
class MenuBar : public QMenuBar {
  public:
    using QMenuBar::QMenuBar;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace tol::forms
