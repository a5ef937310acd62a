// SPDX-License-Identifier: MIT
// A run stopped at any of its yields, and tables that another process has open.
#include "UpdateWorld.h"

#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tol::test {
namespace {

using testing::Each;
using testing::HasSubstr;

const std::string jobsFile = "drives/c/JOBS/NORTH/JOBS.MDB";

const Json wantedTables = Json::parse(R"({
    "GROWS": {"fields": [["NEW", 10, 5], ["ID", 4], ["LATER", 8]], "indexes": {"BYID": ["ID"], "BYNEW": ["NEW", "ID"]}},
    "MADE": {"fields": [["B", 4], ["A", 10, 4]], "indexes": {"BYA": ["A"]}},
    "TURNS": {"fields": [["SHORT", 10, 2], ["NUMBER", 3], ["KEPT", 4]], "indexes": {"BYKEPT": ["KEPT"]}}})");
const Json liveTables = Json::parse(R"({
    "GONE": {"fields": [["A", 4], ["B", 4]], "indexes": {"BYA": ["A"]}, "rows": [[1, 2]]},
    "GROWS": {"fields": [["ID", 4], ["OLD", 4]], "indexes": {"BYID": ["ID", "OLD"], "BYOLD": ["OLD"]}, "rows": [[1, 1], [2, 2]]},
    "TURNS": {"fields": [["KEPT", 4], ["NUMBER", 4], ["SHORT", 10, 5]], "indexes": {"BYKEPT": ["KEPT"]},
              "rows": [[11, 1, "aaaaa"], [22, 2, "bbbbb"], [33, 3, "ccccc"]]}})");

void prepare(const UpdateWorld& world) {
    UpdateWorld::addRowsOf(
        "DATABASES", Json::parse(R"([["JOBS", "DBPATHS", "N", false], ["MORE", "DBPATHS", "N", false]])"));
    UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
    UpdateWorld::addDefinitions(
        {{"JOBS", wantedTables}, {"MORE", Json::parse(R"({"T": {"fields": [["A", 4]]}})")}});
    world.addFile(jobsFile, liveTables);
    world.addFile("drives/c/JOBS/NORTH/MORE.MDB", Json::parse(R"({"T": {"fields": [["A", 4]]}})"));
}

Json liveNow(const UpdateWorld& world) {
    return readDatabase((world.folder.path() / jobsFile).string());
}

nlohmann::json schemaOf(const Json& tables) {
    Json all = completed(tables);
    for (auto& [name, table] : all.items())
        table.erase("rows");
    return nlohmann::json::parse(all.dump());
}

Json column(const Json& table, const std::string& name) {
    Json values = Json::array();
    for (std::size_t place = 0; place < table.at("fields").size(); ++place)
        if (table.at("fields")[place].at(0) == name)
            for (const Json& row : table.at("rows"))
                values.push_back(row.at(place));
    return values;
}

int yieldsOfAWholeRun() {
    UpdateWorld world;
    prepare(world);
    UpdateRun run;
    run(world);
    EXPECT_TRUE(run.finished);
    return run.yields;
}

// What a stop leaves half done a later run meets with one of these two errors, and mends.
void expectKnownErrors(const UpdateWorld& world) {
    for (const Box& box : world.host.boxes)
        EXPECT_TRUE(box.text.find("Error: 3191 C") != std::string::npos ||
                    box.text.find("Error: 3265 UpdateIndexDefs") != std::string::npos)
            << box.text;
}

void expectMended(UpdateWorld& world) {
    for (int further = 1; further <= 2; ++further) {
        UpdateRun run;
        run(world);
        EXPECT_TRUE(run.finished);
    }
    expectKnownErrors(world);
    const Json live = liveNow(world);
    EXPECT_EQ(schemaOf(live), schemaOf(wantedTables));
    EXPECT_EQ(column(live["TURNS"], "KEPT"), Json::parse("[11, 22, 33]"));
    EXPECT_EQ(column(live["GROWS"], "ID"), Json::parse("[1, 2]"));
    UpdateRun last;
    last(world);
    for (const Json& row : UpdateWorld::activityLog())
        EXPECT_EQ(row.at(5), "Database Ok. No Changes Made.");
}

