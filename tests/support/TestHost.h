// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace tol::test {

struct Box {
    std::string title, text;
    runtime::MsgStyle style;
};

/// Thrown where the program would have ended.
struct ProgramEnded {};

/// The person at the desk, played: answers message boxes from a queue (OK, or Yes, when it is empty),
/// remembers what was shown, and runs a function at each yield. Installs itself while it lives.
class TestHost : public runtime::Host {
  public:
    TestHost() : m_scope(*this) {}

    std::deque<runtime::MsgResult> answers;
    std::vector<Box> boxes;
    std::function<void()> onYield;
    std::function<void(const Box&)> onBox;
    int yields = 0;

    [[nodiscard]] std::vector<std::string> texts() const;

  protected:
    runtime::MsgResult showMsgBox(const std::string& text, runtime::MsgStyle style,
                                  const std::string& title) override;
    void processEvents() override;
    [[noreturn]] void endProgram() override { throw ProgramEnded{}; }

  private:
    runtime::HostScope m_scope;
};

} // namespace tol::test
