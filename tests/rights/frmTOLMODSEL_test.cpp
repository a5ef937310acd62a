// SPDX-License-Identifier: MIT
#include "rights/frmTOLMODSEL.h"

#include "data/DBEngine.h"
#include "forms/controls/ListBox.h"
#include "forms/events/WindowHost.h"
#include "support/BoxAnswerer.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"
#include "support/WindowDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

#include <functional>
#include <optional>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectModule : public testing::Test {
  protected:
    static TestTable modulesTable() {
        return {"ZOVNET.MDB",
                "MODULES",
                {{"MODULEID", data::dbText, 3}, {"MODULENAME", data::dbText, 50}},
                {{"MODULES", {"MODULEID"}, true}}};
    }
    void addThree() { modules.add({{"PAY", "Payroll"}, {"ACC", "Accounts"}, {"JOB", "Job Costs"}}); }

    /// Shows the window while the person acts; the module that was chosen.
    std::string choose(const std::function<void()>& acts) {
        window.emplace("");
        desk.emplace(*window);
        QTimer untilShown;
        QObject::connect(&untilShown, &QTimer::timeout, [&] {
            if (!window->isActiveWindow())
                return;
            untilShown.stop();
            acts();
        });
        untilShown.start(1);
        window->showModal(nullptr);
        EXPECT_FALSE(untilShown.isActive());
        EXPECT_FALSE(window->isLoaded());
        return window->chosenModule();
    }

    [[nodiscard]] forms::ListBox& lines() const { return desk->control<forms::ListBox>("lstMODULEID"); }
    [[nodiscard]] std::vector<std::string> allLines() const {
        std::vector<std::string> all;
        all.reserve(static_cast<std::size_t>(lines().ListCount()));
        for (int line = 0; line < lines().ListCount(); ++line)
            all.push_back(lines().List(line));
        return all;
    }
    void cancel() { desk->click("cmdCancel"); }
    void expectBox(const std::string& title, const std::string& text) const {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, title);
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].icon, QMessageBox::Critical);
        EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    }

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    TestTable modules = modulesTable();
    TestTable settings{"ZOVNET.MDB", "NETSETTINGS", {{"MODULEID", data::dbText, 3}}};
    std::optional<rights::frmTOLMODSEL> window;
    std::optional<WindowDriver> desk;
};

TEST_F(SelectModule, ListsTheModulesInOrderOfTheirCodes) {
    addThree();
    choose([&] {
        EXPECT_EQ(window->windowTitle(), "Select a Module");
        EXPECT_EQ(desk->text("lblInstruction"), "Click Desired Module. Next,  click Select.");
        EXPECT_EQ(desk->text("cmdSelect"), "&Select");
        EXPECT_EQ(desk->text("cmdCancel"), "&Cancel");
        EXPECT_THAT(allLines(), ElementsAre("ACC   Accounts", "JOB   Job Costs", "PAY   Payroll"));
        EXPECT_EQ(desk->focus(), "lstMODULEID");
        desk->keepPicture("select-module");
        cancel();
    });
}

TEST_F(SelectModule, ComesUpOnTheFirstLineAndRemembersThatNoModuleWasChosen) {
    addThree();
    choose([&] {
        EXPECT_EQ(lines().ListIndex(), 0);
        cancel();
    });
    EXPECT_THAT(settings.rows(), ElementsAre("   "));
    choose([&] { cancel(); });
    EXPECT_THAT(settings.rows(), ElementsAre("   "));
}

TEST_F(SelectModule, ComesUpOnTheModuleThatWasChosenLast) {
    addThree();
    settings.add({{"JOB"}});
    choose([&] {
        EXPECT_EQ(lines().Text(), "JOB   Job Costs");
        cancel();
    });
    EXPECT_THAT(settings.rows(), ElementsAre("JOB")); // choosing here changes nothing
}

