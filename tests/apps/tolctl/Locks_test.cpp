// SPDX-License-Identifier: MIT
#include "Pty.h"
#include "rights/RightsCase.h"

#include "platform/System.h"
#include "runtime/Conversions.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using runtime::Null;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

constexpr double minutesOfDay = 24 * 60;

class LocksCommand : public testing::Test {
  protected:
    LocksCommand() {
        network.users.add({{3, "ann", "", false}, {4, "berta", "", false}});
        network.locks.add({{7, "JOBS", "ann", ago(150), 3, 1},
                           {8, "JOBS", "berta", ago(5), 4, 1},
                           {7, "ORDERS", "carl", ago(3 * minutesOfDay + 90), 5, 2},
                           {9, "ORDERS", "ann", Null{}, 3, 2}});
    }
    /// As many minutes before now; commands run within the minute.
    static runtime::Date ago(double minutes) {
        return {platform::now().serial - (minutes + 0.2) / minutesOfDay};
    }

    [[nodiscard]] Outcome run(std::vector<std::string> words, const std::string& input = "") const {
        words.insert(words.begin(), "locks");
        return m_case.run(words, input);
    }
    /// Tables and tags of the locks that are left.
    [[nodiscard]] std::vector<std::string> left() const {
        std::vector<std::string> names;
        for (const Json& lock : m_case.run({"locks", "--json"}).json())
            names.push_back(lock["TABLENAME"].get<std::string>() + lock["TAGNO"].dump());
        return names;
    }

  private:
    EngineForTests m_engine;
    CaseFolder m_case;

  protected:
    NetworkTables network;
};

TEST_F(LocksCommand, ListsThemInColumns) {
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_THAT(outcome.out,
                testing::MatchesRegex(
                    "Item Tag  Table Name  User Name  R/L Time Stamp +User Tag  Session #  Age +User\n"
                    "7         JOBS        ann        [0-9/]+ [0-9:]+ [AP]M +3 +1 +2h 30m\n"
                    "8         JOBS        berta      [0-9/]+ [0-9:]+ [AP]M +4 +1 +5m\n"
                    "7         ORDERS      carl       [0-9/]+ [0-9:]+ [AP]M +5 +2 +3d 1h +not in USERLIST\n"
                    "9         ORDERS      ann +3 +2\n"));
}

TEST_F(LocksCommand, ListsThemAsJsonAndCsv) {
    network.locks.change("TAGNO", 8, 10);
    Json locks = run({"--json"}).json();
    ASSERT_THAT(locks, SizeIs(4));
    EXPECT_NEAR(locks[0]["AGE"].get<int>(), 150 * 60, 59);
    locks[0].erase("AGE");
    locks[0].erase("RLTIMESTAMP");
    EXPECT_EQ(locks[0], R"({"TAGNO": 7, "TABLENAME": "JOBS", "RLUSERNAME": "ann", "USERTAG": 3, "Session": 1,
                            "INUSERLIST": true})"_json);
    EXPECT_EQ(locks[3], R"({"TAGNO": 9, "TABLENAME": "ORDERS", "RLUSERNAME": "ann", "RLTIMESTAMP": "",
                            "USERTAG": 3, "Session": 2, "AGE": null, "INUSERLIST": true})"_json);
    const std::string csv = run({"--csv", "--tag", "9"}).out;
    EXPECT_EQ(csv, "TAGNO,TABLENAME,RLUSERNAME,RLTIMESTAMP,USERTAG,Session,AGE,INUSERLIST\r\n"
                   "9,ORDERS,ann,,3,2,,Y\r\n");
    EXPECT_THAT(run({"--csv", "--user", "carl"}).out, testing::EndsWith(",N\r\n"));
}

TEST_F(LocksCommand, Filters) {
    const auto tags = [&](const std::vector<std::string>& words) {
        std::vector<std::string> all = words;
        all.emplace_back("--json");
        std::vector<int> found;
        for (const Json& lock : run(all).json())
            found.push_back(lock["TAGNO"]);
        return found;
    };
    EXPECT_THAT(tags({"--user", "ANN"}), ElementsAre(7, 9));
    EXPECT_THAT(tags({"--table", "jobs"}), ElementsAre(7, 8));
    EXPECT_THAT(tags({"--older-than", "2h"}), ElementsAre(7, 7));
    EXPECT_THAT(tags({"--older-than", "2h40m"}), ElementsAre(7));
    EXPECT_THAT(tags({"--older-than", "3d"}), ElementsAre(7));
    EXPECT_THAT(tags({"--older-than", "1w"}), IsEmpty());
    EXPECT_THAT(tags({"--older-than", "0s", "--table", "ORDERS"}), ElementsAre(7)) << "none without an age";
    EXPECT_THAT(tags({"--session", "2", "--tag", "9"}), ElementsAre(9));
}

TEST_F(LocksCommand, ATimeThatIsNoneIsWrongUsage) {
    for (const char* text : {"", "2", "h", "2x", "2h ", "-2h", "2.5h", "99999999h", "2 h"}) {
        const Outcome outcome = run({"--older-than", text});
        EXPECT_EQ(outcome.status, 2) << text;
        EXPECT_THAT(outcome.err, HasSubstr("--older-than"));
    }
}