TEST(UpdateStop, leavesNothingThatTwoFurtherRunsDoNotMend) {
    const int all = yieldsOfAWholeRun();
    EXPECT_GT(all, 40);
    for (int at = 1; at <= all; ++at) {
        SCOPED_TRACE("stopped at yield " + std::to_string(at));
        UpdateWorld world;
        prepare(world);
        UpdateRun stopped;
        stopped.cancelAtYield = at;
        stopped(world);
        EXPECT_FALSE(stopped.finished);
        EXPECT_TRUE(stopped.ended);
        EXPECT_EQ(stopped.view.labels[update::RunLabel::NPPATHNAME], "STOPPED");
        EXPECT_EQ(column(liveNow(world)["TURNS"], "KEPT"), Json::parse("[11, 22, 33]"));

        expectMended(world);
    }
}

// A new table is finished whatever is pressed meanwhile.
TEST(UpdateStop, finishesTheTableInWork) {
    UpdateWorld world;
    prepare(world);
    UpdateRun run;
    run.cancelAt = update::ActivityKind::FieldOfNewTable;
    run(world);
    EXPECT_FALSE(run.finished);
    const Json live = liveNow(world);
    ASSERT_TRUE(live.contains("MADE"));
    EXPECT_EQ(live["MADE"]["fields"].size(), 2U);
    EXPECT_EQ(live["TURNS"], completed(liveTables)["TURNS"]);
    EXPECT_TRUE(live.contains("GONE"));
}

// A field is as it was or as it is wanted, with all its values.
void expectWholeFields(const Json& live) {
    EXPECT_EQ(column(live["TURNS"], "KEPT"), Json::parse("[11, 22, 33]"));
    EXPECT_EQ(column(live["TURNS"], "NUMBER"), Json::parse("[1, 2, 3]"));
    EXPECT_THAT(column(live["TURNS"], "SHORT"), testing::AnyOf(Json::parse(R"(["aaaaa", "bbbbb", "ccccc"])"),
                                                               Json::parse(R"(["aa", "bb", "cc"])")));
}

bool isLogged(const std::string& table, const std::string& field, const std::string& action) {
    bool found = false;
    for (const Json& row : UpdateWorld::activityLog())
        found = found || (row.at(2) == table && row.at(4) == field && row.at(5) == action);
    return found;
}

// Texts that were cut and tables and fields that are gone: the log tells of each.
void expectLossesTold(const Json& live) {
    EXPECT_TRUE(column(live["TURNS"], "SHORT")[0] == "aaaaa" ||
                isLogged("TURNS", "SHORT", "Changed Field Size. Some Data may be lost."));
    EXPECT_TRUE(live.contains("GONE") || isLogged("GONE", " ", "Table: GONE Removed."));
    EXPECT_TRUE(!column(live["GROWS"], "OLD").empty() || isLogged("GROWS", "OLD", "Removed Old Field."));
}

void expectValuesKept(UpdateWorld& world) {
    expectMended(world);
    EXPECT_EQ(column(liveNow(world)["TURNS"], "NUMBER"), Json::parse("[1, 2, 3]"));
    EXPECT_EQ(column(liveNow(world)["TURNS"], "SHORT"), Json::parse(R"(["aa", "bb", "cc"])"));
}

// Unlike a Cancel.
TEST(UpdateStop, keepsEveryValueWhenTheRunIsEnded) {
    const int all = yieldsOfAWholeRun();
    for (int at = 1; at <= all; ++at) {
        SCOPED_TRACE("ended at yield " + std::to_string(at));
        UpdateWorld world;
        prepare(world);
        UpdateRun ended;
        ended.cancelAtYield = at;
        ended.stopRequest = update::StopRequest::EndRun;
        ended(world);
        EXPECT_FALSE(ended.finished);
        EXPECT_EQ(ended.view.labels[update::RunLabel::NPPATHNAME], "STOPPED");
        expectWholeFields(liveNow(world));
        expectValuesKept(world);
    }
}

TEST(UpdateStop, keepsEveryValueWhenADatabaseIsLeft) {
    const int all = yieldsOfAWholeRun();
    int left = 0;
    for (int at = 1; at <= all; at += 2) {
        SCOPED_TRACE("left at yield " + std::to_string(at));
        UpdateWorld world;
        prepare(world);
        UpdateRun run;
        run.cancelAtYield = at;
        run.stopRequest = update::StopRequest::LeaveDatabase;
        run(world);
        EXPECT_TRUE(run.finished);
        expectWholeFields(liveNow(world));
        if (!run.view.left.empty()) {
            ++left;
            EXPECT_TRUE(run.anyIncomplete);
            EXPECT_TRUE(isLogged("ERROR ", "ERROR ", "DATABASE DEFINITION UPDATE INCOMPLETE."));
        }
        expectValuesKept(world);
    }
    EXPECT_GT(left, 10);
}

