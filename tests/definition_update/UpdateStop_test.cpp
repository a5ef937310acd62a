// SPDX-License-Identifier: MIT
// A run stopped at any of its yields, and tables that another process has open.
#include "UpdateWorld.h"

#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

// A new table is finished whatever is pressed meanwhile: nothing in its making yields.
TEST(UpdateStop, finishesTheTableInWork) {
    UpdateWorld world;
    prepare(world);
    UpdateRun run;
    run.cancelAtYield = 2; // GROWS, MADE
    run(world);
    EXPECT_TRUE(liveNow(world).contains("MADE"));
    EXPECT_TRUE(liveNow(world).contains("GONE"));
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
    // Both conversions of both passes; the rest of the database is done.
    EXPECT_EQ(world.host.boxes.size(), 4U);
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
