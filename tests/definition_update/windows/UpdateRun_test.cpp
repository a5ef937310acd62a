// SPDX-License-Identifier: MIT
// Runs in the update window: its states, what it shows, and how a run is stopped.
#include "UpdateWindow.h"

#include "data/DBEngine.h"
#include "definition_update/engine/FillingMark.h"
#include "runtime/Host.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>

#include <QTest>

namespace tol::test {
namespace {

using runtime::MsgResult;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* ready = "&Begin, choices on, refresh off, print on, exit on";
constexpr const char* running = "&Cancel, choices off, refresh off, print off, exit off, now processing";
constexpr const char* stopPressed =
    "&Cancel off, choices off, refresh off, print off, exit on, now processing";
constexpr const char* ended = "&Cancel off, choices off, refresh off, print on, exit on, now processing";
constexpr const char* brokenOff = "&Cancel off, choices off, refresh off, print off, exit on, now processing";

constexpr const char* dataWillBeLost = "Unable to Convert Data in Field: NUMBER located in Table: ORDERS\n"
                                       "DATA IN THIS FIELD WILL BE LOST.\n\nOK to Continue?";
constexpr const char* warnAgain = "Warn Again if Unable to Convert Data?";

class Run : public UpdateWindow {
  protected:
    void expectFinished() {
        EXPECT_EQ(state(), ended);
        EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
        EXPECT_EQ(text("lblNPPATHTEXT"), "Database Definitions Have Been Updated.");
        expectBlankRest();
    }
    void expectStopped() {
        EXPECT_EQ(state(), ended);
        EXPECT_EQ(text("lblNPPATHNAME"), "STOPPED");
        EXPECT_EQ(text("lblNPPATHTEXT"), "WARNING: DATABASE DEFINITION UPDATE INCOMPLETE.");
        expectBlankRest();
    }
    void expectBlankRest() {
        EXPECT_EQ(text("lblNPDBNAME"), " ");
        EXPECT_EQ(text("lblNP2"), " ");
        EXPECT_FALSE(visible("lblNP3"));
        EXPECT_EQ(focus(), "hsbALMAIN");
        EXPECT_EQ(highlighted("lblACTION"), 0);
        EXPECT_EQ(highlighted("lblPATHNAME"), -1);
    }
    std::vector<Json> values() {
        std::vector<Json> all;
        const Json tables = outdated();
        for (const Json& row : tables["ORDERS"]["rows"])
            all.push_back(row[0]);
        return all;
    }
};

TEST_F(Run, GoesThroughItsStates) {
    addOutdatedSite();
    open();
    EXPECT_EQ(state(), ready);
    person().keepPicture("update-ready");
    atYield(1, [&] {
        EXPECT_EQ(state(), running);
        EXPECT_EQ(focus(), "hsbALMAIN");
        EXPECT_EQ(highlighted("lblPATHNAME"), -1);
    });
    click("cmdCancel");
    EXPECT_GE(world.host.yields, 1);
    expectFinished();
    person().keepPicture("update-finished");
    EXPECT_THAT(column("lblACTION"), ElementsAre("Added New Field", "Changed Field Type.  ",
                                                 "Created New Index.", "Added Field to Index Key.",
                                                 "Database Ok. No Changes Made.", "End of List", " ", " "));
    EXPECT_THAT(values(), ElementsAre(1, 2, 3));
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Run, DoesNotStartOnADefinitionWhoseFillingDidNotEnd) {
    addOutdatedSite();
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        update::FillingMark(definitions).set();
    }
    open();
    click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_THAT(world.host.boxes[0].text,
                StartsWith("The Last Refresh of the Database Definitions Did Not Finish."));
    EXPECT_EQ(state(), "&Begin off, choices on, refresh off, print on, exit on");
    EXPECT_THAT(values(), ElementsAre("1", "2", "3"));
}

TEST_F(Run, WorksByTheKeyboardAlone) {
    addOutdatedSite();
    open();
    press(Qt::Key_T);
    press(Qt::Key_B, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return text("lblNPPATHNAME") == "Finished"; }));
    expectFinished();
    EXPECT_THAT(values(), ElementsAre(1, 2, 3));
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted("lblACTION"), 1);
    press(Qt::Key_X);
    EXPECT_FALSE(isOpen());
}

