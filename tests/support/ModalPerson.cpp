// SPDX-License-Identifier: MIT
#include "support/ModalPerson.h"

#include <QApplication>

namespace tol::test {

ModalPerson::ModalPerson(QString name, std::function<void(const WindowDriver&)> acts)
    : m_name(std::move(name)), m_acts(std::move(acts)) {
    m_timer.callOnTimeout([this] { look(); });
    m_timer.start(5);
}

void ModalPerson::look() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || window->objectName() != m_name || !window->isActiveWindow() ||
        window->property("seen").toBool())
        return;
    window->setProperty("seen", true);
    ++windows;
    m_acts(WindowDriver(*window));
}

} // namespace tol::test
