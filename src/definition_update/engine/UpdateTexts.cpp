// SPDX-License-Identifier: MIT
#include "definition_update/engine/UpdateTexts.h"

#include "runtime/Host.h"
#include "runtime/Text.h"

#include <fmt/format.h>

#include <array>

namespace tol::update {
namespace {

constexpr std::size_t activityKinds = static_cast<std::size_t>(ActivityKind::IndexRemoved) + 1;

constexpr std::array<const char*, activityKinds> actions = {
    "Cannot Process. Development Database.",
    "Cannot Process. Development Databases.",
    "WNDPATH Database is Empty.",
    "NETPATH Database is Empty.",
    "Cannot Find Database.",
    "Database Ok. No Changes Made.",
    "DATABASE DEFINITION UPDATE INCOMPLETE.",
    "Cannot Empty OLDDEF Table.",
    "Cannot Empty OLDINDEXES Table.",
    "Added New Table.",
    "Added Field.",
    "Added New Field",
    "ERROR CREATING TABLE.TABLE EXITS",
    "ERROR CREATING TABLE.CANNOT FIND TABLE IN NEWDEF",
    "Changed Field Type. ",
    "Changed Field Size. ",
    "Removed Old Field.",
    "Table: {} Removed.",
    "Created New Index.",
    "Changed Index Keys.",
    "Added Field to Index Key.",
    "Index Removed.",
};

} // namespace

std::string actionText(const Activity& activity) {
    const std::string text = actions.at(static_cast<std::size_t>(activity.kind));
    switch (activity.kind) {
    case ActivityKind::TypeChanged:
        return text + (activity.dataMayBeLost ? "DATA MAY BE LOST" : " ");
    case ActivityKind::SizeChanged:
        return text + (activity.dataMayBeLost ? "Some Data may be lost." : " ");
    case ActivityKind::TableRemoved:
        return fmt::format(fmt::runtime(text), activity.table);
    default:
        return text;
    }
}

QuestionText questionText(const Question& question) {
    if (question.kind == QuestionKind::WarnAgain)
        return {"Warn Again if Unable to Convert Data?", "Continue Warning?"};
    return {fmt::format("Unable to Convert Data in Field: {} located in Table: {}\n"
                        "DATA IN THIS FIELD WILL BE LOST.\n\nOK to Continue?",
                        runtime::trim(question.FIELDNAME), runtime::trim(question.TABLENAME)),
            "Data Will Be Lost"};
}

ClosingText closingText(RunOutcome outcome) {
    switch (outcome) {
    case RunOutcome::Finished:
        return {"Finished", "Database Definitions Have Been Updated."};
    case RunOutcome::Stopped:
        return {"STOPPED", "WARNING: DATABASE DEFINITION UPDATE INCOMPLETE."};
    case RunOutcome::BrokenOff:
        return {"STOPPED", "An error broke the run off."};
    case RunOutcome::NotBegun:
        break;
    }
    return {" ", " "};
}

ClosingText closingText(RefreshOutcome outcome) {
    switch (outcome) {
    case RefreshOutcome::Finished:
    case RefreshOutcome::WithoutLists:
        return {"Finished", "Database Definitions Have Been Refreshed."};
    case RefreshOutcome::Incomplete:
        return {"Finished", "Database Definitions ARE INCOMPLETE."};
    case RefreshOutcome::Canceled:
        return {"Process Canceled", "Database Definitions ARE INCOMPLETE."};
    case RefreshOutcome::NotBegun:
        break;
    }
    return {" ", " "};
}

bool UpdateView::ask(const Question& question) {
    const QuestionText box = questionText(question);
    return runtime::host().msgBox(box.text, {runtime::MsgIcon::Question, runtime::MsgButtons::YesNo},
                                  box.title) == runtime::MsgResult::Yes;
}

} // namespace tol::update