TEST_F(Run, BeginsByEnterOnTheButton) {
    addOutdatedSite();
    open();
    while (focus() != "cmdCancel")
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    expectFinished();
}

TEST_F(Run, TheLogCanBeBrowsedAfterwards) {
    addOutdatedSite();
    open();
    click("cmdCancel");
    click("lblACTION(3)");
    EXPECT_EQ(highlighted("lblACTION"), 3);
    click("cmdALBUPARROW");
    EXPECT_EQ(highlighted("lblACTION"), 2);
    press(Qt::Key_End);
    EXPECT_EQ(text("lblACTION(0)"), "Database Ok. No Changes Made.");
    EXPECT_EQ(state(), ended);
    for (const char* control : {"lblPATHNAME(0)", "cmdTAGEM", "cmdVDBHOME", "cmdVDBACTION"})
        poke(control);
    press(Qt::Key_T);
    press(Qt::Key_Home);
    EXPECT_EQ(highlighted("lblPATHNAME"), -1);
    EXPECT_EQ(text("lblACTION(0)"), "Added New Field");
}

// Without a tag the highlighted site is taken as it stands, and shown as tagged; a tag is folded and trimmed.
TEST_F(Run, ASingleSiteNeedsNoTag) {
    addSites(3);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
    open();
    press(Qt::Key_Down);
    std::string location;
    atYield(1, [&] {
        location = text("lblNPPATHNAME") + "|" + text("lblNPPATHTEXT") + "|" + text("lblNPDBNAME");
        EXPECT_THAT(marked(), ElementsAre(1));
    });
    click("cmdCancel");
    EXPECT_EQ(location, "SITE02|C:\\Jobs\\Site02 |AWAY");
    EXPECT_EQ(UpdateWorld::activityLog(),
              Json::parse(R"([["SITE02", "AWAY", " ", " ", " ", "Cannot Find Database."],
                              ["SITE02", "AWAY", " ", " ", " ", "Cannot Find Database."]])"));
}

TEST_F(Run, ATaggedSitesLocationIsFolded) {
    addSites(3);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
    open();
    press(Qt::Key_T);
    std::string location;
    atYield(1, [&] { location = text("lblNPPATHTEXT"); });
    click("cmdCancel");
    EXPECT_EQ(location, "C:\\JOBS\\SITE01");
}

TEST_F(Run, WithoutASiteItFinishesAtOnce) {
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
    open();
    click("cmdCancel");
    expectFinished();
    EXPECT_EQ(text("lblACTION(0)"), "List is Empty");
    EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(Run, TheModuleSaysWhichDatabasesMayBeMissing) {
    addSites(1);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "B", false]])"));
    open();
    click("cmdCancel");
    EXPECT_EQ(text("lblACTION(0)"), "List is Empty") << "module N";
    click("cmdExit");
    auto other = std::make_unique<update::frmDBUDDU>();
    other->ModuleCode = "B";
    main.showChild(std::move(other));
    click("cmdCancel");
    EXPECT_EQ(text("lblACTION(0)"), "Cannot Find Database.");
}

