// SPDX-License-Identifier: MIT
// What the capture of a target leaves in OLDDEF and OLDINDEXES, and what follows when it fails part way.
#include "PlayedEngine.h"
#include "UpdateWorld.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace tol::test {
namespace {

const std::string blankSlot(20, ' ');

class Capture : public testing::Test {
  protected:
    /// Runs the update over one database; nothing is wanted unless told.
    void runOver(const Json& tables, const Json& wanted = Json::object()) {
        world.addFile(jobs, tables);
        UpdateWorld::addDefinitions({{"JOBS", wanted}});
        runOverJobs();
    }
    void runOverJobs() {
        UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
        UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
        UpdateRun run;
        run(world);
    }
    /// Makes the database as another program would, which has other rules for names.
    void makeForeign(const std::string& statements) const {
        const std::filesystem::path file = world.folder.path() / jobs;
        std::filesystem::create_directories(file.parent_path());
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    static Json captured(const std::string& table) { return readDatabase("ZOVDEF.MDB")[table]["rows"]; }

    static constexpr const char* jobs = "drives/c/JOBS/NORTH/JOBS.MDB";
    UpdateWorld world;
};

Json indexRow(Json row) {
    while (row.size() < 13)
        row.push_back(blankSlot);
    return row;
}

Json fieldList(const Json& fields) {
    return {{"fields", fields}};
}

TEST_F(Capture, namesFieldsAsTheyAreAndTablesWithoutFieldsWithABlank) {
    const Json tables{{"Bare", Json::object()},
                      {"Orders", fieldList(Json::parse(R"([["Id", 4], ["Note", 12], ["Zip", 10, 5]])"))}};
    runOver(tables, {{"Bare", Json::object()}, {"Orders", tables["Orders"]}});
    // The table without fields is wanted by nobody who could name a field of it, so the first pass removed
    // it.
    EXPECT_EQ(
        captured("OLDDEF"),
        Json::parse(
            R"([["Orders", "Id", 4, 4, 0], ["Orders", "Note", 0, 12, 1], ["Orders", "Zip", 5, 10, 2]])"));
}

TEST_F(Capture, tellsATableWithoutFieldsByASingleRow) {
    // The table is held by someone, so it outlives the run.
    world.addFile("drives/c/JOBS/NORTH/JOBS.MDB", {{"BARE", Json::object()}});
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
    data::Database database = workspace.OpenDatabase("C:\\JOBS\\NORTH\\JOBS.MDB");
    const data::Recordset held = database.OpenRecordset("BARE");
    UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
    UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
    UpdateRun run;
    run(world);
    EXPECT_EQ(captured("OLDDEF"), Json::parse(R"([["BARE", " ", 0, 0, 0]])"));
}

TEST_F(Capture, joinsAllKeyNamesButNamesTen) {
    Json fields = Json::array();
    Json keys = Json::array();
    for (int key = 1; key <= 12; ++key) {
        fields.push_back(Json::array({"K" + std::to_string(key), 4}));
        keys.push_back("K" + std::to_string(key));
    }
    const Json tables{{"T", {{"fields", fields}, {"indexes", {{"SHORT", {"K2"}}, {"WIDE", keys}}}}}};
    runOver(tables, tables);
    const Json shortRow = indexRow(Json::array({"T", "SHORT", "K2", "K2"}));
    Json wideRow = Json::array({"T", "WIDE", "K1K2K3K4K5K6K7K8K9K10K11K12"});
    wideRow.insert(wideRow.end(), keys.begin(), keys.begin() + 10);
    EXPECT_EQ(captured("OLDINDEXES"), Json::array({shortRow, wideRow}));
    EXPECT_TRUE(world.host.boxes.empty());
}

// The rest of the run does not find the table by its trimmed name, and says so.
TEST_F(Capture, trimsTheNamesOfTablesAndIndexesButNotOfFields) {
    makeForeign(R"(CREATE TABLE " Orders  " (" Id" INTEGER, "Note " VARCHAR(5));
                   CREATE INDEX "  By Id " ON " Orders  " (" Id", "Note ");)");
    runOverJobs();
    EXPECT_EQ(captured("OLDDEF"),
              Json::parse(R"([["Orders", " Id", 4, 4, 0], ["Orders", "Note ", 5, 10, 1]])"));
    EXPECT_EQ(captured("OLDINDEXES"),
              Json::array({indexRow(Json::parse(R"(["Orders", "By Id", " IdNote ", " Id", "Note "])"))}));
    ASSERT_EQ(world.host.boxes.size(), 2U);
    EXPECT_NE(world.host.boxes[0].text.find("Error: 3265 UpdateIndexDefs"), std::string::npos);
}

TEST_F(Capture, tellsAnIndexWithoutKeyFieldsByBlankSlots) {
    data::DBEngine::addEngine(std::make_unique<PlayedEngine>("KEYLESS", std::make_shared<PlayedCalls>(),
                                                             std::vector<data::IndexDef>{{"NOKEYS", {}}}));
    world.addFile(jobs, "KEYLESS");
    UpdateWorld::addDefinitions({{"JOBS", {{"T", fieldList(Json::parse(R"([["A", 4]])"))}}}});
    UpdateWorld::addRowsOf("NEWINDEXES", Json::parse(R"([["JOBS", "T", "NOKEYS", ""]])"));
    runOverJobs();
    EXPECT_EQ(captured("OLDINDEXES"), Json::array({indexRow(Json::array({"T", "NOKEYS", ""}))}));
    EXPECT_TRUE(world.host.boxes.empty());
    for (const Json& row : UpdateWorld::activityLog())
        EXPECT_EQ(row.at(5), "Database Ok. No Changes Made.") << row;
}

TEST_F(Capture, isEmptyForATargetWithoutTables) {
    runOver(Json::object());
    EXPECT_EQ(captured("OLDDEF"), Json::array());
    EXPECT_EQ(captured("OLDINDEXES"), Json::array());
    EXPECT_EQ(UpdateWorld::activityLog().size(), 2U);
}

TEST_F(Capture, passesOverTablesWithTheEnginesFirstFourLetters) {
    const Json tables = Json::parse(R"({"AMSYS": {"fields": [["X", 4]]}, "mSySown": {"fields": [["X", 4]]},
                                        "MSYSTEMS": {"fields": [["X", 4]], "indexes": {"BYX": ["X"]}}})");
    runOver(tables);
    Json kept = completed(tables);
    kept.erase("AMSYS");
    EXPECT_EQ(nlohmann::json::parse(readDatabase("C:\\JOBS\\NORTH\\JOBS.MDB").dump()),
              nlohmann::json::parse(kept.dump()));
}

// A field name that OLDDEF can't hold ends the capture of fields. The tables behind it count as new, are
// found live, and are refused; a table that is really new is made, and with it the database counts as
// complete.
class BrokenCapture : public Capture {
  protected:
    BrokenCapture() {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        Json tables = readDatabase("ZOVDEF.MDB");
        Json narrow = Json::object();
        narrow["OLDDEF"] = tables["OLDDEF"];
        narrow["OLDDEF"]["fields"][1][2] = 5;
        definitions.TableDefs().Delete("OLDDEF");
        addTables(definitions, narrow);
    }

