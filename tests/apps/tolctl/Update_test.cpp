// SPDX-License-Identifier: MIT
#include "WorkCase.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class UpdateTest : public testing::Test {
  protected:
    /// A text field that is wanted as an amount: none of its three values can convert.
    void addUnconvertible() { m_case.addField("PAY", 10, {"1", "2", "3"}, 5, 8); }

    static std::vector<std::string> answersOf(const Json& report) {
        std::vector<std::string> answers;
        for (const Json& message : report["messages"])
            answers.push_back(message["title"].get<std::string>() + " " +
                              message["answer"].get<std::string>());
        return answers;
    }

    WorkCase m_case;
};

TEST_F(UpdateTest, PrintsItsRowsAndASummary) {
    m_case.finish();
    const Outcome outcome = m_case.run({"update"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("NORTH YARD        WORK        CREW                                "
                                       "NOTE              Added New Field"));
    EXPECT_THAT(outcome.out, HasSubstr("Database Ok. No Changes Made."));
    EXPECT_THAT(outcome.err, HasSubstr("Job Sites: 1, databases: 1\n"));
    EXPECT_THAT(outcome.err, HasSubstr("\n  fields added                             1\n"));
    EXPECT_THAT(outcome.err, HasSubstr("\n  field sizes changed                      1\n"));
    EXPECT_THAT(outcome.err, HasSubstr("Finished. Database Definitions Have Been Updated.\n"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("\033")));
    EXPECT_EQ(m_case.crew(), Json::parse(R"([[1, "Ada", null], [2, "Bo", null], [3, "        ", null]])"));
}

TEST_F(UpdateTest, ReportsAsJson) {
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_EQ(report["messages"], Json::array());
    EXPECT_THAT(actionsOf(report),
                ElementsAre("Changed Field Size.  ", "Added New Field", "Database Ok. No Changes Made."));
    const Json& row = report["rows"][0];
    EXPECT_EQ(row.size(), 8U);
    EXPECT_EQ(row["PATHNAME"], "NORTH YARD");
    EXPECT_EQ(row["DBNAME"], "WORK");
    EXPECT_EQ(row["TABLENAME"], "CREW");
    EXPECT_EQ(row["INDEXNAME"], " ");
    EXPECT_EQ(row["FIELDNAME"], "NAME");
    EXPECT_EQ(row["FDATE"].get<std::string>().size(), 10U);
    EXPECT_THAT(row["PTIME"].get<std::string>(), testing::ContainsRegex("[AP]M$"));
}

TEST_F(UpdateTest, ContinueGoesOnAndIsAskedForEachRow) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json", "--on-unconvertible", "continue"});
    EXPECT_EQ(outcome.status, 0);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_THAT(answersOf(report),
                ElementsAre("Data Will Be Lost Yes", "Continue Warning? Yes", "Data Will Be Lost Yes",
                            "Continue Warning? Yes", "Data Will Be Lost Yes", "Continue Warning? Yes"));
    EXPECT_EQ(report["messages"][0]["text"],
              "Unable to Convert Data in Field: PAY located in Table: CREW\nDATA IN THIS FIELD WILL BE "
              "LOST.\n\nOK to Continue?");
    EXPECT_EQ(m_case.crew()[0], Json::parse(R"([1, "Ada", null, "0.0000"])"));
    // On the terminal each question is told once.
    EXPECT_EQ(outcome.err,
              "Data Will Be Lost\n  Unable to Convert Data in Field: PAY located in Table: CREW\n"
              "  DATA IN THIS FIELD WILL BE LOST.\n\n  OK to Continue?\n  -> Yes\n"
              "Continue Warning?\n  Warn Again if Unable to Convert Data?\n  -> Yes\n");
}

TEST_F(UpdateTest, QuietIsAskedOnce) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json", "--on-unconvertible", "quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(answersOf(outcome.json()), ElementsAre("Data Will Be Lost Yes", "Continue Warning? No"));
}

TEST_F(UpdateTest, StopKeepsTheOldField) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json", "--on-unconvertible", "stop"});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.json()["result"], "STOPPED");
    EXPECT_THAT(answersOf(outcome.json()), ElementsAre("Data Will Be Lost No"));
    EXPECT_THAT(m_case.crew()[0].dump(), HasSubstr("\"1\""));
}

TEST_F(UpdateTest, WithoutATerminalTheUsualAnswerIsStop) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update"}, "yes\nyes\n");
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(outcome.err, HasSubstr("STOPPED. WARNING: DATABASE DEFINITION UPDATE INCOMPLETE."));
}

TEST_F(UpdateTest, AskReadsItsAnswers) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome =
        m_case.run({"update", "--json", "--on-unconvertible", "ask"}, "maybe\n yes\nY\ny\nn\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(answersOf(outcome.json()), ElementsAre("Data Will Be Lost Yes", "Continue Warning? Yes",
                                                       "Data Will Be Lost Yes", "Continue Warning? No"));
}

TEST_F(UpdateTest, AskTakesTheEndOfInputForNo) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json", "--on-unconvertible", "ask"}, "yes\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(answersOf(outcome.json()), ElementsAre("Data Will Be Lost Yes", "Continue Warning? No"));
    EXPECT_EQ(m_case.run({"update", "--json", "--on-unconvertible", "ask"}).status, 0);
}

TEST_F(UpdateTest, TheSummaryTellsWhereValuesWereLost) {
    addUnconvertible();
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--on-unconvertible", "continue"});
    EXPECT_THAT(outcome.err, HasSubstr("Values that could not convert, and so were lost:\n"
                                       "    NORTH YARD, WORK, CREW, PAY (3 rows)\n"));
    EXPECT_THAT(outcome.err,
                HasSubstr("The whole log: tolctl --dir '" + m_case.folder.path().string() + "' log\n"));
}

