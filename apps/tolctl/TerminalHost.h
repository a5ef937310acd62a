// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Host.h"
#include "tolctl/Answers.h"
#include "tolctl/MessageLog.h"
#include "tolctl/ProgressLine.h"

#include <functional>
#include <set>
#include <string>

namespace tol::ctl {

/// The person at the desk, as far as a terminal can stand in: shows message boxes on standard error,
/// answers questions by the choice made on the command line or asks on the terminal, and passes on the
/// wish to stop. It keeps all boxes for the report. Installs itself while it lives.
class TerminalHost : public runtime::Host {
  public:
    TerminalHost(ProgressLine& progress, OnUnconvertible choice) : m_progress(progress), m_choice(choice) {}

    /// Called, perhaps more than once, when the work in hand is to stop.
    void onStop(std::function<void()> stop) { m_stop = std::move(stop); }
    /// Told of every question and its answer.
    void onQuestion(std::function<void(const Message&)> question) { m_question = std::move(question); }

    [[nodiscard]] const MessageLog& messages() const { return m_messages; }
    /// Whether a box told of trouble: any that was no question.
    [[nodiscard]] bool troubled() const { return m_troubled; }

  protected:
    runtime::MsgResult showMsgBox(const std::string& text, runtime::MsgStyle style,
                                  const std::string& title) override;
    void processEvents() override;
    [[noreturn]] void endProgram() override;

  private:
    runtime::MsgResult answerQuestion(const std::string& text, const std::string& title);
    runtime::MsgResult askPerson();
    void print(const std::string& text, const std::string& title);

    ProgressLine& m_progress;
    OnUnconvertible m_choice;
    std::function<void()> m_stop = [] {};
    std::function<void(const Message&)> m_question = [](const Message&) {};
    MessageLog m_messages;
    std::set<Message> m_told; ///< questions answered from the command line
    bool m_troubled = false;
    runtime::HostScope m_scope{*this};
};

} // namespace tol::ctl
