// SPDX-License-Identifier: MIT
#include "forms/MenuBar.h"

#include <QApplication>
#include <QKeyEvent>

namespace tol::forms {

void MenuBar::keyPressEvent(QKeyEvent* event) {
    QMenuBar::keyPressEvent(event);
    // A key without a text may be one that is held for the next key.
    if (event->isAccepted() || event->text().isEmpty())
        return;
    QKeyEvent giveBack(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QMenuBar::keyPressEvent(&giveBack);
    if (QWidget* receiver = QApplication::focusWidget(); receiver != nullptr && receiver != this)
        QApplication::sendEvent(receiver, event);
    event->accept();
}

} // namespace tol::forms
