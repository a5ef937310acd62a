// SPDX-License-Identifier: MIT
#include "forms/WindowHost.h"

#include "forms/Application.h"
#include "forms/MessageBox.h"

namespace tol::forms {

namespace {

// About 60 turns a second. A turn costs tens of microseconds, a look at the clock next to nothing, and
// a long walk over a table yields at every row.
constexpr std::chrono::milliseconds turnEvery{16};

} // namespace

runtime::MsgResult WindowHost::showMsgBox(const std::string& text, runtime::MsgStyle style,
                                          const std::string& title) {
    return showMessageBox(text, style, title.empty() ? Application::title() : title);
}

void WindowHost::processEvents() {
    if (runtime::CoarseClock::now() < m_nextTurn)
        return;
    QCoreApplication::processEvents();
    m_nextTurn = runtime::CoarseClock::now() + turnEvery;
}

void WindowHost::endProgram() {
    Application::leave();
}

} // namespace tol::forms
