// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBURefresh.h"

#include "Controls.h"
#include "update_support/UpdateWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A folder with reference databases, and the window over it.
class RefreshWindow : public testing::Test {
  protected:
    RefreshWindow() {
        for (const char* file : {"FIRST", "SECOND", "THIRD"})
            world.addFile(std::string("drives/c/REF/") + file + ".MDB",
                          Json::parse(R"({"Jobs": {"fields": [["Id", 4]], "indexes": {"ById": ["Id"]}}})"));
        list({"FIRST", "SECOND", "THIRD"});
        world.addFile("NETPATH.MDB",
                      Json::parse(R"({"NETPATH": {"fields": [["Path", 10, 50]], "rows": [["C:\\NET"]]}})"));
        world.addFile("drives/c/NET/ZOVNET.MDB", Json::parse(R"({
            "MODULES": {"fields": [["MODULEID", 10, 3], ["MODULENAME", 10, 30]], "indexes": {"MODULES": ["MODULEID"]},
                        "rows": [["PAY", "Payroll"]]},
            "USERACCESSITEMS": {
                "fields": [["UAITAG", 4], ["MODULEID", 10, 3], ["UAICODE", 10, 10], ["Desc", 10, 40], ["FORMNAME", 10, 20]],
                "indexes": {"USERACCESSITEMS": ["MODULEID", "UAICODE"]},
                "rows": [[2, "PAY", "RUN", "Run it", "frmRUN"]]}})"));
    }

    static void list(const std::vector<std::string>& databases) {
        Json rows = Json::array();
        for (const std::string& name : databases)
            rows.push_back(
                Json::array({name, "DBPATHS", "N", false, "C:\\REF", "", "Jobs of the " + name + " kind"}));
        UpdateWorld::addRowsOf("DATABASES", rows);
    }
    static Json table(const std::string& name) { return readDatabase("ZOVDEF.MDB")[name]["rows"]; }