TEST_F(SelectModule, TakesTheLineByTheButton) {
    addThree();
    EXPECT_EQ(choose([&] {
                  lines().ListIndex(2);
                  desk->click("cmdSelect");
              }),
              "PAY");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(SelectModule, TakesTheLineByKeysAlone) {
    addThree();
    EXPECT_EQ(choose([&] {
                  desk->press(Qt::Key_Down);
                  desk->press(Qt::Key_Return);
              }),
              "JOB");
    EXPECT_EQ(choose([&] { desk->press(Qt::Key_S, Qt::AltModifier); }), "ACC");
}

TEST_F(SelectModule, GivesABlankWhenItIsCancelled) {
    addThree();
    EXPECT_EQ(choose([&] { desk->click("cmdCancel"); }), " ");
    EXPECT_EQ(choose([&] { desk->press(Qt::Key_Escape); }), " ");
    EXPECT_EQ(choose([&] { window->close(); }), " ");
}

TEST_F(SelectModule, RefusesWhenNoLineIsSelected) {
    addThree();
    settings.add({{"XYZ"}}); // deleted since
    EXPECT_EQ(choose([&] {
                  EXPECT_EQ(lines().ListIndex(), -1);
                  desk->click("cmdSelect");
                  expectBox("Invalid Module", "Invalid Module Selected");
                  EXPECT_TRUE(window->isVisible());
                  desk->press(Qt::Key_Escape);
              }),
              " ");
}

TEST_F(SelectModule, RefusesAModuleWithoutCode) {
    modules.add({{"   ", "Nameless"}});
    choose([&] {
        EXPECT_EQ(lines().ListIndex(), 0);
        desk->press(Qt::Key_Return);
        expectBox("Invalid Module", "Invalid Module Selected");
        cancel();
    });
}

TEST_F(SelectModule, SaysThatThereAreNoModulesAndComesUpEmpty) {
    EXPECT_EQ(choose([&] {
                  expectBox("Table Empty ", "Module Table is Empty.\n\nAdd a Module First.");
                  EXPECT_EQ(window->chosenModule(), "0");
                  EXPECT_THAT(allLines(), IsEmpty());
                  person.boxes.clear();
                  desk->click("cmdSelect");
                  expectBox("Invalid Module", "Invalid Module Selected");
                  EXPECT_TRUE(window->isVisible());
                  cancel();
              }),
              " ");
}

TEST_F(SelectModule, LetsGoOfTheTablesWhenItCloses) {
    addThree();
    choose([&] { cancel(); });
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    data::Database database = workspace.OpenDatabase("ZOVNET.MDB");
    database.TableDefs().Delete("MODULES");
}

TEST_F(SelectModule, OnlyCancelIsLeftWhenTheDatabaseIsDamaged) {
    folder.write("ZOVNET.MDB", "no database");
    EXPECT_EQ(choose([&] {
                  ASSERT_EQ(person.boxes.size(), 1U);
                  EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
                  EXPECT_THAT(person.boxes[0].text,
                              testing::StartsWith("Error Loading Form: frmTOLMODSEL\n\nError Number: 3343"));
                  EXPECT_FALSE(desk->isShown("lstMODULEID"));
                  EXPECT_FALSE(desk->isShown("cmdSelect"));
                  EXPECT_TRUE(desk->isShown("cmdCancel"));
                  cancel();
              }),
              " ");
}

TEST_F(SelectModule, OnlyCancelIsLeftWhenTheDatabaseIsMissing) {
    std::filesystem::remove("ZOVNET.MDB");
    EXPECT_EQ(choose([&] {
                  ASSERT_EQ(person.boxes.size(), 2U);
                  EXPECT_EQ(person.boxes[0].title, "Cannot Access");
                  EXPECT_EQ(person.boxes[1].title, "Error Displaying Form");
                  EXPECT_THAT(person.boxes[1].text,
                              testing::StartsWith("Error Loading Form: frmTOLMODSEL\n\nError Number: 3024"));
                  for (const char* hidden : {"lstMODULEID", "cmdSelect", "lblInstruction"})
                      EXPECT_FALSE(desk->isShown(hidden)) << hidden;
                  EXPECT_EQ(desk->focus(), "cmdCancel");
                  cancel();
              }),
              " ");
    EXPECT_FALSE(std::filesystem::exists("ZOVNET.MDB"));
}

} // namespace
} // namespace tol::test
