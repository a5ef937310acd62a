// SPDX-License-Identifier: MIT
#include "forms/windows/MenuBar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tol::forms {

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (now == this && before != nullptr)
            m_before = before;
    });
}

// Another program had the keyboard meanwhile, or a click was made elsewhere: the bar has forgotten its title.
void MenuBar::focusInEvent(QFocusEvent* event) {
    QMenuBar::focusInEvent(event);
    QMetaObject::invokeMethod(
        this, [this] { giveBackUnlessLit(); }, Qt::QueuedConnection);
}

void MenuBar::paintEvent(QPaintEvent* event) {
    QMenuBar::paintEvent(event);
    if (hasFocus() && activeAction() == nullptr)
        QMetaObject::invokeMethod(
            this, [this] { giveBackUnlessLit(); }, Qt::QueuedConnection);
}

// To the control that had it; or to the window in front, which knows one.
void MenuBar::giveBackUnlessLit() {
    if (!hasFocus() || activeAction() != nullptr || QApplication::activePopupWidget() != nullptr)
        return;
    const auto* area = window()->findChild<QMdiArea*>();
    QMdiSubWindow* frame = area != nullptr ? area->activeSubWindow() : nullptr;
    if (frame == nullptr)
        return;
    const bool has = m_before != nullptr && frame->isAncestorOf(m_before) && m_before->isVisible() &&
                     m_before->isEnabled();
    (has ? m_before.data() : frame)->setFocus(Qt::MenuBarFocusReason);
}

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