TEST_F(Run, TheActivityListFollowsTheRows) {
    addSites(12);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
    UpdateWorld::addRowsOf("ACTIVITYLOG", Json::parse(R"([["OLD"], ["OLD"], ["OLD"]])"));
    open();
    click("cmdTAGALL");
    std::vector<std::vector<std::string>> seen;
    std::vector<std::string> shown;
    world.host.onYield = [&] {
        seen.push_back(column("lblALPATHNAME"));
        shown.push_back(text("lblALROW"));
    };
    world.host.yields = 0;
    click("cmdCancel");
    ASSERT_GE(seen.size(), 24U);
    EXPECT_THAT(seen[0], ElementsAre("SITE01", "OLD", "OLD", " ", " ", " ", " ", " "))
        << "the log of the run before stays until its rows are needed";
    EXPECT_THAT(seen[1], ElementsAre("SITE01", "SITE01", "OLD", " ", " ", " ", " ", " "));
    EXPECT_EQ(shown[0], "SITE01, AWAY, Cannot Find Database.") << "the row that came last, as a whole";
    EXPECT_EQ(shown[23], "SITE12, AWAY, Cannot Find Database.");
    EXPECT_THAT(seen[7],
                ElementsAre("SITE01", "SITE01", "SITE02", "SITE02", "SITE03", "SITE03", "SITE04", "SITE04"));
    EXPECT_THAT(seen[8],
                ElementsAre("SITE01", "SITE02", "SITE02", "SITE03", "SITE03", "SITE04", "SITE04", "SITE05"));
    EXPECT_THAT(seen[23],
                ElementsAre("SITE09", "SITE09", "SITE10", "SITE10", "SITE11", "SITE11", "SITE12", "SITE12"));
    EXPECT_THAT(column("lblALPATHNAME"),
                ElementsAre("SITE01", "SITE01", "SITE02", "SITE02", "SITE03", "SITE03", "SITE04", "SITE04"));
}

TEST_F(Run, TheRecordIsToldWhileRowsAreConverted) {
    addOutdatedSite();
    open();
    std::vector<std::string> seen;
    world.host.onYield = [&] {
        if (visible("lblNP3"))
            seen.push_back(text("lblNP2") + "|" + text("lblNP3") + text("lblNP4") + text("lblNP5") +
                           text("lblNP6"));
        if (world.host.yields == 2)
            person().keepPicture("update-running");
    };
    click("cmdCancel");
    ASSERT_GE(seen.size(), 3U);
    EXPECT_EQ(seen[0], "ORDERS|Record:         1of3");
    EXPECT_EQ(seen[2], "ORDERS|Record:         3of3");
    EXPECT_FALSE(visible("lblNP3") || visible("lblNP4") || visible("lblNP5") || visible("lblNP6"));
}

TEST_F(Run, BothQuestionsAnsweredYes) {
    addOutdatedSite(4, false);
    open();
    click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 2U);
    EXPECT_EQ(world.host.boxes[0].title, "Data Will Be Lost");
    EXPECT_EQ(world.host.boxes[0].text, dataWillBeLost);
    EXPECT_EQ(world.host.boxes[1].title, "Continue Warning?");
    EXPECT_EQ(world.host.boxes[1].text, warnAgain);
    expectFinished();
    EXPECT_THAT(values(), ElementsAre(1, 0, 3, 4));
}

TEST_F(Run, NoFurtherWarning) {
    addOutdatedSite(4, false);
    open();
    world.host.answers = {MsgResult::Yes, MsgResult::No};
    click("cmdCancel");
    expectFinished();
    EXPECT_EQ(world.host.boxes.size(), 2U);
    EXPECT_THAT(values(), ElementsAre(1, 0, 0, 0)) << "the rows behind it are no longer stored";
}

TEST_F(Run, TheDataMustNotBeLost) {
    addOutdatedSite(4, false);
    open();
    world.host.answers = {MsgResult::No};
    click("cmdCancel");
    expectStopped();
    person().keepPicture("update-stopped");
    EXPECT_EQ(world.host.boxes.size(), 1U);
    EXPECT_THAT(values(), ElementsAre("1", "40000", "3", "4"));
}

TEST_F(Run, ACancelTakesEffectAtTheNextYield) {
    addOutdatedSite(5);
    open();
    atYield(2, [&] {
        EXPECT_TRUE(visible("lblNP3"));
        click("cmdCancel");
        EXPECT_EQ(state(), stopPressed);
        EXPECT_EQ(focus(), "hsbALMAIN");
    });
    click("cmdCancel");
    expectStopped();
    EXPECT_THAT(UpdateWorld::activityLog(), Contains(Contains(StartsWith("Changed Field Type."))));
}

