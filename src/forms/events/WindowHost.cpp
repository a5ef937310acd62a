// SPDX-License-Identifier: MIT
#include "forms/events/WindowHost.h"

#include "forms/events/Application.h"
#include "forms/windows/MessageBox.h"

#include <chrono>

namespace tol::forms {

runtime::MsgResult WindowHost::showMsgBox(const std::string& text, runtime::MsgStyle style,
                                          const std::string& title) {
    return showMessageBox(text, style, title.empty() ? Application::title() : title);
}

void WindowHost::processEvents() {
    if (!m_pace.isDue(runtime::CoarseClock::now()))
        return;
    const auto start = std::chrono::steady_clock::now();
    QCoreApplication::processEvents();
    m_pace.turned(runtime::CoarseClock::now(), std::chrono::steady_clock::now() - start);
}

void WindowHost::endProgram() {
    Application::leave();
}

} // namespace tol::forms
