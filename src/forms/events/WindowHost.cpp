// SPDX-License-Identifier: MIT
#include "forms/events/WindowHost.h"

#include "forms/events/Application.h"
#include "forms/windows/MessageBox.h"

#include <algorithm>
#include <chrono>

namespace tol::forms {

namespace {

// About 60 turns a second. A turn costs tens of microseconds, a look at the clock next to nothing, and
// a long walk over a table yields at every row.
constexpr std::chrono::milliseconds turnEvery{16};

// A turn that paints much on a busy machine takes longer. Then there are fewer, so that they cost the walk
// about a twentieth of its time, but still enough for the window to be alive.
constexpr int walkPerTurn = 20;
constexpr std::chrono::milliseconds turnAtLatest{100};

} // namespace

runtime::MsgResult WindowHost::showMsgBox(const std::string& text, runtime::MsgStyle style,
                                          const std::string& title) {
    return showMessageBox(text, style, title.empty() ? Application::title() : title);
}

void WindowHost::processEvents() {
    if (runtime::CoarseClock::now() < m_nextTurn)
        return;
    const auto start = std::chrono::steady_clock::now();
    QCoreApplication::processEvents();
    const std::chrono::nanoseconds taken = std::chrono::steady_clock::now() - start;
    m_nextTurn = runtime::CoarseClock::now() +
                 std::clamp<std::chrono::nanoseconds>(taken * walkPerTurn, turnEvery, turnAtLatest);
}

void WindowHost::endProgram() {
    Application::leave();
}

} // namespace tol::forms