// Once it is left, neither pass comes back to it; the others get both.
TEST(UpdateStop, goesOnBehindADatabaseThatIsLeft) {
    UpdateWorld world;
    prepare(world);
    UpdateRun run;
    run.cancelAtYield = 1;
    run.stopRequest = update::StopRequest::LeaveDatabase;
    run(world);
    EXPECT_EQ(UpdateWorld::activityLog().back(),
              Json::parse(R"(["NORTH", "MORE", " ", " ", " ", "Database Ok. No Changes Made."])"));
    ASSERT_EQ(run.view.left.size(), 1U);
    EXPECT_EQ(run.view.left[0].PATHNAME, "NORTH");
    EXPECT_EQ(run.view.left[0].DBNAME, "JOBS");
    int rows = 0;
    for (const Json& row : UpdateWorld::activityLog())
        rows += row.at(1) == "MORE" || row.at(5) == "DATABASE DEFINITION UPDATE INCOMPLETE." ? 1 : 0;
    EXPECT_EQ(rows, 3);
}

TEST(UpdateStop, losesNoValueWhenTheProgramIsKilled) {
    const int all = yieldsOfAWholeRun();
    for (int at = 1; at <= all; ++at) {
        SCOPED_TRACE("killed at yield " + std::to_string(at));
        UpdateWorld world;
        prepare(world);
        SecondProcess killed([&](const SecondProcess::Steps&) {
            UpdateRun run;
            run.killAtYield = at;
            run(world);
        });
        EXPECT_NE(killed.finish(), 0);
        const Json live = liveNow(world);
        expectWholeFields(live);
        expectLossesTold(live);
        expectValuesKept(world);
    }
}

class OtherProcess : public testing::Test {
  protected:
    UpdateWorld world;
};

TEST_F(OtherProcess, holdsATableOfTheTarget) {
    prepare(world);
    SecondProcess other([](const SecondProcess::Steps& steps) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
        data::Database database = workspace.OpenDatabase("C:\\JOBS\\NORTH\\JOBS.MDB");
        data::Recordset held = database.OpenRecordset("TURNS");
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(other.await());
    UpdateRun run;
    run(world);
    EXPECT_TRUE(run.finished);
    // Both conversions and the positions of both passes; the rest of the database is done.
    EXPECT_EQ(world.host.boxes.size(), 6U);
    const std::vector<std::string> texts = world.host.texts();
    EXPECT_EQ(std::ranges::count_if(
                  texts, [](const std::string& text) { return text.ends_with(" UpdateOPOS Table: TURNS"); }),
              2);
    EXPECT_THAT(world.host.texts(),
                Each(HasSubstr("Could not lock table 'TURNS'; it is in use by another user or process.")));
    EXPECT_FALSE(liveNow(world).contains("GONE"));
    EXPECT_TRUE(liveNow(world).contains("MADE"));
    EXPECT_EQ(column(liveNow(world)["TURNS"], "SHORT"), Json::parse(R"(["aaaaa", "bbbbb", "ccccc"])"));

    other.next();
    EXPECT_EQ(other.finish(), 0);
    world.host.boxes.clear();
    UpdateRun again;
    again(world);
    EXPECT_TRUE(world.host.boxes.empty());
    EXPECT_EQ(schemaOf(liveNow(world)), schemaOf(wantedTables));
}

TEST_F(OtherProcess, holdsACaptureTable) {
    prepare(world);
    SecondProcess other([](const SecondProcess::Steps& steps) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        data::Recordset held = definitions.OpenRecordset("OLDINDEXES");
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(other.await());
    UpdateRun run;
    run(world);
    EXPECT_TRUE(run.anyIncomplete);
    EXPECT_EQ(UpdateWorld::activityLog()[0].at(5), "Cannot Empty OLDINDEXES Table.");
    EXPECT_EQ(liveNow(world), completed(liveTables));
    other.next();
    EXPECT_EQ(other.finish(), 0);
}

} // namespace
} // namespace tol::test
