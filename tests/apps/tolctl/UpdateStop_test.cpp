// SPDX-License-Identifier: MIT
#include "WorkCase.h"

#include <gmock/gmock.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <thread>

namespace tol::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class UpdateStopTest : public testing::Test {
  protected:
    static void waitFor(const std::function<bool()>& condition) {
        while (!condition())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    WorkCase m_case;
};

// There is no field type 99, so the table is begun again and again.
TEST_F(UpdateStopTest, ADatabaseThatFailsForEverIsLeftAfterThreeBoxes) {
    m_case.addDatabase("LATER");
    m_case.want("WORK", "CREW", "BAD", 99, 0);
    m_case.want("LATER", "T", "A", 4, 4);
    m_case.finish();
    m_case.load("drives/c/NORTH/LATER.MDB",
                databaseOf({tableOf("T", Json::parse(R"([["A", 4, 4]])"), Json::array())}));
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 3);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    ASSERT_EQ(report["messages"].size(), 3U);
    EXPECT_EQ(report["messages"][0], report["messages"][2]);
    EXPECT_THAT(report["messages"][0]["text"], HasSubstr("ModifyTable"));
    EXPECT_EQ(report["left"],
              Json::array(
                  {{{"site", "NORTH YARD"}, {"database", "WORK"}, {"box", report["messages"][0]["text"]}}}));
    EXPECT_THAT(outcome.err, HasSubstr("tolctl: left NORTH YARD, WORK, where the update could not go on"));
    EXPECT_THAT(actionsOf(report), testing::IsSupersetOf({"DATABASE DEFINITION UPDATE INCOMPLETE.",
                                                          "Database Ok. No Changes Made."}));
    EXPECT_EQ(report["rows"].back()["DBNAME"], "LATER");
}

TEST_F(UpdateStopTest, ATableThatFailsForEverIsLeftAfterThreeBoxes) {
    m_case.want("WORK", "TOOLS", "BAD", 99, 0);
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.json()["messages"].size(), 3U);
    EXPECT_THAT(outcome.json()["messages"][0]["text"], HasSubstr("AddNewTable"));
    EXPECT_EQ(outcome.json()["left"].size(), 1U);
}

// Two errors of one table by turns: no box comes twice in a row.
TEST_F(UpdateStopTest, BoxesThatComeInTurnsAreCountedAsWell) {
    m_case.addField("DAY", 10, {"no date", "", ""}, 8, 8);
    m_case.want("WORK", "CREW", "ZZ", 99, 0);
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 3);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_LE(report["messages"].size(), 9U);
    EXPECT_EQ(report["left"].size(), 1U);
}

TEST_F(UpdateStopTest, ADatabaseThatMayOnlyBeReadIsOneBoxAndOneRow) {
    m_case.addDatabase("LATER");
    m_case.want("LATER", "T", "A", 4, 4);
    m_case.want("LATER", "T", "B", 4, 4);
    m_case.addField("PAY", 4, {1, 2, 3}, 7, 8);
    m_case.finish();
    m_case.load("drives/c/NORTH/LATER.MDB",
                databaseOf({tableOf("T", Json::parse(R"([["A", 4, 4]])"), Json::array())}));
    const Json before = m_case.crew();
    for (const char* field : {"PAY", "AAA"}) { // the first change is a conversion, or a field to be added
        SCOPED_TRACE(field);
        if (std::string(field) == "AAA")
            m_case.want("WORK", "CREW", field, 4, 4);
        std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
        std::filesystem::remove(m_case.folder / "DBPATHS.MDB");
        m_case.CaseFolder::finish();
        namespace fs = std::filesystem;
        const std::string file = m_case.folder.driveC() / "NORTH" / "WORK.MDB";
        fs::permissions(file, fs::perms::owner_read);
        Program update(TOL_CTL_PROGRAM, {"update", "--json"}, m_case.folder.path(), withoutRightsOfRoot);
        EXPECT_EQ(update.wait(), 3);
        fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
        const Json report = Json::parse(update.out());
        EXPECT_EQ(report["result"], "Finished");
        ASSERT_EQ(report["messages"].size(), 1U) << report["messages"];
        EXPECT_THAT(report["messages"][0]["text"], HasSubstr(file));
        EXPECT_EQ(report["left"][0]["box"], report["messages"][0]["text"]);
        EXPECT_EQ(report["left"][0]["database"], "WORK");
        int rows = 0;
        for (const Json& row : report["rows"])
            rows += row["DBNAME"] == "WORK" ? 1 : 0;
        EXPECT_EQ(rows, 1);
        EXPECT_EQ(report["rows"][0]["Action"], "DATABASE DEFINITION UPDATE INCOMPLETE.");
        EXPECT_THAT(actionsOf(report), Contains("Database Ok. No Changes Made."));
        EXPECT_EQ(m_case.crew(), before);
    }
}

// What needs no change may be read-only.
TEST_F(UpdateStopTest, ADatabaseThatIsUpToDateMayBeReadOnly) {
    m_case.finish();
    ASSERT_EQ(m_case.run({"update"}).status, 0);
    namespace fs = std::filesystem;
    fs::permissions(m_case.folder.driveC() / "NORTH" / "WORK.MDB", fs::perms::owner_read);
    Program update(TOL_CTL_PROGRAM, {"update", "--json"}, m_case.folder.path(), withoutRightsOfRoot);
    EXPECT_EQ(update.wait(), 0);
    EXPECT_EQ(Json::parse(update.out())["messages"], Json::array());
}

