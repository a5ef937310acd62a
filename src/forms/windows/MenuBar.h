// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>
#include <QPointer>

namespace tol::forms {

/// A menu bar that holds the keyboard only as long as it is used: a key that means nothing to it gives the
/// keyboard back to where it was, and goes there. While the bar has the keyboard one of its titles is lit.
class MenuBar : public QMenuBar {
  public:
    explicit MenuBar(QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void giveBackUnlessLit();

    QPointer<QWidget> m_before; ///< what had the keyboard
};

} // namespace tol::forms