    const Json live = Json::parse(R"({"A": {"fields": [["X", 4]]}, "B": {"fields": [["LONGNAME", 4]]},
                                      "C": {"fields": [["X", 4]], "indexes": {"BYX": ["X"]}}})");
};

TEST_F(BrokenCapture, refusesTablesThatItDidNotReach) {
    runOver(live, live);
    const Json refused = Json::parse(R"([
        ["NORTH", "JOBS", "B", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "C", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "ERROR ", "ERROR ", "ERROR ", "DATABASE DEFINITION UPDATE INCOMPLETE."]])");
    Json twice = refused;
    twice.insert(twice.end(), refused.begin(), refused.end());
    EXPECT_EQ(UpdateWorld::activityLog(), twice);
    ASSERT_EQ(world.host.boxes.size(), 2U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_EQ(world.host.boxes[0].text, "Error Encountered In Form: frmDBUDDU\nError: 3163 FillTableDef\n"
                                        "The field 'FNAME' is too small to accept the amount of data.");
    EXPECT_EQ(readDatabase("C:\\JOBS\\NORTH\\JOBS.MDB"), completed(live));
}

TEST_F(BrokenCapture, countsAsCompleteWhenATableIsAddedLast) {
    Json wanted = live;
    wanted["D"] = {{"fields", Json::array({Json::array({"X", 4})})}};
    runOver(live, wanted);
    const Json expected = Json::parse(R"([
        ["NORTH", "JOBS", "B", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "C", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "D", " ", " ", "Added New Table."],
        ["NORTH", "JOBS", "D", " ", "X", "Added Field."],
        ["NORTH", "JOBS", "B", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "C", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "D", " ", " ", "ERROR CREATING TABLE.TABLE EXITS"],
        ["NORTH", "JOBS", "ERROR ", "ERROR ", "ERROR ", "DATABASE DEFINITION UPDATE INCOMPLETE."]])");
    EXPECT_EQ(UpdateWorld::activityLog(), expected);
}

} // namespace
} // namespace tol::test
