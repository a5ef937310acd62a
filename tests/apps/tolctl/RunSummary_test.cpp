// SPDX-License-Identifier: MIT
#include "tolctl/RunSummary.h"

#include <gmock/gmock.h>

#include <sstream>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class RunSummaryTest : public testing::Test {
  protected:
    void add(const std::string& action, const std::string& table = "CREW",
             const std::string& field = "NAME") {
        m_summary.add({"NORTH", "WORK", table, " ", field, action, "", ""});
    }
    std::string text() const {
        std::ostringstream out;
        m_summary.print(out);
        return out.str();
    }

    ctl::RunSummary m_summary;
};

TEST_F(RunSummaryTest, CountsChangesByKind) {
    add("Added New Table.");
    add("Added Field.");
    add("Added Field.");
    add("Added New Field");
    add("Added New Field");
    add("Changed Field Type.  ");
    add("Changed Field Size.  ");
    add("Removed Old Field.");
    add("Table: OLD Removed.");
    add("Created New Index.");
    add("Added Field to Index Key.");
    add("Changed Index Keys.");
    add("Index Removed.");
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
    add("Database Ok. No Changes Made.", " ", " ");
    EXPECT_EQ(text(), "\nJob Sites: 1, databases: 1\n");
}

TEST_F(RunSummaryTest, TellsWhatNeedsALookOnce) {
    add("Cannot Find Database.", " ", " ");
    add("Cannot Find Database.", " ", " ");
    add("DATABASE DEFINITION UPDATE INCOMPLETE.", "ERROR ", "ERROR ");
    add("ERROR CREATING TABLE.TABLE EXITS", "CREW", " ");
    EXPECT_THAT(text(), HasSubstr("  What needs a look:\n"
                                  "    NORTH, WORK, CREW: ERROR CREATING TABLE.TABLE EXITS\n"
                                  "    NORTH, WORK: Cannot Find Database.\n"
                                  "    NORTH, WORK: DATABASE DEFINITION UPDATE INCOMPLETE.\n"));
    EXPECT_THAT(text(), HasSubstr("  databases not processed                  2\n"));
}

TEST_F(RunSummaryTest, TellsWhereDataWasLost) {
    const std::string question = "Unable to Convert Data in Field: PAY located in Table: CREW\nDATA IN THIS";
    m_summary.addUnconvertible("NORTH, WORK", question);
    m_summary.addUnconvertible("NORTH, WORK", question);
    m_summary.addUnconvertible("SOUTH, WORK", question);
    m_summary.addUnconvertible("SOUTH, WORK", "Something else");
    add("Changed Field Size. Some Data may be lost.");
    EXPECT_THAT(text(),
                HasSubstr("lost:\n    NORTH, WORK, CREW, PAY (2 rows)\n    SOUTH, WORK, CREW, PAY (1 row)\n"
                          "    SOUTH, WORK, Something else (1 row)\n"));
    EXPECT_THAT(text(), HasSubstr("may have been cut:\n    NORTH, WORK, CREW, NAME\n"));
}

TEST_F(RunSummaryTest, CountsTheRestOfALongList) {
    for (int field = 100; field < 125; ++field)
        add("Changed Field Size. Some Data may be lost.", "CREW", "F" + std::to_string(field));
    EXPECT_THAT(text(), HasSubstr("F119\n    and 5 more\n"));
    EXPECT_THAT(text(), Not(HasSubstr("F120")));
}

} // namespace
} // namespace tol::test
