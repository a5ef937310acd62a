// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <string>

namespace tol::update {

/// The texts by which people are told the facts of a run or a refresh. Each is made here and nowhere else.

/// The log's Action.
std::string actionText(const Activity& activity);

struct QuestionText {
    std::string text, title;
};
QuestionText questionText(const Question& question);

/// What stands in the place of the site or database in work, and of its location or description, when all is
/// done.
struct ClosingText {
    const char *result, *sentence;
};
ClosingText closingText(RunOutcome outcome);
ClosingText closingText(RefreshOutcome outcome);

} // namespace tol::update
