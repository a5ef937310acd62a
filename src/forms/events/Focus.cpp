// SPDX-License-Identifier: MIT
#include "forms/events/Focus.h"

#include "forms/windows/Form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace tol::forms {
namespace {

void sendTab(QEvent::Type type) {
    QWidget* receiver = QApplication::focusWidget();
    if (receiver == nullptr)
        return;
    QKeyEvent event(type, Qt::Key_Tab, Qt::NoModifier, "\t");
    QApplication::sendEvent(receiver, &event);
}

} // namespace

void pressTab() {
    const auto press = [] {
        sendTab(QEvent::KeyPress);
        sendTab(QEvent::KeyRelease); // the focus has moved on by then
    };
    QMetaObject::invokeMethod(qApp, press, Qt::QueuedConnection);
}

bool hearsOfFocus(QWidget& control) {
    const Form* form = Form::of(&control);
    return form == nullptr || form->isInFront();
}

void announce(QWidget& control, const QString& text) {
    if (control.accessibleDescription() != text)
        control.setAccessibleDescription(text); // which also says so
}

} // namespace tol::forms
