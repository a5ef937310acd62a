// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "runtime/Host.h"

#include <optional>
#include <string>

namespace tol::ctl {

/// What to do about values that can't convert.
enum class OnUnconvertible {
    Ask,      ///< ask the person at the terminal
    Continue, ///< go on, and go on warning
    Quiet,    ///< go on without further warning for the field: its later rows keep no value
    Stop,     ///< do not go on
};

/// The words for the command line; and what such a word stands for, nothing for any other.
inline constexpr const char* onUnconvertibleWords = "ask|continue|quiet|stop";
std::optional<OnUnconvertible> onUnconvertibleFor(const std::string& word);
/// Ask where there is a person to be asked, else Stop.
OnUnconvertible usualOnUnconvertible();

/// The answer to a question; nothing when the person has to give it.
std::optional<runtime::MsgResult> answerTo(update::QuestionKind question, OnUnconvertible choice);

} // namespace tol::ctl