TEST_F(Run, ACancelByKeys) {
    addOutdatedSite(5);
    open();
    atYield(1, [&] {
        press(Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !enabled("cmdCancel"); }));
        EXPECT_EQ(state(), stopPressed);
    });
    click("cmdCancel");
    expectStopped();
}

// The run is no longer to go on after a No, but it has not returned yet when the button is pressed.
TEST_F(Run, ACancelBehindANoStartsNoSecondRun) {
    addOutdatedSite(4, false);
    open();
    int presses = 0;
    world.host.answers = {MsgResult::No};
    world.host.onYield = [&] {
        if (world.host.boxes.empty() || presses++ > 0)
            return;
        click("cmdCancel");
        EXPECT_EQ(state(), stopPressed);
    };
    click("cmdCancel");
    EXPECT_GE(presses, 1);
    expectStopped();
    EXPECT_EQ(world.host.boxes.size(), 1U);
}

TEST_F(Run, KeysAndClicksOnTheListsDoNothingMeanwhile) {
    addSites(12);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
    UpdateWorld::addRowsOf("ACTIVITYLOG", Json::parse(R"([["OLD"], ["OLD"], ["OLD"]])"));
    open();
    click("cmdTAGALL");
    atYield(20, [&] {
        const auto before = column("lblALPATHNAME");
        const auto marksBefore = marked();
        for (const char* list : {"lblALPATHNAME(3)", "lblPATHNAME(3)", "lblACTION(1)"})
            click(list);
        for (const char* prefix : {"cmdALB", "cmdVDB"})
            for (const char* button : {"HOME", "END", "PGUP", "PGDN", "UPARROW", "DNARROW"}) {
                EXPECT_FALSE(enabled(QString(prefix) + button)) << prefix << button;
                poke(QString(prefix) + button);
            }
        poke("cmdVDBACTION");
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp,
                                  Qt::Key_PageDown, Qt::Key_T, Qt::Key_Return, Qt::Key_Delete})
            press(key);
        EXPECT_EQ(column("lblALPATHNAME"), before);
        EXPECT_EQ(marked(), marksBefore);
        EXPECT_EQ(highlighted("lblACTION"), 0) << "where it was before the run";
        EXPECT_EQ(highlighted("lblPATHNAME"), -1);
        EXPECT_EQ(state(), running);
    });
    click("cmdCancel");
    expectFinished();
    EXPECT_EQ(UpdateWorld::activityLog().size(), 24U);
}

TEST_F(Run, AWindowServesOneRun) {
    addOutdatedSite();
    open();
    click("cmdCancel");
    poke("cmdCancel");
    press(Qt::Key_C, Qt::AltModifier);
    QTest::qWait(150);
    expectFinished();
    click("cmdExit");
    open();
    EXPECT_EQ(state(), ready);
    EXPECT_EQ(text("lblACTION(0)"), "Added New Field") << "the log of the run before";
    click("cmdCancel");
    expectFinished();
    EXPECT_THAT(column("lblACTION"),
                ElementsAre("Database Ok. No Changes Made.", "Database Ok. No Changes Made.", "End of List",
                            " ", " ", " ", " ", " "));
}

TEST_F(Run, TheLogIsOpenElsewhereAtBegin) {
    addOutdatedSite();
    UpdateWorld::addRowsOf("ACTIVITYLOG", Json::parse(R"([["OLD"]])"));
    open();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    const data::Recordset held = definitions.OpenRecordset("ACTIVITYLOG");
    click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 2U);
    EXPECT_EQ(world.host.boxes[0].text,
              "Cannot Obtain Exclusive use of the Table: ACTIVITYLOG\nCannot Empty Table.");
    EXPECT_EQ(world.host.boxes[1].title, "ERROR");
    EXPECT_EQ(world.host.boxes[1].text, "Cannot Empty Activity Log.");
    EXPECT_EQ(world.host.boxes[1].style, (runtime::MsgStyle{runtime::MsgIcon::Exclamation}));
    EXPECT_EQ(state(), ended);
    EXPECT_EQ(text("lblALPATHNAME(0)"), "OLD");
    EXPECT_THAT(values(), ElementsAre("1", "2", "3")) << "nothing was touched";
    click("cmdExit");
    EXPECT_FALSE(isOpen());
}

