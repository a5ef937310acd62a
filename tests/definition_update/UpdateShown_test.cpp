// SPDX-License-Identifier: MIT
// What a run shows while it works, and what it tells about itself.
#include "UpdateWorld.h"

#include "definition_update/engine/DefinitionUpdate.h"
#include "support/Raises.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tol::test {
namespace {

using testing::ElementsAre;
using update::RunLabel;
using update::RunState;

class UpdateShown : public testing::Test {
  protected:
    UpdateShown() {
        UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
        UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
        UpdateWorld::addDefinitions(
            Json::parse(R"({"JOBS": {"S": {"fields": [["A", 4]]}, "T": {"fields": [["A", 3]]}}})"));
        world.addFile("drives/c/JOBS/NORTH/JOBS.MDB", Json::parse(R"({"S": {"fields": [["A", 4]]},
                                      "T": {"fields": [["A", 4]], "rows": [[1], [2], [3]]}})"));
    }

    UpdateWorld world;
    UpdateRun run;
};

TEST_F(UpdateShown, rowsBearTheDateAndTimeOfTheRun) {
    run(world);
    ASSERT_EQ(run.view.activity.size(), 3U);
    for (const update::ActivityRow& row : run.view.activity) {
        EXPECT_EQ(row.FDATE, "01/31/2003");
        EXPECT_EQ(row.PTIME, "4:05:00 PM");
    }
    const Json stored = readDatabase("ZOVDEF.MDB")["ACTIVITYLOG"]["rows"];
    EXPECT_EQ(stored[0], Json::parse(R"(["NORTH", "JOBS", "T", " ", "A", "Changed Field Type.  ",
                                         "01/31/2003", "4:05:00 PM"])"));
    EXPECT_EQ(run.view.activity[0].Action, "Changed Field Type.  ");
    EXPECT_EQ(run.view.activity[0].TABLENAME, "T");
}

TEST_F(UpdateShown, statesAndLabels) {
    run(world);
    EXPECT_THAT(run.view.states, ElementsAre(RunState::Running, RunState::Ended));
    EXPECT_THAT(run.view.history[RunLabel::NPPATHNAME], ElementsAre("NORTH", "Finished"));
    EXPECT_THAT(run.view.history[RunLabel::NPPATHTEXT],
                ElementsAre("C:\\JOBS\\NORTH", "Database Definitions Have Been Updated."));
    EXPECT_THAT(run.view.history[RunLabel::NPDBNAME], ElementsAre("JOBS", "JOBS", "JOBS", "JOBS", " "));
    // Each pass shows both tables for their fields and for the positions; the conversion shows and blanks its
    // own.
    EXPECT_THAT(run.view.history[RunLabel::NP2],
                ElementsAre("S", "T", "T", " ", "S", "T", "S", "T", "S", "T", " "));
    EXPECT_THAT(run.view.history[RunLabel::NP4], ElementsAre("         1", "         2", "         3",
                                                             "         1", "         2", "         3"));
    EXPECT_THAT(run.view.history[RunLabel::NP6], ElementsAre("3", "3"));
    EXPECT_FALSE(run.view.recordLabels);
    EXPECT_EQ(run.view.fills, 1);
    EXPECT_TRUE(run.view.tagged.empty());
}

TEST_F(UpdateShown, theSiteUnderTheHighlightIsShownAsTagged) {
    run.tagAll = false;
    run.currentSite = 0;
    run(world);
    EXPECT_THAT(run.view.tagged, ElementsAre(0));
    EXPECT_EQ(run.view.activity.size(), 3U);
}

// A row and field at each: pass one has 3 + 3 rows of the conversion, 2 tables, 2 positions, 1 database.
TEST_F(UpdateShown, yieldsOncePerRow) {
    run(world);
    EXPECT_EQ(run.yields, (3 + 3 + 2 + 2 + 1) + (2 + 2 + 1));
}

TEST_F(UpdateShown, recordLabelsStayWhenAConversionFails) {
    world.addFile(
        "drives/c/JOBS/SOUTH/JOBS.MDB",
        Json::parse(R"({"S": {"fields": [["A", 4]]}, "T": {"fields": [["A", 4], ["TEMPFIELD", 4]]}})"));
    UpdateWorld::addSites(Json::array({Json::array({"SOUTH", "C:\\JOBS\\SOUTH"})}));
    run.tagAll = false;
    run.tagged = {1};
    run.cancelAtYield = 2; // behind table T
    run(world);
    EXPECT_EQ(world.host.boxes.size(), 1U);
    EXPECT_TRUE(run.view.recordLabels);
}

TEST_F(UpdateShown, anErrorOutsideEveryProcedureLeavesTheWindowAsItIs) {
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        definitions.TableDefs("DATABASES").Name("OTHERS");
    }
    run(world);
    EXPECT_THAT(world.host.texts(), ElementsAre("Error Encountered In Form: frmDBUDDU\n"
                                                "Error: 3078 ProcessTaggedItems\n"
                                                "Cannot find the table 'DATABASES'."));
    EXPECT_THAT(run.view.states, ElementsAre(RunState::Running));
    EXPECT_EQ(run.view.fills, 0);
    EXPECT_FALSE(run.ended);
}

TEST_F(UpdateShown, opensItsDatabasesBeforeTheRunAndRaisesWhatThatRaises) {
    RecordingView view;
    std::filesystem::remove("ZOVDEF.MDB");
    EXPECT_EQ(errorOf([&] { const update::DefinitionUpdate updating(view); }), 3024);
}

TEST_F(UpdateShown, knowsADevelopersMachineByItsMarker) {
    EXPECT_FALSE(update::TargetFinder::developmentMode());
    world.folder.write("drives/c/vbp/zov/zovorv.VBP", "");
    EXPECT_TRUE(update::TargetFinder::developmentMode());
}

} // namespace
} // namespace tol::test
