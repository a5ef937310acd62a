// SPDX-License-Identifier: MIT
#include "forms/events/EventProcedure.h"

#include "forms/events/ErrorGuard.h"
#include "forms/windows/Form.h"

#include <QMouseEvent>
#include <QWidget>

namespace tol::forms {
namespace {

class ClickFilter : public QObject {
  public:
    ClickFilter(QWidget& control, EventProcedure procedure)
        : QObject(&control), m_control(control), m_procedure(std::move(procedure)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        // The second of two quick clicks goes down as a double click.
        const bool down =
            event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        if (!down && event->type() != QEvent::MouseButtonRelease)
            return false;
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton)
            return false;
        const bool pressed = std::exchange(m_pressed, down);
        if (pressed && !m_pressed && m_control.rect().contains(mouse.position().toPoint()))
            runEvent(m_control, m_procedure);
        return true;
    }

  private:
    QWidget& m_control;
    EventProcedure m_procedure;
    bool m_pressed = false;
};

} // namespace

void runEvent(QWidget& control, const EventProcedure& procedure) {
    Form* form = Form::of(&control);
    if (endingOnError() || (form != nullptr && !form->takesEventsOf(control)))
        return;
    const Form::Hold hold(form);
    guarded(procedure);
}

void onClick(QWidget& control, EventProcedure procedure) {
    control.installEventFilter(new ClickFilter(control, std::move(procedure)));
}

} // namespace tol::forms