// The first conversion fails and leaves its temporary field, so that those of the other fields of the
// table fail alike, each once: that comes to an end by itself.
TEST_F(UpdateStopTest, TheSameBoxForEachOfManyFieldsDoesNotStopTheRun) {
    m_case.addField("AMOUNT", 5, {"99999999999.0000", "1.0000", "2.0000"}, 4, 4);
    for (const char* name : {"B1", "B2", "B3", "B4"})
        m_case.addField(name, 3, {1, 2, 3}, 4, 4);
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 3);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_GE(report["messages"].size(), 5U);
    EXPECT_EQ(report["messages"][1], report["messages"][4]);
}

// The same box at three sites is three boxes.
TEST_F(UpdateStopTest, TheSameBoxAtSeveralSitesDoesNotStopTheRun) {
    m_case.addField("DAY", 10, {"no date", "", ""}, 8, 8);
    m_case.addSite("SOUTH", "C:\\SOUTH");
    m_case.addSite("WEST", "C:\\WEST");
    m_case.finish();
    for (const char* site : {"SOUTH", "WEST"})
        std::filesystem::copy(m_case.folder.driveC() / "NORTH" / "WORK.MDB",
                              m_case.folder.driveC() / site / "WORK.MDB");
    const Outcome outcome = m_case.run({"update", "--json", "--all"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.json()["result"], "Finished");
}

TEST_F(UpdateStopTest, AnErrorThatBreaksTheRunOffIsStatusFour) {
    m_case.finish();
    Json definitions = m_case.dump("ZOVDEF.MDB");
    for (Json& table : definitions["tables"])
        if (table["name"] == "DATABASES")
            table["fields"][2]["name"] = "SUITES"; // where the run looks for "Modules"
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    m_case.load("ZOVDEF.MDB", definitions);
    const Outcome report = m_case.run({"update", "--json"});
    EXPECT_EQ(report.status, 4);
    EXPECT_EQ(report.json()["result"], "STOPPED");
    EXPECT_THAT(report.json()["messages"][0]["text"], HasSubstr("3265 ProcessTaggedItems"));
    const Outcome text = m_case.run({"update"});
    EXPECT_EQ(text.status, 4);
    EXPECT_THAT(text.err, HasSubstr("STOPPED. An error broke the run off.\n"));
}

class SignalTest : public UpdateStopTest, public testing::WithParamInterface<int> {};

// The stop comes in the middle of a change of type, of which no value is lost.
TEST_P(SignalTest, StopsAtTheNextYieldAndKeepsTheOldField) {
    m_case.addField("PAY", 4, {1, 2, 3}, 7, 8);
    m_case.want("WORK", "BULK", "AAA", 12, 0);
    m_case.want("WORK", "BULK", "PAY", 7, 8);
    m_case.addDatabase("LATER");
    m_case.finish();
    std::filesystem::remove(m_case.folder.driveC() / "NORTH" / "WORK.MDB");
    Json rows = Json::array();
    for (int row = 1; row <= 60000; ++row)
        rows.push_back(Json::array({row}));
    m_case.load("drives/c/NORTH/WORK.MDB",
                databaseOf({tableOf("BULK", Json::parse(R"([["PAY", 4, 4]])"), rows)}));

    Program update(TOL_CTL_PROGRAM, {"update"}, m_case.folder.path());
    waitFor([&] { return update.out().find("Added New Field") != std::string::npos; });
    update.signal(GetParam());
    EXPECT_EQ(update.wait(), 4);
    EXPECT_THAT(update.err(), HasSubstr("STOPPED. WARNING: DATABASE DEFINITION UPDATE INCOMPLETE."));
    const Json log = m_case.run({"log", "--json"}).json();
    for (const Json& row : log) {
        EXPECT_NE(row["DBNAME"], "LATER");
        EXPECT_NE(row["Action"], "Changed Field Type.  ");
    }
    const Json after = m_case.rows("drives/c/NORTH/WORK.MDB", "BULK");
    ASSERT_EQ(after.size(), rows.size());
    std::size_t lost = 0;
    for (std::size_t row = 0; row < rows.size(); ++row)
        lost += after[row][0] == rows[row][0] ? 0U : 1U;
    EXPECT_EQ(lost, 0U);
}

INSTANTIATE_TEST_SUITE_P(Signals, SignalTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_F(UpdateStopTest, AnInterruptAtAQuestionIsANo) {
    m_case.addField("PAY", 10, {"1", "2", "3"}, 5, 8);
    m_case.finish();
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    Program update(TOL_CTL_PROGRAM, {"update", "--json", "--on-unconvertible", "ask"}, m_case.folder.path(),
                   [&] { dup2(ends[0], STDIN_FILENO); });
    waitFor([&] { return update.err().find("Yes or No? ") != std::string::npos; });
    update.signal(SIGINT);
    close(ends[1]);
    EXPECT_EQ(update.wait(), 4);
    const Json report = Json::parse(update.out());
    EXPECT_EQ(report["result"], "STOPPED");
    EXPECT_EQ(report["messages"][0]["answer"], "No");
    close(ends[0]);
}

} // namespace
} // namespace tol::test
