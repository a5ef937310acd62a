// SPDX-License-Identifier: MIT
#include "forms/events/Focus.h"

#include "forms/windows/Form.h"

#include <QApplication>
#include <QFocusEvent>
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

class FocusFilter : public QObject {
  public:
    FocusFilter(QWidget& control, EventProcedure procedure)
        : QObject(&control), m_control(control), m_procedure(std::move(procedure)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn && hearsOfFocus(m_control) &&
            static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason)
            runEvent(m_control, m_procedure);
        return false;
    }

  private:
    QWidget& m_control;
    EventProcedure m_procedure;
};

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

void onGotFocus(QWidget& control, EventProcedure procedure) {
    control.installEventFilter(new FocusFilter(control, std::move(procedure)));
}

void announce(QWidget& control, const QString& text) {
    if (control.accessibleDescription() != text)
        control.setAccessibleDescription(text); // which also says so
}

} // namespace tol::forms
