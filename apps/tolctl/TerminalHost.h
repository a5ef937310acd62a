// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"
#include "tolctl/MessageLog.h"
#include "tolctl/ProgressLine.h"

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace tol::ctl {

/// The person at the desk, as far as a terminal can stand in: shows message boxes on standard error,
/// answers questions as foreseen or asks on the terminal, and passes on the wish to stop. It keeps all boxes
/// for the report. Installs itself while it lives.
class TerminalHost : public runtime::Host {
  public:
    explicit TerminalHost(ProgressLine& progress) : m_progress(progress) {}

    /// Called, perhaps more than once, when the work in hand is to stop.
    void onStop(std::function<void()> stop) { m_stop = std::move(stop); }
    /// The answer to the next question; nothing when the person has to give it. A question that nobody
    /// foresaw is answered No.
    void foresee(std::optional<runtime::MsgResult> answer) { m_foreseen = answer; }

    [[nodiscard]] const MessageLog& messages() const { return m_messages; }
    /// Whether a box told of trouble: any that was no question.
    [[nodiscard]] bool troubled() const { return m_troubled; }

  protected:
    [[nodiscard]] bool waitsForAnswer(runtime::MsgStyle style) const override;
    runtime::MsgResult showMsgBox(const std::string& text, runtime::MsgStyle style,
                                  const std::string& title) override;
    void processEvents() override;
    [[noreturn]] void endProgram() override;

  private:
    runtime::MsgResult answerQuestion(const std::string& text, const std::string& title);
    runtime::MsgResult askPerson();
    void print(const std::string& text, const std::string& title);

    ProgressLine& m_progress;
    std::optional<runtime::MsgResult> m_foreseen = runtime::MsgResult::No;
    std::function<void()> m_stop = [] {};
    MessageLog m_messages;
    std::set<Message> m_told; ///< questions answered from the command line
    bool m_troubled = false;
    runtime::HostScope m_scope{*this};
};

} // namespace tol::ctl
