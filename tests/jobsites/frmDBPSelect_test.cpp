// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPSelect.h"

#include "data/OpenTable.h"
#include "forms/controls/ListBox.h"
#include "forms/events/ErrorGuard.h"
#include "forms/events/WindowHost.h"
#include "support/BoxAnswerer.h"
#include "support/OnModal.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <QPushButton>
#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::int32_t current = 9; // the Job Site whose settings are in force

class SelectSite : public testing::Test {
  protected:
    /// Shows the window while a person acts on it; the number of the site that was chosen, 0 for none.
    std::int32_t choose(const std::function<void(const WindowDriver&)>& acts) {
        jobsites::frmDBPSelect window(current);
        const OnModal modal("frmDBPSelect", [&](const WindowDriver& desk) {
            EXPECT_EQ(window.windowTitle(), "Job Sites");
            acts(desk);
        });
        window.showModal(nullptr);
        EXPECT_FALSE(window.isLoaded());
        succeeded = window.succeeded();
        chosenFolder = window.chosen().folder;
        return window.chosen().tag;
    }
    void addThree() const {
        sites.add({{1, "NORTH", "C:\\NORTH"}, {2, "EAST", "C:\\EAST"}, {3, "SOUTH", "C:\\SOUTH"}});
    }
    static forms::ListBox& lines(const WindowDriver& desk) {
        return desk.control<forms::ListBox>("lstPATHNAME");
    }
    static void clickLine(const WindowDriver& desk, int line) {
        forms::ListBox& list = lines(desk);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(line)).center());
    }
    void expectInvalid() {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Invalid Selection");
        EXPECT_EQ(person.boxes[0].text, "Invalid Job Site Selected");
        EXPECT_EQ(person.boxes[0].icon, QMessageBox::Critical);
        person.boxes.clear();
    }

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    TestTable sites{
        "DBPATHS.MDB",
        "DBPATHS",
        {{"DBTAG", data::dbLong}, {"PATHNAME", data::dbText, 16}, {"PathText", data::dbText, 100}},
        {{"DBPATHS", {"PATHNAME", "PathText"}}}};
    TestTable settings{R"(C:\ZOVUSER\ZOVUSER.MDB)", "SETTINGS", {{"PRINTER", data::dbText, 20}}};
    TestTable ofSites{R"(C:\ZOVUSER\ZOVUSER.MDB)",
                      "DBSETTINGS",
                      {{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}},
                      {{"DBSETTINGS", {"DBTAG"}}}};
    bool succeeded = false;
    std::string chosenFolder;
};

TEST_F(SelectSite, ListsTheSitesInOrder) {
    addThree();
    EXPECT_EQ(choose([&](const WindowDriver& desk) {
                  std::vector<std::string> shown;
                  for (int i = 0; i < lines(desk).ListCount(); ++i)
                      shown.push_back(lines(desk).List(i));
                  EXPECT_THAT(shown, ElementsAre("EAST", "NORTH", "SOUTH"));
                  EXPECT_EQ(lines(desk).toolTip(), "Double Click on Desired Database for Quick Select");
                  EXPECT_EQ(desk.text("cmdSelect"), "&Select");
                  EXPECT_EQ(desk.text("cmdCancel"), "&Cancel");
                  desk.keepPicture("select-job-site");
                  desk.click("cmdCancel");
              }),
              0);
    EXPECT_FALSE(succeeded);
    EXPECT_THAT(ofSites.rows(), IsEmpty());
}

TEST_F(SelectSite, AClickChangesTheSettings) {
    addThree();
    settings.add({{"Office"}});
    ofSites.add({{1, "Trailer"}});
    EXPECT_EQ(choose([&](const WindowDriver& desk) { clickLine(desk, 1); }), 1);
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(chosenFolder, "C:\\NORTH");
    EXPECT_THAT(settings.rows(), ElementsAre("Trailer"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1|Trailer", "9|Office"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(SelectSite, KeysDoSoWithEnterOrTheButton) {
    addThree();
    settings.add({{"Office"}});
    EXPECT_EQ(choose([&](const WindowDriver& desk) {
                  desk.press(Qt::Key_Down);
                  desk.press(Qt::Key_Down);
                  desk.press(Qt::Key_Down);
                  EXPECT_TRUE(desk.isShown("lstPATHNAME"));
                  desk.press(Qt::Key_Return);
              }),
              3);
    EXPECT_EQ(choose([&](const WindowDriver& desk) {
                  desk.press(Qt::Key_N);
                  desk.press(Qt::Key_S, Qt::AltModifier);
              }),
              1);
    EXPECT_EQ(choose([](const WindowDriver& desk) { desk.press(Qt::Key_Escape); }), 0);
}

TEST_F(SelectSite, TheFirstInOrderOfTwoWithOneNameWins) {
    sites.add({{1, "NORTH", "C:\\Z"}, {2, "North ", "C:\\B"}, {3, "NORTH", "C:\\A"}});
    settings.add({{"Office"}});
    EXPECT_EQ(choose([&](const WindowDriver& desk) { clickLine(desk, 2); }), 3);
}

TEST_F(SelectSite, NothingIsChosenFromAnEmptyList) {
    choose([&](const WindowDriver& desk) {
        desk.click("cmdSelect");
        expectInvalid();
        desk.press(Qt::Key_Return); // in the list
        EXPECT_TRUE(desk.isShown("cmdSelect"));
    });
    EXPECT_THAT(ofSites.rows(), IsEmpty());
}

TEST_F(SelectSite, ASiteWithoutNameOrOneThatIsGoneIsInvalid) {
    sites.add({{1, "  ", "C:\\NORTH"}, {2, "EAST", "C:\\EAST"}});
    settings.add({{"Office"}});
    EXPECT_EQ(choose([&](const WindowDriver& desk) {
                  clickLine(desk, 0);
                  expectInvalid();
                  sites.remove("DBTAG", 2);
                  clickLine(desk, 1);
                  expectInvalid();
              }),
              0);
    EXPECT_THAT(settings.rows(), ElementsAre("Office"));
    EXPECT_THAT(ofSites.rows(), IsEmpty());
}

TEST_F(SelectSite, FailuresAreToldAndTheWindowCloses) {
    addThree();
    EXPECT_EQ(choose([&](const WindowDriver& desk) { clickLine(desk, 0); }), 2);
    EXPECT_FALSE(succeeded);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error");
    EXPECT_EQ(person.boxes[0].text, "Could not Save User Settings for Job Site");
}

TEST_F(SelectSite, LetsGoOfItsTable) {
    choose([](const WindowDriver&) {});
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    workspace.OpenDatabase("DBPATHS.MDB").TableDefs().Delete("DBPATHS");
}

class SelectSiteDeathTest : public SelectSite {};

TEST_F(SelectSiteDeathTest, AMissingListEndsTheProgram) {
    const auto run = [this] {
        person.onBox = [](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}]", box.windowTitle().toStdString(), box.text().toStdString());
            box.close();
        };
        folder.remove("DBPATHS.MDB");
        forms::guarded([] { jobsites::frmDBPSelect(current).showModal(nullptr); });
        fmt::print(stderr, "still running");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), R"(^\[Tolvane Module\|Run-time error '3024':)");
}

} // namespace
} // namespace tol::test
