// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBUPrint.h"

#include "Person.h"
#include "data/DBEngine.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "update_support/UpdateWorld.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tol::test {
namespace {

using testing::Contains;
using testing::StartsWith;

class PrintWindow : public testing::Test {
  protected:
    static void addLog(int rows) {
        Json log = Json::array();
        for (int row = 1; row <= rows; ++row)
            log.push_back(Json::array({"NORTH", "JOBS", "T" + std::to_string(row), " ", " ",
                                       "Added New Table.", "01/31/2003", "4:05:00 PM"}));
        UpdateWorld::addRowsOf("ACTIVITYLOG", log);
    }
    void show() {
        window.showModeless();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    std::vector<std::string> texts(int page) {
        std::vector<std::string> all;
        for (const search_print::Primitive& each : window.printer().document().pages.at(page - 1).primitives)
            if (const auto* text = std::get_if<search_print::Text>(&each))
                all.push_back(text->text.trimmed().toStdString());
        return all;
    }

    UpdateWorld world;
    update::frmDBUPrint window;
    Person person{window};
};

TEST_F(PrintWindow, WaitsForTheWordToBegin) {
    addLog(3);
    show();
    EXPECT_EQ(window.windowTitle(), "Print Database Definition Update Activity Log");
    EXPECT_EQ(person.text("cmdBegin"), "&Begin");
    EXPECT_EQ(person.text("CmdExit"), "E&xit");
    EXPECT_EQ(person.text("lblProcess"), "");
    EXPECT_EQ(window.printer().PageCount(), 0);
    EXPECT_EQ(person.focus(), "cmdBegin");
    person.keepPicture("print-ready");
}

TEST_F(PrintWindow, TheKeyBegins) {
    addLog(3);
    show();
    person.press(Qt::Key_P);
    EXPECT_EQ(window.printer().PageCount(), 1);
    EXPECT_EQ(person.text("lblProcess"), "Report Finished, Press 'P' to Print");
    EXPECT_EQ(person.text("cmdBegin"), "&Max View");
    EXPECT_THAT(texts(1), Contains("Database Definition Update Utility - Activity Log"));
    EXPECT_THAT(texts(1), Contains("Date: 01/31/2003"));
    EXPECT_THAT(texts(1), Contains("T3"));
    person.keepPicture("print-finished");
}

TEST_F(PrintWindow, OnceItIsDoneTheKeyPrints) {
    addLog(3);
    show();
    person.click("cmdBegin");
    int printed = 0;
    window.printer().onPrint = [&](bool dialog) {
        EXPECT_TRUE(dialog);
        ++printed;
    };
    person.press(Qt::Key_P);
    EXPECT_EQ(printed, 1);
    EXPECT_EQ(window.printer().PageCount(), 1);
}

TEST_F(PrintWindow, AnEmptyLogIsOnePageThatSaysSo) {
    show();
    person.click("cmdBegin");
    EXPECT_EQ(window.printer().PageCount(), 1);
    EXPECT_THAT(texts(1), Contains("Activity Log is Empty."));
    EXPECT_THAT(texts(1), Contains("Job Site"));
    EXPECT_EQ(person.text("lblProcess"), "Report Finished, Press 'P' to Print");
}

TEST_F(PrintWindow, TellsThePageInWork) {
    addLog(120);
    show();
    std::set<std::string> seen;
    world.host.onYield = [&] {
        seen.insert(person.text("lblProcess"));
        EXPECT_EQ(person.text("cmdBegin"), "&Cancel");
    };
    person.click("cmdBegin");
    EXPECT_THAT(seen, testing::ElementsAre("Printing Page: 1", "Printing Page: 2", "Printing Page: 3"));
    EXPECT_EQ(window.printer().PageCount(), 3);
    EXPECT_THAT(texts(3), Contains("T120"));
    person.press(Qt::Key_End);
    EXPECT_EQ(window.printer().PreviewPage(), 3);
}

TEST_F(PrintWindow, CanBeStoppedInTheMiddle) {
    addLog(120);
    show();
    world.host.onYield = [&] {
        if (world.host.yields == 60)
            person.click("cmdBegin");
    };
    person.click("cmdBegin");
    EXPECT_EQ(person.text("lblProcess"), "Report STOPPED BY USER (INCOMPLETE)");
    EXPECT_LT(window.printer().PageCount(), 3);
}

TEST_F(PrintWindow, LeftInTheMiddleItGoesAtTheNextRow) {
    addLog(120);
    show();
    world.host.onYield = [&] {
        if (world.host.yields == 60)
            person.click("CmdExit");
    };
    person.click("cmdBegin");
    EXPECT_EQ(world.host.yields, 60);
    EXPECT_FALSE(window.isLoaded());
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    data::Recordset log = definitions.OpenRecordset("ACTIVITYLOG");
    EXPECT_TRUE(shell::vdEmptyTable(" ", "ZOVDEF.MDB", log)) << "the log is let go";
}

TEST_F(PrintWindow, LeftByEsc) {
    show();
    person.press(Qt::Key_Escape);
    EXPECT_FALSE(window.isLoaded());
}

/// Shows the window, which tells that error and is then left.
class PrintWindowWithoutLog : public PrintWindow {
  protected:
    void expectExitOnly(const std::string& error) {
        show();
        ASSERT_EQ(world.host.boxes.size(), 1U);
        EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
        EXPECT_THAT(world.host.boxes[0].text,
                    StartsWith("Error Encountered In Form: frmDBUPrint\nError: " + error + " Load\n"));
        EXPECT_FALSE(person.isEnabled("cmdBegin"));
        EXPECT_EQ(person.focus(), "CmdExit");
        person.press(Qt::Key_P);
        person.click("CmdExit");
        EXPECT_FALSE(window.isLoaded());
        EXPECT_EQ(world.host.boxes.size(), 1U);
    }
};

TEST_F(PrintWindowWithoutLog, ItIsDamaged) {
    world.folder.write("ZOVDEF.MDB", "torn to pieces, every single page of it");
    expectExitOnly("3343");
}

TEST_F(PrintWindowWithoutLog, ItIsMissing) {
    std::filesystem::remove(world.folder / "ZOVDEF.MDB");
    expectExitOnly("3024");
    EXPECT_FALSE(std::filesystem::exists(world.folder / "ZOVDEF.MDB"));
}

} // namespace
} // namespace tol::test
