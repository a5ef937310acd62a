// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBURefresh.h"

#include "Person.h"
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
    Person person{window};
};

TEST_F(RefreshWindow, IsReadyWhenItOpens) {
    show();
    EXPECT_EQ(window.windowTitle(), "Refresh Database Definitions");
    EXPECT_EQ(person.text("lblHDBNAME"), "Now Processing Database:");
    EXPECT_EQ(person.text("lblHDBDESC"), "Database Description:");
    EXPECT_EQ(person.text("lblHTNAME"), "Table:");
    EXPECT_EQ(person.text("lblHFNAME"), "Field:");
    EXPECT_EQ(person.text("lblHINAME"), "Index:");
    EXPECT_EQ(person.text("cmdCancel"), "&Begin");
    EXPECT_EQ(person.text("cmdExit"), "E&xit");
    EXPECT_TRUE(person.isEnabled("cmdCancel"));
    EXPECT_TRUE(person.isEnabled("cmdExit"));
    person.keepPicture("refresh-ready");
}

TEST_F(RefreshWindow, FinishesByClicks) {
    show();
    person.click("cmdCancel");
    EXPECT_EQ(person.text("lblDBNAME"), "Finished");
    EXPECT_EQ(person.text("lblDBDESC"), "Database Definitions Have Been Refreshed.");
    for (const char* label : {"lblTNAME", "lblFNAME", "lblINAME"})
        EXPECT_EQ(person.text(label), " ");
    EXPECT_FALSE(person.isEnabled("cmdCancel"));
    EXPECT_TRUE(person.isEnabled("cmdExit"));
    EXPECT_EQ(person.focus(), "cmdExit");
    person.keepPicture("refresh-finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_EQ(table("NEWINDEXES").size(), 3U);
    EXPECT_EQ(table("MODULES").size(), 1U);
    EXPECT_EQ(table("USERACCESSITEMS").size(), 1U);
    EXPECT_THAT(world.host.boxes, IsEmpty());
    person.click("cmdExit");
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(RefreshWindow, FinishesByKeys) {
    show();
    person.press(Qt::Key_B, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return person.text("lblDBNAME") == "Finished"; }));
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    person.press(Qt::Key_X, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
}

TEST_F(RefreshWindow, ShowsTheDatabaseInWork) {
    show();
    std::vector<std::string> seen;
    world.host.onYield = [&] {
        seen.push_back(person.text("lblDBNAME") + "|" + person.text("lblDBDESC") + "|" +
                       person.text("lblTNAME") + "|" + person.text("lblFNAME") + "|" +
                       person.text("lblINAME"));
        EXPECT_EQ(person.text("cmdCancel"), "&Cancel");
        EXPECT_TRUE(person.isEnabled("cmdCancel"));
        EXPECT_FALSE(person.isEnabled("cmdExit"));
        person.keepPicture("refresh-running");
    };
    person.click("cmdCancel");
    EXPECT_THAT(seen, ElementsAre("FIRST|Jobs of the FIRST kind|Jobs|Id|ById",
                                  "SECOND|Jobs of the SECOND kind|Jobs|Id|ById",
                                  "THIRD|Jobs of the THIRD kind|Jobs|Id|ById"));
}

TEST_F(RefreshWindow, CancelledBehindTheSecondDatabaseKeepsTwoAndStillCopiesTheLists) {
    show();
    atYield(2, [&] {
        person.click("cmdCancel");
        EXPECT_FALSE(person.isEnabled("cmdCancel"));
        EXPECT_TRUE(person.isEnabled("cmdExit"));
    });
    person.click("cmdCancel");
    EXPECT_EQ(person.text("lblDBNAME"), "Process Canceled");
    EXPECT_EQ(person.text("lblDBDESC"), "Database Definitions ARE INCOMPLETE.");
    person.keepPicture("refresh-cancelled");
    EXPECT_EQ(table("NEWDEF").size(), 2U);
    EXPECT_EQ(table("MODULES").size(), 1U);
    EXPECT_EQ(table("USERACCESSITEMS").size(), 1U);
    EXPECT_FALSE(person.isEnabled("cmdCancel"));
    EXPECT_TRUE(person.isEnabled("cmdExit"));
}

TEST_F(RefreshWindow, AMissingReferenceHasItsBoxAndTheWalkGoesOn) {
    list({"AWAY"});
    show();
    person.click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Cannot Locate Target");
    EXPECT_EQ(world.host.boxes[0].text, "Cannot Locate Target Database: C:\\REF\\AWAY.MDB");
    EXPECT_EQ(person.text("lblDBNAME"), "Finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
}

// The second of the reference databases can't be read, so that the definition holds the first alone.
TEST_F(RefreshWindow, SaysThatARefreshBrokenOffByAnErrorIsIncomplete) {
    world.folder.write("drives/c/REF/SECOND.MDB", "not a database by a long way, whatever its name says");
    show();
    person.click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(table("NEWDEF").size(), 1U);
    EXPECT_EQ(person.text("lblDBDESC"), "Database Definitions ARE INCOMPLETE.");
}

TEST_F(RefreshWindow, CannotBeClosedWhileItRuns) {
    show();
    atYield(1, [&] { EXPECT_FALSE(window.close()); });
    person.click("cmdCancel");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(person.text("lblDBNAME"), "Finished");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(RefreshWindow, LeftAfterACancelGoesWhenTheRefreshHasReturned) {
    show();
    bool stillThere = false;
    atYield(1, [&] {
        person.click("cmdCancel");
        person.click("cmdExit");
        window.close();
        stillThere = window.isVisible();
    });
    person.click("cmdCancel");
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
    person.click("cmdCancel");
    EXPECT_THAT(world.host.texts(),
                ElementsAre("Cannot Obtain Exclusive use of the Table: MODULES\nCannot Empty Table.",
                            "Cannot Refresh Network Modules List"));
    EXPECT_EQ(person.text("lblDBNAME"), "Finished");
    EXPECT_TRUE(person.isEnabled("cmdExit"));
}

TEST_F(RefreshWindow, AnErrorLeavesAWindowThatCanOnlyBeLeft) {
    world.folder.write("ZOVDEF.MDB", "not a database by a long way, whatever its name says");
    show();
    person.click("cmdCancel");
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_THAT(
        world.host.boxes[0].text,
        testing::StartsWith("Error Encountered In Form: frmDBURefresh\nError: 3343 RefreshDefinitions\n"));
    EXPECT_FALSE(person.isEnabled("cmdCancel"));
    EXPECT_TRUE(person.isEnabled("cmdExit"));
    person.click("cmdExit");
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace tol::test