// The time stamp may be a text.
TEST_F(LocksCommand, AStampThatIsATextHasAnAgeWhereItNamesADay) {
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        workspace.OpenDatabase("ZOVNET.MDB").TableDefs().Delete("RECORDLOCKS");
    }
    const TestTable texts("ZOVNET.MDB", "RECORDLOCKS",
                          {{"TAGNO", data::dbLong},
                           {"TABLENAME", data::dbText, 20},
                           {"RLUSERNAME", data::dbText, 20},
                           {"RLTIMESTAMP", data::dbText, 30},
                           {"USERTAG", data::dbLong},
                           {"Session", data::dbLong}},
                          {{"RECORDLOCKS", {"TABLENAME", "TAGNO"}}});
    texts.add({{1, "JOBS", "ann", "1/31/2003 4:05:00 PM", 3, 1},
               {2, "JOBS", "ann", "2003-01-31 16:05", 3, 1},
               {3, "JOBS", "ann", "this morning", 3, 1},
               {4, "JOBS", "ann", "37652", 3, 1},
               {5, "JOBS", "ann", "4:05:00 PM", 3, 1}});
    const Json locks = run({"--json"}).json();
    EXPECT_GT(locks[0]["AGE"], 20 * 365 * 86'400);
    EXPECT_GT(locks[1]["AGE"], 20 * 365 * 86'400);
    for (const int without : {2, 3, 4})
        EXPECT_TRUE(locks[without]["AGE"].is_null()) << without;
    EXPECT_EQ(run({"delete", "--older-than", "0s", "--yes"}).status, 0);
    EXPECT_THAT(left(), ElementsAre("JOBS3", "JOBS4", "JOBS5"));
}

TEST_F(LocksCommand, DeletesAfterAnAnswerAndTellsTheDeed) {
    const Outcome outcome = run({"delete", "--table", "JOBS", "--json"}, "yes\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, testing::MatchesRegex("Confirm Delete\n"
                                                   "  7 of JOBS, held by ann since .*, session 1\n"
                                                   "  8 of JOBS, held by berta since .*, session 1\n"
                                                   "  OK to Delete these 2 Record Locks[?]\n"
                                                   "  Yes or No[?] "));
    const Json deleted = outcome.json();
    ASSERT_THAT(deleted, SizeIs(2));
    EXPECT_EQ(deleted[0]["RLUSERNAME"], "ann");
    EXPECT_EQ(deleted[1]["RLUSERNAME"], "berta");
    EXPECT_THAT(left(), ElementsAre("ORDERS7", "ORDERS9"));
}

TEST_F(LocksCommand, DeletesNothingAfterANoOrNoAnswer) {
    for (const char* input : {"no\n", ""}) {
        const Outcome outcome = run({"delete", "--user", "carl"}, input);
        EXPECT_EQ(outcome.status, 4);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("held by carl (not in USERLIST) since"));
        EXPECT_THAT(outcome.err, HasSubstr("OK to Delete this Record Lock?"));
    }
    EXPECT_THAT(left(), SizeIs(4));
}

TEST_F(LocksCommand, DeletesOneByItsTableTagAndSessionWithoutAQuestion) {
    const Outcome outcome = run({"delete", "--table", "ORDERS", "--tag", "7", "--session", "2", "--yes"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_THAT(outcome.out, HasSubstr("\n7         ORDERS      carl"));
    EXPECT_THAT(left(), ElementsAre("JOBS7", "JOBS8", "ORDERS9"));
}

TEST_F(LocksCommand, AChoiceBeforeTheWordCountsToo) {
    EXPECT_EQ(run({"--user", "ann", "delete", "--table", "JOBS", "--yes"}).status, 0);
    EXPECT_THAT(left(), ElementsAre("JOBS8", "ORDERS7", "ORDERS9"));
}

TEST_F(LocksCommand, DeletesNothingByDefault) {
    for (const auto& words : {std::vector<std::string>{"delete"}, {"delete", "--yes"}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err,
                  "tolctl: which Record Locks are to be deleted? See tolctl locks delete --help.\n");
    }
    EXPECT_THAT(left(), SizeIs(4));
}

TEST_F(LocksCommand, NothingToDeleteIsNoQuestion) {
    const Outcome outcome = run({"delete", "--user", "nobody", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.json(), Json::array());
    EXPECT_EQ(outcome.err, "No Record Lock was deleted.\n");
}

// The person takes their time.
TEST_F(LocksCommand, ALockThatGoesWhileTheQuestionStandsIsTold) {
    Pty deleting(TOL_CTL_PROGRAM, {"locks", "delete", "--table", "JOBS"});
    ASSERT_TRUE(deleting.readUntil("Yes or No? "));
    network.locks.remove("TAGNO", 8);
    network.locks.add({{5, "JOBS", "berta", Null{}, 4, 1}});
    deleting.type("y\n");
    EXPECT_EQ(deleting.wait(), 0);
    EXPECT_THAT(deleting.shown(), HasSubstr("Deleted or changed by another user meanwhile: 1"));
    EXPECT_THAT(left(), ElementsAre("JOBS5", "ORDERS7", "ORDERS9"));
}

TEST_F(LocksCommand, ControlCAtTheQuestionDeletesNothing) {
    Pty deleting(TOL_CTL_PROGRAM, {"locks", "delete", "--table", "JOBS"});
    ASSERT_TRUE(deleting.readUntil("Yes or No? "));
    deleting.type("\003");
    EXPECT_EQ(deleting.wait(), 4);
    EXPECT_THAT(left(), SizeIs(4));
}

TEST_F(LocksCommand, WithoutANetworkDatabaseItCanNotStart) {
    std::filesystem::remove("ZOVNET.MDB");
    for (const auto& words : {std::vector<std::string>{}, {"delete", "--tag", "7", "--yes"}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.err, HasSubstr("tolctl: there is no network database."));
        EXPECT_THAT(outcome.out, IsEmpty());
    }
}

} // namespace
} // namespace tol::test
