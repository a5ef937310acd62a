// SPDX-License-Identifier: MIT
#include "rights/frmTOLUTL01.h"

#include "forms/events/WindowHost.h"
#include "forms/windows/LoadedForms.h"
#include "support/BoxAnswerer.h"
#include "support/DeliveredLists.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"
#include "support/WindowDriver.h"

#include <fmt/ranges.h>
#include <gmock/gmock.h>

#include <sqlite3.h>

#include <QAbstractButton>

#include <cstdlib>
#include <filesystem>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UpdateItems : public testing::Test {
  protected:
    UpdateItems() {
        delivered.modules.add({{"PAY", "Payroll"}});
        delivered.items.add({{17, "PAY", "RUN", "Run it", "FRMRUN"}});
        net.modules.add({{"OLD", "Gone"}});
        net.accessItems.add({{90, "OLD", "HAND", "By hand", ""}});
    }
    void expectBox(const char* title, const char* text, QMessageBox::Icon icon) const {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, title);
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].icon, icon);
        EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    }
    void expectFinished() const {
        expectBox("Finished", "List of User Access Items Updated.", QMessageBox::Information);
    }

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    NetworkTables net;
    DeliveredLists delivered;
    rights::frmTOLUTL01 window{""};
    WindowDriver desk{window};
};

TEST_F(UpdateItems, TellsWhatItDoes) {
    window.showModeless();
    EXPECT_EQ(window.windowTitle(), "Update User Access Items List");
    EXPECT_EQ(desk.text("lblNotice"), "   This utility will update the list of User Access Items in\n"
                                      "the Tolvane Database.  Before running this\n"
                                      "utility make sure you have the latest version of the Database\n"
                                      "Definition Update file: ZOVDEF.mdb placed in the same folder as\n"
                                      "the application file, TOL.exe.\n");
    EXPECT_TRUE(QFontInfo(desk.control("lblNotice").font()).fixedPitch());
    EXPECT_EQ(desk.text("cmdBegin"), "&Begin");
    EXPECT_EQ(desk.text("cmdExit"), "E&xit");
    const QSize label = desk.control("lblNotice").size();
    EXPECT_TRUE(desk.control("lblNotice").sizeHint().boundedTo(label) == desk.control("lblNotice").sizeHint())
        << "the notice fits";
    desk.keepPicture("update-items");
}

TEST_F(UpdateItems, BeginReplacesTheList) {
    window.showModeless();
    std::string whileTold;
    person.onBox = [&](QMessageBox& box) {
        whileTold = desk.text("cmdExit");
        box.close();
    };
    desk.click("cmdBegin");
    expectFinished();
    EXPECT_EQ(whileTold, "&Cancel");
    EXPECT_EQ(desk.text("cmdExit"), "E&xit");
    EXPECT_THAT(net.modules.rows(), ElementsAre("PAY|Payroll"));
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("17|PAY|RUN|Run it|FRMRUN"));
    EXPECT_TRUE(window.isLoaded());
}

TEST_F(UpdateItems, BeginCanBePressedAgain) {
    window.showModeless();
    desk.press(Qt::Key_B, Qt::AltModifier);
    person.boxes.clear();
    delivered.items.add({{18, "PAY", "STOP", "Stop it", ""}});
    desk.press(Qt::Key_Return);
    expectFinished();
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("17|PAY|RUN|Run it|FRMRUN", "18|PAY|STOP|Stop it|"));
}

TEST_F(UpdateItems, AnEmptyDeliveryIsFinishedToo) {
    delivered.items.remove("UAITAG", 17);
    window.showModeless();
    desk.click("cmdBegin");
    expectFinished();
    EXPECT_THAT(net.accessItems.rows(), IsEmpty());
}

TEST_F(UpdateItems, ExitEscAndTheFrameCloseIt) {
    window.showModeless();
    desk.click("cmdExit");
    EXPECT_FALSE(window.isLoaded());
    window.showModeless();
    desk.press(Qt::Key_Escape);
    EXPECT_FALSE(window.isLoaded());
    window.showModeless();
    window.close();
    EXPECT_FALSE(window.isLoaded());
    EXPECT_THAT(net.modules.rows(), ElementsAre("OLD|Gone"));
}

// The copy gives nobody time to press Cancel, so a trigger of the table presses it.

QAbstractButton* pressedByTrigger = nullptr;

int addPress(sqlite3* database, char**, const sqlite3_api_routines*) {
    const auto press = [](sqlite3_context*, int, sqlite3_value**) { pressedByTrigger->click(); };
    return sqlite3_create_function(database, "press_cancel", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, nullptr,
                                   press, nullptr, nullptr);
}

void makeTrigger() {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(NetworkTables::file, &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database,
                           "CREATE TRIGGER CANCELS AFTER DELETE ON MODULES BEGIN SELECT press_cancel(); END",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
}

TEST_F(UpdateItems, ACancelMeanwhileIsToldWhenAllIsDone) {
    makeTrigger();
    window.showModeless();
    pressedByTrigger = &desk.control<QAbstractButton>("cmdExit");
    const auto entry = reinterpret_cast<void (*)()>(addPress); // NOLINT: as the library wants it
    sqlite3_auto_extension(entry);
    desk.click("cmdBegin");
    sqlite3_cancel_auto_extension(entry);
    expectBox("Process Incomplete",
              "Process has been interrupted. \nNot all User Access Items were Transfered.",
              QMessageBox::Critical);
    EXPECT_EQ(desk.text("cmdExit"), "E&xit");
    EXPECT_TRUE(window.isLoaded());
    desk.click("cmdExit");
    EXPECT_FALSE(window.isLoaded()) << "it is an exit again";
}

// Errors are not trapped: the program shows them and ends.

class UpdateItemsDeathTest : public UpdateItems {
  protected:
    /// Presses Begin; the box, and the modules there are, go to the standard error.
    void begin() {
        window.showModeless();
        person.onBox = [this](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}]{}", box.windowTitle().toStdString(), box.text().toStdString(),
                       fmt::join(net.modules.rows(), " "));
            box.close();
        };
        desk.click("cmdBegin");
        fmt::print(stderr, "still running");
    }
};

TEST_F(UpdateItemsDeathTest, AMissingDeliveryEndsTheProgramBeforeAnythingIsDeleted) {
    const auto run = [this] {
        folder.remove("ZOVDEF.MDB");
        begin();
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_FAILURE),
                R"(^\[Tolvane Module\|Run-time error '3024':[^]]*ZOVDEF.MDB[^]]*\]OLD\|Gone)");
}

TEST_F(UpdateItemsDeathTest, AnItemThatDoesNotFitEndsTheProgram) {
    const auto run = [this] {
        delivered.items.add({{18, "PAY", "TOOLONG9", "Long", ""}, {19, "PAY", "TOOLONG99", "Longer", ""}});
        begin();
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_FAILURE),
                R"(^\[Tolvane Module\|Run-time error '3163':[^]]*\]PAY\|Payroll)");
}

} // namespace
} // namespace tol::test
