// SPDX-License-Identifier: MIT
#include "tolctl/Answers.h"

#include <map>

#include <unistd.h>

namespace tol::ctl {

using runtime::MsgResult;

std::optional<OnUnconvertible> onUnconvertibleFor(const std::string& word) {
    static const std::map<std::string, OnUnconvertible> words = {
        {"ask", OnUnconvertible::Ask},
        {"continue", OnUnconvertible::Continue},
        {"quiet", OnUnconvertible::Quiet},
        {"stop", OnUnconvertible::Stop},
    };
    const auto found = words.find(word);
    return found == words.end() ? std::nullopt : std::optional(found->second);
}

OnUnconvertible usualOnUnconvertible() {
    const bool person = isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
    return person ? OnUnconvertible::Ask : OnUnconvertible::Stop;
}

std::optional<MsgResult> answerTo(update::QuestionKind question, OnUnconvertible choice) {
    if (choice == OnUnconvertible::Ask)
        return std::nullopt;
    const bool yes = choice == OnUnconvertible::Continue ||
                     (choice == OnUnconvertible::Quiet && question == update::QuestionKind::LoseValue);
    return yes ? MsgResult::Yes : MsgResult::No;
}

} // namespace tol::ctl