// An action that the summary does not know counts as trouble.
TEST_F(UpdateTest, TheSummaryKnowsEveryActionOfARun) {
    ASSERT_EQ(m_case.run({"demo", "suite"}).status, 0);
    const Outcome outcome =
        m_case.run({"--dir", "suite", "update", "--all", "--on-unconvertible", "continue"});
    EXPECT_EQ(outcome.status, 0);
    for (const char* kind : {"tables added", "fields added", "field types changed", "field sizes changed",
                             "fields removed with their data", "tables removed with their data",
                             "indexes created", "index keys changed", "indexes removed"})
        EXPECT_THAT(outcome.err, testing::ContainsRegex("\n  " + std::string(kind) + " +[1-9][0-9]*\n"));
    EXPECT_THAT(outcome.err, HasSubstr("  Fields made shorter, where longer texts may have been cut:\n"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("databases not processed")));
    EXPECT_THAT(outcome.err, Not(HasSubstr("What needs a look")));
}

// The other actions.
TEST_F(UpdateTest, TheSummaryTellsTroublesFromWhatWasNotProcessed) {
    m_case.want("WORK", "CREW ", "TAG", 4, 4);
    m_case.addDatabase("GONE");
    m_case.finish();
    const Outcome outcome = m_case.run({"update"});
    EXPECT_THAT(outcome.err, HasSubstr("\n  databases left incomplete "));
    EXPECT_THAT(outcome.err, HasSubstr("\n  tables that could not be made "));
    EXPECT_THAT(outcome.err, HasSubstr("\n  databases not processed                  2\n"));
    EXPECT_THAT(outcome.err, HasSubstr("    NORTH YARD, GONE: Cannot Find Database.\n"));
}

TEST_F(UpdateTest, AnIncompleteDatabaseIsStatusThree) {
    m_case.want("WORK", "CREW ", "TAG", 4, 4);
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    const std::vector<std::string> actions = actionsOf(outcome.json());
    EXPECT_THAT(actions, testing::Contains("DATABASE DEFINITION UPDATE INCOMPLETE."));
    EXPECT_EQ(outcome.json()["result"], "Finished");
    EXPECT_EQ(outcome.status, 3);
}

TEST_F(UpdateTest, AnErrorBoxIsStatusThree) {
    m_case.addField("DAY", 10, {"no date", "", ""}, 8, 8);
    m_case.finish();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 3);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_EQ(report["messages"][0]["title"], "Error During Processing");
    EXPECT_EQ(report["messages"][0]["answer"], "OK");
    EXPECT_THAT(report["messages"][0]["text"], HasSubstr("ConvertFieldType"));
    EXPECT_THAT(outcome.err, HasSubstr("Error During Processing\n  Error Encountered In Form: frmDBUDDU\n"));
}

TEST_F(UpdateTest, TheModuleTellsWhatMustNotBeMissing) {
    m_case.addDatabaseRow(Json::array({"COSTS", "DBPATHS", "P", false, "", "", ""}));
    m_case.finish();
    const auto missing = testing::Contains("Cannot Find Database.");
    EXPECT_THAT(actionsOf(m_case.run({"update", "--json"}).json()), Not(missing));
    EXPECT_THAT(actionsOf(m_case.run({"update", "--json", "--module", "P"}).json()), missing);
    EXPECT_THAT(actionsOf(m_case.run({"update", "--json", "--module", "A"}).json()), missing);
}

TEST_F(UpdateTest, GoesOnWhenNobodyReadsItsOutput) {
    m_case.finish();
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    close(ends[0]);
    Program update(TOL_CTL_PROGRAM, {"update"}, m_case.folder.path(), [&] { dup2(ends[1], STDOUT_FILENO); });
    EXPECT_EQ(update.wait(), 3);
    EXPECT_THAT(update.err(), HasSubstr("tolctl: standard output can't be written.\n"));
    EXPECT_EQ(m_case.run({"log", "--json"}).json().back()["Action"], "Database Ok. No Changes Made.");
    close(ends[1]);
}

TEST_F(UpdateTest, NeedsTheDefinitionDatabase) {
    m_case.finish();
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("ZOVDEF.MDB'. (error 3024)"));
}

TEST_F(UpdateTest, ADefinitionDatabaseWithoutItsListCannotStart) {
    m_case.finish();
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    m_case.load("ZOVDEF.MDB",
                databaseOf({tableOf("ACTIVITYLOG", Json::parse(R"([["Action", 10, 50]])"), Json::array())}));
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("3078 ProcessTaggedItems"));
}

// Another program of the suite reads the log.
TEST_F(UpdateTest, ALogThatIsInUseCannotStart) {
    m_case.finish();
    static const bool added =
        (data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>()), true);
    (void)added;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wks");
    data::Database database = workspace.OpenDatabase(m_case.folder / "ZOVDEF.MDB");
    const data::Recordset log = database.OpenRecordset("ACTIVITYLOG");
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("ERROR\n  Cannot Empty Activity Log.\n"));
}

TEST_F(UpdateTest, ADefinitionDatabaseThatMayOnlyBeReadCannotStart) {
    m_case.finish();
    namespace fs = std::filesystem;
    fs::permissions(m_case.folder / "ZOVDEF.MDB", fs::perms::owner_read);
    Program update(TOL_CTL_PROGRAM, {"update"}, m_case.folder.path(), withoutRightsOfRoot);
    EXPECT_EQ(update.wait(), 1);
    EXPECT_THAT(update.err(), HasSubstr("ERROR\n  Cannot Empty Activity Log.\n"));
}

} // namespace
} // namespace tol::test
