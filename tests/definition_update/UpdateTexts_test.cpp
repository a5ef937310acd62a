// SPDX-License-Identifier: MIT
#include "definition_update/engine/UpdateTexts.h"

#include <gtest/gtest.h>

#include <string>

namespace tol::test {
namespace {

using update::ActivityKind;

TEST(UpdateTexts, EachActivityHasItsAction) {
    const std::pair<ActivityKind, const char*> actions[] = {
        {ActivityKind::DevelopmentDatabase, "Cannot Process. Development Database."},
        {ActivityKind::DevelopmentDatabases, "Cannot Process. Development Databases."},
        {ActivityKind::WNDPATHEmpty, "WNDPATH Database is Empty."},
        {ActivityKind::NETPATHEmpty, "NETPATH Database is Empty."},
        {ActivityKind::DatabaseNotFound, "Cannot Find Database."},
        {ActivityKind::NoChanges, "Database Ok. No Changes Made."},
        {ActivityKind::DatabaseIncomplete, "DATABASE DEFINITION UPDATE INCOMPLETE."},
        {ActivityKind::OLDDEFInUse, "Cannot Empty OLDDEF Table."},
        {ActivityKind::OLDINDEXESInUse, "Cannot Empty OLDINDEXES Table."},
        {ActivityKind::TableAdded, "Added New Table."},
        {ActivityKind::FieldOfNewTable, "Added Field."},
        {ActivityKind::FieldAdded, "Added New Field"},
        {ActivityKind::TableExists, "ERROR CREATING TABLE.TABLE EXITS"},
        {ActivityKind::TableNotDefined, "ERROR CREATING TABLE.CANNOT FIND TABLE IN NEWDEF"},
        {ActivityKind::TypeChanged, "Changed Field Type.  "},
        {ActivityKind::SizeChanged, "Changed Field Size.  "},
        {ActivityKind::FieldRemoved, "Removed Old Field."},
        {ActivityKind::TableRemoved, "Table: CREW Removed."},
        {ActivityKind::IndexCreated, "Created New Index."},
        {ActivityKind::IndexKeysChanged, "Changed Index Keys."},
        {ActivityKind::IndexKeyAdded, "Added Field to Index Key."},
        {ActivityKind::IndexRemoved, "Index Removed."},
    };
    for (const auto& [kind, text] : actions)
        EXPECT_EQ(update::actionText({.kind = kind, .table = "CREW"}), text);
    EXPECT_EQ(update::actionText({.kind = ActivityKind::TypeChanged, .dataMayBeLost = true}),
              "Changed Field Type. DATA MAY BE LOST");
    EXPECT_EQ(update::actionText({.kind = ActivityKind::SizeChanged, .dataMayBeLost = true}),
              "Changed Field Size. Some Data may be lost.");
}

TEST(UpdateTexts, QuestionsNameTheFieldAndTheTable) {
    const auto lose =
        update::questionText({update::QuestionKind::LoseValue, "NORTH", "WORK", " CREW", "PAY "});
    EXPECT_EQ(lose.title, "Data Will Be Lost");
    EXPECT_EQ(lose.text, "Unable to Convert Data in Field: PAY located in Table: CREW\n"
                         "DATA IN THIS FIELD WILL BE LOST.\n\nOK to Continue?");
    const auto again =
        update::questionText({update::QuestionKind::WarnAgain, "NORTH", "WORK", "CREW", "PAY"});
    EXPECT_EQ(again.title, "Continue Warning?");
    EXPECT_EQ(again.text, "Warn Again if Unable to Convert Data?");
}

void expectClosing(const update::ClosingText& closing, const std::string& result,
                   const std::string& sentence) {
    EXPECT_EQ(closing.result, result);
    EXPECT_EQ(closing.sentence, sentence);
}

TEST(UpdateTexts, ARunEndsWithAResultAndASentence) {
    using update::RunOutcome;
    expectClosing(closingText(RunOutcome::Finished), "Finished", "Database Definitions Have Been Updated.");
    expectClosing(closingText(RunOutcome::Stopped), "STOPPED",
                  "WARNING: DATABASE DEFINITION UPDATE INCOMPLETE.");
    expectClosing(closingText(RunOutcome::BrokenOff), "STOPPED", "An error broke the run off.");
}

TEST(UpdateTexts, SoDoesARefresh) {
    using update::RefreshOutcome;
    for (const RefreshOutcome whole : {RefreshOutcome::Finished, RefreshOutcome::WithoutLists})
        expectClosing(closingText(whole), "Finished", "Database Definitions Have Been Refreshed.");
    expectClosing(closingText(RefreshOutcome::Incomplete), "Finished",
                  "Database Definitions ARE INCOMPLETE.");
    expectClosing(closingText(RefreshOutcome::Canceled), "Process Canceled",
                  "Database Definitions ARE INCOMPLETE.");
}

} // namespace
} // namespace tol::test
