// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/TurnPace.h"
#include "runtime/Host.h"

namespace tol::forms {

/// The window program as host: boxes are windows, a yield lets the event loop turn, and the end is the
/// end of the process, with no window asked and nothing unloaded. Installs itself while it lives.
class WindowHost : public runtime::Host {
  public:
    WindowHost() : m_scope(*this) {}

  protected:
    runtime::MsgResult showMsgBox(const std::string& text, runtime::MsgStyle style,
                                  const std::string& title) override;
    void processEvents() override;
    [[noreturn]] void endProgram() override;

  private:
    runtime::HostScope m_scope;
    TurnPace m_pace;
};

} // namespace tol::forms
