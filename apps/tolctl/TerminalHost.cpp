// SPDX-License-Identifier: MIT
#include "tolctl/TerminalHost.h"

#include "runtime/Text.h"
#include "tolctl/ExitStatus.h"
#include "tolctl/Interrupt.h"

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <utility>

namespace tol::ctl {
namespace {

using runtime::MsgButtons;
using runtime::MsgResult;

const char* wordFor(MsgResult answer) {
    switch (answer) {
    case MsgResult::Ok:
        return "OK";
    case MsgResult::Cancel:
        return "Cancel";
    case MsgResult::Yes:
        return "Yes";
    case MsgResult::No:
        break;
    }
    return "No";
}

} // namespace

// A box that only tells something tells it of what is stored.
bool TerminalHost::waitsForAnswer(runtime::MsgStyle style) const {
    return style.buttons != MsgButtons::YesNo || !m_foreseen;
}

MsgResult TerminalHost::showMsgBox(const std::string& text, runtime::MsgStyle style,
                                   const std::string& title) {
    if (style.buttons == MsgButtons::YesNo)
        return answerQuestion(text, title);
    // Nobody is there to confirm what an OK would do.
    const MsgResult answer = style.buttons == MsgButtons::Ok ? MsgResult::Ok : MsgResult::Cancel;
    print(text, title);
    m_messages.add({title, text, wordFor(answer)});
    m_troubled = true;
    return answer;
}

// A person reads each question; an answer from the command line is told once for each text, since the
// same question may come for every row of a table.
MsgResult TerminalHost::answerQuestion(const std::string& text, const std::string& title) {
    const auto foreseen = std::exchange(m_foreseen, MsgResult::No);
    Message message{title, text, foreseen ? wordFor(*foreseen) : ""};
    const bool tell = !foreseen || m_told.insert(message).second;
    if (tell)
        print(text, title);
    const MsgResult answer = foreseen ? *foreseen : askPerson();
    if (foreseen && tell)
        std::cerr << "  -> " << message.answer << "\n";
    message.answer = wordFor(answer);
    m_messages.add(std::move(message));
    return answer;
}

MsgResult TerminalHost::askPerson() {
    while (!interrupted()) {
        std::cerr << "  Yes or No? " << std::flush;
        const auto line = readLine();
        if (!line)
            break;
        const std::string word = runtime::lowerCase(runtime::trim(*line));
        if (word == "y" || word == "yes")
            return MsgResult::Yes;
        if (word == "n" || word == "no")
            return MsgResult::No;
    }
    std::cerr << "No\n"; // nobody answers any more
    return MsgResult::No;
}

void TerminalHost::print(const std::string& text, const std::string& title) {
    m_progress.clear();
    std::cerr << title << "\n";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        std::cerr << (line.empty() ? "" : "  ") << line << "\n";
}

void TerminalHost::processEvents() {
    if (interrupted())
        m_stop();
}

void TerminalHost::endProgram() {
    m_progress.clear();
    std::exit(static_cast<int>(ExitStatus::Stopped));
}

} // namespace tol::ctl