    void show() {
        window.NetLocation = NetLocation;
        window.showModeless();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    /// Has the step taken at that yield.
    void atYield(int yield, std::function<void()> step) {
        world.host.onYield = [this, yield, step = std::move(step)] {
            if (world.host.yields == yield)
                step();
        };
    }

    UpdateWorld world;
    std::string NetLocation = " ";
    update::frmDBURefresh window;
};

TEST_F(RefreshWindow, IsReadyWhenItOpens) {
    show();
    EXPECT_EQ(window.windowTitle(), "Refresh Database Definitions");
    EXPECT_EQ(textOf(window, "lblHDBNAME"), "Now Processing Database:");
    EXPECT_EQ(textOf(window, "lblHDBDESC"), "Database Description:");
    EXPECT_EQ(textOf(window, "lblHTNAME"), "Table:");
    EXPECT_EQ(textOf(window, "lblHFNAME"), "Field:");
    EXPECT_EQ(textOf(window, "lblHINAME"), "Index:");
    EXPECT_EQ(textOf(window, "cmdCancel"), "&Begin");
    EXPECT_EQ(textOf(window, "cmdExit"), "E&xit");
    EXPECT_TRUE(isEnabled(window, "cmdCancel"));
    EXPECT_TRUE(isEnabled(window, "cmdExit"));
    keepPicture(window, "refresh-ready");
}

TEST_F(RefreshWindow, FinishesByClicks) {
    show();
    click(window, "cmdCancel");
    EXPECT_EQ(textOf(window, "lblDBNAME"), "Finished");
    EXPECT_EQ(textOf(window, "lblDBDESC"), "Database Definitions Have Been Refreshed.");
    for (const char* label : {"lblTNAME", "lblFNAME", "lblINAME"})
        EXPECT_EQ(textOf(window, label), " ");
    EXPECT_FALSE(isEnabled(window, "cmdCancel"));
    EXPECT_TRUE(isEnabled(window, "cmdExit"));
    EXPECT_EQ(focused(window), "cmdExit");
    keepPicture(window, "refresh-finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_EQ(table("NEWINDEXES").size(), 3U);
    EXPECT_EQ(table("MODULES").size(), 1U);
    EXPECT_EQ(table("USERACCESSITEMS").size(), 1U);
    EXPECT_THAT(world.host.boxes, IsEmpty());
    click(window, "cmdExit");
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(RefreshWindow, FinishesByKeys) {
    show();
    press(window, Qt::Key_B, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return textOf(window, "lblDBNAME") == "Finished"; }));
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    press(window, Qt::Key_X, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
}

TEST_F(RefreshWindow, ShowsTheDatabaseInWork) {
    show();
    std::vector<std::string> seen;
    world.host.onYield = [&] {
        seen.push_back(textOf(window, "lblDBNAME") + "|" + textOf(window, "lblDBDESC") + "|" +
                       textOf(window, "lblTNAME") + "|" + textOf(window, "lblFNAME") + "|" +
                       textOf(window, "lblINAME"));
        EXPECT_EQ(textOf(window, "cmdCancel"), "&Cancel");
        EXPECT_TRUE(isEnabled(window, "cmdCancel"));
        EXPECT_FALSE(isEnabled(window, "cmdExit"));
        keepPicture(window, "refresh-running");
    };
    click(window, "cmdCancel");
    EXPECT_THAT(seen, ElementsAre("FIRST|Jobs of the FIRST kind|Jobs|Id|ById",
                                  "SECOND|Jobs of the SECOND kind|Jobs|Id|ById",
                                  "THIRD|Jobs of the THIRD kind|Jobs|Id|ById"));
}

TEST_F(RefreshWindow, CancelledBehindTheSecondDatabaseKeepsTwoAndStillCopiesTheLists) {
    show();
    atYield(2, [&] {
        click(window, "cmdCancel");
        EXPECT_FALSE(isEnabled(window, "cmdCancel"));
        EXPECT_TRUE(isEnabled(window, "cmdExit"));
    });
    click(window, "cmdCancel");
    EXPECT_EQ(textOf(window, "lblDBNAME"), "Process Canceled");
    EXPECT_EQ(textOf(window, "lblDBDESC"), "Database Definitions ARE INCOMPLETE.");
    keepPicture(window, "refresh-cancelled");
    EXPECT_EQ(table("NEWDEF").size(), 2U);
    EXPECT_EQ(table("MODULES").size(), 1U);
    EXPECT_EQ(table("USERACCESSITEMS").size(), 1U);
    EXPECT_FALSE(isEnabled(window, "cmdCancel"));
    EXPECT_TRUE(isEnabled(window, "cmdExit"));
}

TEST_F(RefreshWindow, AMissingReferenceHasItsBoxAndTheWalkGoesOn) {
    list({"AWAY"});
    show();
    click(window, "cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Cannot Locate Target");
    EXPECT_EQ(world.host.boxes[0].text, "Cannot Locate Target Database: C:\\REF\\AWAY.MDB");
    EXPECT_EQ(textOf(window, "lblDBNAME"), "Finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
}

TEST_F(RefreshWindow, CannotBeClosedWhileItRuns) {
    show();
    atYield(1, [&] { EXPECT_FALSE(window.close()); });
    click(window, "cmdCancel");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(textOf(window, "lblDBNAME"), "Finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(RefreshWindow, LeftAfterACancelGoesWhenTheRefreshHasReturned) {
    show();
    bool stillThere = false;
    atYield(1, [&] {
        click(window, "cmdCancel");
        click(window, "cmdExit");
        window.close();
        stillThere = window.isVisible();
    });
    click(window, "cmdCancel");
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(window.isLoaded());
    EXPECT_EQ(table("NEWDEF").size(), 1U);
    EXPECT_EQ(table("MODULES").size(), 1U);
}

// The copies of the network's lists are emptied in the file of the network's location.
TEST_F(RefreshWindow, TakesTheNetworksLocationFromItsOwner) {
    NetLocation = "C:\\ELSEWHERE";
    show();
    click(window, "cmdCancel");
    EXPECT_THAT(world.host.texts(),
                ElementsAre("Cannot Obtain Exclusive use of the Table: MODULES\nCannot Empty Table.",
                            "Cannot Refresh Network Modules List"));
    EXPECT_EQ(textOf(window, "lblDBNAME"), "Finished");
    EXPECT_TRUE(isEnabled(window, "cmdExit"));
}

TEST_F(RefreshWindow, AnErrorLeavesAWindowThatCanOnlyBeLeft) {
    world.folder.write("ZOVDEF.MDB", "not a database by a long way, whatever its name says");
    show();
    click(window, "cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_THAT(
        world.host.boxes[0].text,
        testing::StartsWith("Error Encountered In Form: frmDBURefresh\nError: 3343 RefreshDefinitions\n"));
    EXPECT_FALSE(isEnabled(window, "cmdCancel"));
    EXPECT_TRUE(isEnabled(window, "cmdExit"));
    click(window, "cmdExit");
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace tol::test