TEST_F(Run, AScratchTableIsOpenElsewhere) {
    addOutdatedSite();
    open();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    const data::Recordset held = definitions.OpenRecordset("OLDDEF");
    click("cmdCancel");
    expectFinished();
    EXPECT_EQ(text("lblACTION(0)"), "Cannot Empty OLDDEF Table.");
    EXPECT_EQ(text("lblACTION(1)"), "DATABASE DEFINITION UPDATE INCOMPLETE.");
    EXPECT_EQ(text("lblTABLENAME(1)"), "ERROR ");
}

TEST_F(Run, TheNetworkFolderIsGone) {
    addSites(1);
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["ZOVNET", "NETPATH", "N", false]])"));
    world.addFile("NETPATH.MDB",
                  Json::parse(R"({"NETPATH": {"fields": [["Path", 10, 50]], "rows": [["s:\\gone"]]}})"));
    open();
    std::string location;
    atYield(1, [&] { location = text("lblNPPATHTEXT"); });
    click("cmdCancel");
    EXPECT_EQ(location, "S:\\GONE");
    expectFinished();
    EXPECT_EQ(text("lblACTION(0)"), "Cannot Find Database.");
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Run, AnErrorBreaksItOffAndLeavesTheFrameAsItIs) {
    addSites(2);
    open();
    deleteFirstSite();
    click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_THAT(world.host.boxes[0].text, StartsWith("Error Encountered In Form: frmDBUDDU\nError: "));
    EXPECT_THAT(world.host.boxes[0].text, testing::HasSubstr(" ProcessTaggedItems\n"));
    EXPECT_EQ(state(), brokenOff);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_T})
        press(key);
    click("lblACTION(0)");
    click("cmdExit");
    EXPECT_FALSE(isOpen());
}

class LoadFailure : public UpdateWindow {
  protected:
    void expectExitOnly(const std::string& description) {
        open();
        ASSERT_EQ(world.host.boxes.size(), 1U);
        EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
        EXPECT_THAT(world.host.boxes[0].text,
                    StartsWith("Error Encountered In Form: frmDBUDDU\nError: " + description));
        EXPECT_EQ(state(), "&Begin off, choices off, refresh off, print off, exit on");
        EXPECT_EQ(focus(), "cmdExit");
        person().keepPicture("update-load-error");
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_T, Qt::Key_Return})
            press(key);
        if (isOpen())
            click("lblPATHNAME(0)");
        EXPECT_EQ(world.host.boxes.size(), 1U);
    }
};

TEST_F(LoadFailure, TheSitesAreMissing) {
    std::filesystem::remove(world.folder / "DBPATHS.MDB");
    expectExitOnly("3024 Load\n");
}

TEST_F(LoadFailure, TheSitesAreDamaged) {
    world.folder.write("DBPATHS.MDB", "torn to pieces, every single page of it");
    expectExitOnly("3343 Load\n");
}

TEST_F(LoadFailure, TheDefinitionsAreMissing) {
    std::filesystem::remove(world.folder / "ZOVDEF.MDB");
    expectExitOnly("3024 Load\n");
}

TEST_F(LoadFailure, TheDefinitionsAreDamaged) {
    world.folder.write("ZOVDEF.MDB", "torn to pieces, every single page of it");
    expectExitOnly("3343 Load\n");
    if (isOpen())
        press(Qt::Key_X);
    EXPECT_FALSE(isOpen());
}

TEST_F(LoadFailure, TheLogIsMissing) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    definitions.TableDefs().Delete("ACTIVITYLOG");
    expectExitOnly("3078 Load\n");
}

} // namespace
} // namespace tol::test
