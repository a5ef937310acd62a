// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"
#include "runtime/Host.h"
#include "shell/vdfunctions/vdGetNewTag.h"

namespace tol::test {
namespace {

using namespace shell;
using runtime::MsgIcon;

class GetNewTag : public SharedRoutineTest {
  protected:
    void makeCounter(const std::string& file, const std::string& table, const std::string& rows) const {
        make(file, table, R"([{"name": "DBTAG", "type": 4}, {"name": "OTHER", "type": 4}])", "[]", rows);
    }
    /// What the counter's only row holds.
    runtime::Value stored(const std::string& file, const std::string& table, const char* field = "DBTAG") {
        data::Database database = workspace.OpenDatabase(file);
        data::Recordset rows = database.OpenRecordset(table);
        EXPECT_EQ(rows.RecordCount(), 1);
        return rows.Fields(field).Value();
    }
    void expectFailure(const std::string& description) const {
        expectBox(MsgIcon::Critical, "Error: vdGetNewTag",
                  "Attempt to Assign New Tag Number Failed.\n" + description);
    }
};

TEST_F(GetNewTag, EmptyTableGetsItsRowAndHandsOut1) {
    makeCounter("DBPATHS.MDB", "TAGS", "[]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "DBPATHS.MDB", "TAGS", 0), 1);
    EXPECT_EQ(stored("DBPATHS.MDB", "TAGS"), runtime::Value(std::int32_t{2}));
    EXPECT_EQ(stored("DBPATHS.MDB", "TAGS", "OTHER"), runtime::Value(runtime::Null{}));
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "DBPATHS.MDB", "TAGS", 0), 2);
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(GetNewTag, CounterOf0HandsOut1) {
    makeCounter("DBPATHS.MDB", "TAGS", "[[0, 5]]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "DBPATHS.MDB", "TAGS", 0), 1);
    EXPECT_EQ(stored("DBPATHS.MDB", "TAGS"), runtime::Value(std::int32_t{2}));
    EXPECT_EQ(stored("DBPATHS.MDB", "TAGS", "OTHER"), runtime::Value(std::int32_t{5}));
}

TEST_F(GetNewTag, PrefixSeparatesTheNumbers) {
    makeCounter("DBPATHS.MDB", "TAGS", "[[57, null]]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "DBPATHS.MDB", "TAGS", 3), 3'000'057);
    EXPECT_EQ(stored("DBPATHS.MDB", "TAGS"), runtime::Value(std::int32_t{58}));
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "DBPATHS.MDB", "TAGS", -1), -999'942);
}

TEST_F(GetNewTag, EmptyNamesStandForTheUsualOnes) {
    std::filesystem::create_directories(folder.driveC() / "jobs");
    makeCounter("C:\\JOBS\\MAIN.MDB", "SYSTAGS", "[[7, null]]");
    EXPECT_EQ(vdGetNewTag(" C:\\JOBS ", "DBTAG", "", "", 0), 7);
    makeCounter("MAIN.MDB", "SYSTAGS", "[[9, null]]");
    EXPECT_EQ(vdGetNewTag("  ", "DBTAG", "", "", 0), 9);
}

TEST_F(GetNewTag, OverflowOfThePrefixLeavesTheCounterAlone) {
    makeCounter("MAIN.MDB", "SYSTAGS", "[[57, null]]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "", "", 2148), 0);
    expectFailure("Overflow");
    EXPECT_EQ(stored("MAIN.MDB", "SYSTAGS"), runtime::Value(std::int32_t{57}))
        << "the transaction ended with the workspace";
}

TEST_F(GetNewTag, OverflowOfTheNumber) {
    makeCounter("MAIN.MDB", "SYSTAGS", "[[2147483647, 2147483646]]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "", "", 0), 0);
    expectFailure("Overflow");
    EXPECT_EQ(vdGetNewTag("", "OTHER", "", "", 0), 2'147'483'646);
    EXPECT_EQ(vdGetNewTag("", "OTHER", "", "", 2147), 0) << "the sum overflows";
}

TEST_F(GetNewTag, MissingDatabaseTableOrField) {
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "NONE.MDB", "", 0), 0);
    ASSERT_EQ(person.boxes.size(), 1U);
    expectFailure(descriptionOf([&] { workspace.OpenDatabase("NONE.MDB"); }));
    person.boxes.clear();

    makeCounter("MAIN.MDB", "TAGS", "[]");
    EXPECT_EQ(vdGetNewTag("", "DBTAG", "", "", 0), 0);
    expectFailure(descriptionOf([&] { workspace.OpenDatabase("MAIN.MDB").OpenRecordset("SYSTAGS"); }));
    person.boxes.clear();

    EXPECT_EQ(vdGetNewTag("", "NONE", "", "TAGS", 0), 0);
    expectFailure("Item not found in this collection.");
}

} // namespace
} // namespace tol::test
