// SPDX-License-Identifier: MIT
#include "tolctl/RunSummary.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using update::ActivityKind;
using update::QuestionKind;

class RunSummaryTest : public testing::Test {
  protected:
    void add(const update::Activity& activity) {
        m_summary.add(activity,
                      {"NORTH", "WORK", activity.table, " ", activity.field, "As the log has it. ", "", ""});
    }
    void addAll(std::initializer_list<ActivityKind> kinds) {
        for (const ActivityKind kind : kinds)
            add({.kind = kind, .table = "CREW", .field = "NAME"});
    }
    std::string text() const {
        std::ostringstream out;
        m_summary.print(out);
        return out.str();
    }

    ctl::RunSummary m_summary;
};

TEST_F(RunSummaryTest, CountsChangesByKind) {
    addAll({ActivityKind::TableAdded, ActivityKind::FieldOfNewTable, ActivityKind::FieldOfNewTable,
            ActivityKind::FieldAdded, ActivityKind::FieldAdded, ActivityKind::TypeChanged,
            ActivityKind::SizeChanged, ActivityKind::FieldRemoved, ActivityKind::TableRemoved,
            ActivityKind::IndexCreated, ActivityKind::IndexKeyAdded, ActivityKind::IndexKeysChanged,
            ActivityKind::IndexRemoved});
    EXPECT_EQ(text(), "\nJob Sites: 1, databases: 1\n"
                      "  tables added                             1\n"
                      "  fields added                             2\n"
                      "  field types changed                      1\n"
                      "  field sizes changed                      1\n"
                      "  fields removed with their data           1\n"
                      "  tables removed with their data           1\n"
                      "  indexes created                          1\n"
                      "  index keys changed                       1\n"
                      "  indexes removed                          1\n");
}

TEST_F(RunSummaryTest, AnUnchangedDatabaseIsNoChange) {
    add({ActivityKind::NoChanges});
    EXPECT_EQ(text(), "\nJob Sites: 1, databases: 1\n");
}

TEST_F(RunSummaryTest, TellsWhatNeedsALookOnce) {
    add({ActivityKind::DatabaseNotFound});
    add({ActivityKind::DatabaseNotFound});
    add({.kind = ActivityKind::TableExists, .table = "CREW"});
    EXPECT_THAT(text(), HasSubstr("  What needs a look:\n"
                                  "    NORTH, WORK, CREW: As the log has it.\n"
                                  "    NORTH, WORK: As the log has it.\n"));
    EXPECT_THAT(text(), HasSubstr("  tables that could not be made            1\n"));
    EXPECT_THAT(text(), HasSubstr("  databases not processed                  2\n"));
}

TEST_F(RunSummaryTest, EveryTroubleNeedsALook) {
    for (const ActivityKind kind :
         {ActivityKind::DevelopmentDatabase, ActivityKind::DevelopmentDatabases, ActivityKind::WNDPATHEmpty,
          ActivityKind::NETPATHEmpty, ActivityKind::DatabaseNotFound, ActivityKind::OLDDEFInUse,
          ActivityKind::OLDINDEXESInUse, ActivityKind::DatabaseIncomplete, ActivityKind::TableExists,
          ActivityKind::TableNotDefined}) {
        m_summary = {};
        add({kind});
        EXPECT_THAT(text(), HasSubstr("  What needs a look:\n    NORTH, WORK: As the log has it.\n"))
            << static_cast<int>(kind);
    }
    EXPECT_THAT(text(), HasSubstr("  tables that could not be made            1\n"));
}

TEST_F(RunSummaryTest, TellsWhereDataWasLost) {
    m_summary.add({QuestionKind::LoseValue, "NORTH", "WORK", "CREW", "PAY "});
    m_summary.add({QuestionKind::WarnAgain, "NORTH", "WORK", "CREW", "PAY "});
    m_summary.add({QuestionKind::LoseValue, "NORTH", "WORK", "CREW", "PAY "});
    m_summary.add({QuestionKind::LoseValue, "SOUTH", "WORK", "CREW", "PAY "});
    add({.kind = ActivityKind::SizeChanged, .table = "CREW", .field = "NAME", .dataMayBeLost = true});
    add({.kind = ActivityKind::SizeChanged, .table = "CREW", .field = "NOTE"});
    EXPECT_THAT(text(), HasSubstr("lost:\n    NORTH, WORK, CREW, PAY (2 rows)\n"
                                  "    SOUTH, WORK, CREW, PAY (1 row)\n"
                                  "  Fields made shorter, where longer texts may have been cut:\n"
                                  "    NORTH, WORK, CREW, NAME\n"));
    EXPECT_THAT(text(), Not(HasSubstr("NOTE")));
}

TEST_F(RunSummaryTest, CountsTheRestOfALongList) {
    for (int field = 100; field < 125; ++field)
        add({.kind = ActivityKind::SizeChanged,
             .table = "CREW",
             .field = "F" + std::to_string(field),
             .dataMayBeLost = true});
    EXPECT_THAT(text(), HasSubstr("F119\n    and 5 more\n"));
    EXPECT_THAT(text(), Not(HasSubstr("F120")));
}

} // namespace
} // namespace tol::test
