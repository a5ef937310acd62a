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
    ClickFilter(QWidget& control, EventProcedure click, EventProcedure doubleClick)
        : QObject(&control),
          m_control(control),
          m_click(std::move(click)),
          m_doubleClick(doubleClick ? std::move(doubleClick) : m_click) {}

    bool eventFilter(QObject*, QEvent* event) override {
        // The second of two quick clicks goes down as a double click.
        const bool isSecond = event->type() == QEvent::MouseButtonDblClick;
        const bool down = isSecond || event->type() == QEvent::MouseButtonPress;
        if (!down && event->type() != QEvent::MouseButtonRelease)
            return false;
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() != Qt::LeftButton)
            return false;
        const EventProcedure* due =
            std::exchange(m_due, down ? (isSecond ? &m_doubleClick : &m_click) : nullptr);
        if (due != nullptr && !down && m_control.rect().contains(mouse.position().toPoint()))
            runEvent(m_control, *due);
        return true;
    }

  private:
    QWidget& m_control;
    EventProcedure m_click, m_doubleClick;
    const EventProcedure* m_due = nullptr; ///< when the button goes up
};

} // namespace

void runEvent(QWidget& control, const EventProcedure& procedure) {
    Form* form = Form::of(&control);
    if (endingOnError() || (form != nullptr && !form->takesEventsOf(control)))
        return;
    const Form::Hold hold(form);
    guarded(procedure);
}

void onClick(QWidget& control, EventProcedure procedure, EventProcedure doubleClick) {
    control.installEventFilter(new ClickFilter(control, std::move(procedure), std::move(doubleClick)));
}

} // namespace tol::forms
