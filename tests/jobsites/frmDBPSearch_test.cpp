// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPSearch.h"

#include "forms/controls/FolderControls.h"
#include "forms/events/WindowHost.h"
#include "runtime/Text.h"
#include "support/Beeps.h"
#include "support/BoxAnswerer.h"
#include "support/Environment.h"
#include "support/TempFolder.h"
#include "support/WindowDriver.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QTest>
#include <QTimer>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* oldPath = "C:\\OLD";

class LocationPicker : public testing::Test {
  protected:
    LocationPicker() {
        folder.write("here.mdb", "");
        folder.write("drives/c/Jobs/North/Main.MDB", "");
        folder.write("drives/c/Jobs/North/notes.txt", "");
        folder.write("drives/c/Zov/ZOVDEF.MDB", "");
        owner.resize(900, 700);
        owner.show();
    }

    /// Shows the picker, has a person do something, closes it if that has left it open, and tells its path.
    std::string pick(const std::function<void()>& act) {
        jobsites::frmDBPSearch shown;
        picker = &shown;
        shown.sPath = oldPath;
        QTimer::singleShot(0, &shown, [&] {
            desk = std::make_unique<WindowDriver>(shown);
            act();
            shown.close();
        });
        shown.showModal(&owner);
        return shown.sPath;
    }

    [[nodiscard]] forms::DriveList& drives() const { return desk->control<forms::DriveList>("Drive1"); }
    [[nodiscard]] forms::FolderList& folders() const { return desk->control<forms::FolderList>("Dir1"); }

    [[nodiscard]] static std::vector<std::string> lines(const forms::ListBox& list) {
        std::vector<std::string> result(static_cast<std::size_t>(list.ListCount()));
        for (int i = 0; i < list.ListCount(); ++i)
            result[static_cast<std::size_t>(i)] = list.List(i);
        return result;
    }
    [[nodiscard]] std::vector<std::string> files() const {
        return lines(desk->control<forms::FileList>("File1"));
    }
    [[nodiscard]] std::string location() const { return desk->text("lblPATHNAME"); }

    /// With the keyboard, as far as it takes.
    void chooseDrive(const std::string& drive) const {
        drives().setFocus();
        desk->press(Qt::Key_Home);
        for (int i = 0; i < drives().count() && drives().Drive() != drive; ++i)
            desk->press(Qt::Key_Down);
    }
    QPoint lineOf(const std::string& name) const {
        forms::FolderList& list = folders();
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.List(i) == name)
                return list.visualItemRect(list.item(i)).center();
        throw std::logic_error("no folder " + name);
    }
    void clickFolder(const std::string& name) const {
        QTest::mouseClick(folders().viewport(), Qt::LeftButton, {}, lineOf(name));
    }
    void openFolder(const std::string& name) const {
        clickFolder(name);
        QTest::mouseDClick(folders().viewport(), Qt::LeftButton, {}, lineOf(name));
    }

    Environment noDrives{"TOL_DRIVES", nullptr};
    TempFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    QWidget owner;
    jobsites::frmDBPSearch* picker = nullptr;
    std::unique_ptr<WindowDriver> desk;
};

TEST_F(LocationPicker, ComesUpModalInTheMiddleOfTheMainWindow) {
    pick([&] {
        EXPECT_EQ(picker->windowTitle(), "Select a Location");
        EXPECT_EQ(QApplication::activeModalWidget(), picker);
        EXPECT_LE((picker->geometry().center() - owner.frameGeometry().center()).manhattanLength(), 4);
    });
}

TEST_F(LocationPicker, ShowsTheCurrentFolderAtFirst) {
    pick([&] {
        EXPECT_EQ(location(), folder.path().string());
        EXPECT_EQ(folders().Path(), folder.path().string());
        EXPECT_EQ(drives().Drive(), "/");
        EXPECT_THAT(files(), ElementsAre("here.mdb"));
        EXPECT_EQ(desk->text("lblHint"), "Double Click on a File Folder to Select");
        EXPECT_EQ(desk->text("lblHPATHNAME"), "Location:");
    });
}

TEST_F(LocationPicker, EscKeepsThePathItCameWith) {
    EXPECT_EQ(pick([&] {
                  chooseDrive("C:");
                  desk->press(Qt::Key_Escape);
                  EXPECT_FALSE(picker->isLoaded());
              }),
              oldPath);
}

TEST_F(LocationPicker, CancelBlanksThePath) {
    EXPECT_EQ(pick([&] { desk->click("cmdCancel"); }), " ");
}

TEST_F(LocationPicker, TheCloseButtonLeavesTheCurrentFolder) {
    EXPECT_EQ(pick([] {}), folder.path().string());
}

TEST_F(LocationPicker, SelectTakesTheLocationInCapitals) {
    EXPECT_EQ(pick([&] {
                  chooseDrive("C:");
                  openFolder("Jobs");
                  openFolder("North");
                  EXPECT_EQ(location(), "C:\\Jobs\\North");
                  EXPECT_THAT(files(), ElementsAre("Main.MDB"));
                  desk->keepPicture("location");
                  desk->click("cmdSelect");
              }),
              "C:\\JOBS\\NORTH");
}

TEST_F(LocationPicker, AFolderThatIsGoneLeavesTheListAndBeeps) {
    pick([&] {
        chooseDrive("C:");
        std::filesystem::remove_all(folder.driveC() / "Jobs");
        takeBeeps();
        openFolder("Jobs");
        EXPECT_EQ(location(), "C:\\");
        EXPECT_EQ(takeBeeps(), 1);
    });
}

TEST_F(LocationPicker, SelectAtOnceTakesTheCurrentFolder) {
    EXPECT_EQ(pick([&] { desk->press(Qt::Key_S, Qt::AltModifier); }),
              runtime::upperCase(folder.path().string()));
}

TEST_F(LocationPicker, AnotherDriveShowsItsRoot) {
    pick([&] {
        chooseDrive("C:");
        EXPECT_EQ(location(), "C:\\");
        EXPECT_THAT(lines(folders()), ElementsAre("C:\\", "Jobs", "Zov"));
        EXPECT_THAT(files(), IsEmpty());
        chooseDrive("/");
        EXPECT_EQ(location(), "/");
    });
}

TEST_F(LocationPicker, EnterOpensAFolder) {
    pick([&] {
        chooseDrive("C:");
        folders().setFocus();
        desk->press(Qt::Key_Z);
        EXPECT_EQ(location(), "C:\\");
        desk->press(Qt::Key_Return);
        EXPECT_EQ(location(), "C:\\Zov");
        EXPECT_THAT(files(), ElementsAre("ZOVDEF.MDB"));
    });
}

TEST_F(LocationPicker, AClickOnAFolderLooksAtTheFilesAgain) {
    pick([&] {
        folder.write("new.mdb", "");
        EXPECT_THAT(files(), ElementsAre("here.mdb"));
        clickFolder("drives");
        EXPECT_EQ(location(), folder.path().string());
        EXPECT_THAT(files(), ElementsAre("here.mdb", "new.mdb"));
    });
}

TEST_F(LocationPicker, ADriveThatIsGoneLeadsBackToTheLastOne) {
    fs::create_directory_symlink(folder / "gone", folder / "drives/d");
    pick([&] {
        chooseDrive("C:");
        openFolder("Jobs");
        desk->control("Drive1").setFocus();
        desk->press(Qt::Key_Down);
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Drive Unavailable.");
        EXPECT_EQ(person.boxes[0].text, "Cannot access drive: D: at this time.");
        EXPECT_EQ(person.boxes[0].icon, QMessageBox::Critical);
        EXPECT_EQ(drives().Drive(), "C:");
        EXPECT_EQ(folders().Path(), "C:\\");
        EXPECT_EQ(location(), "C:\\");
    });
}

TEST_F(LocationPicker, TwoDrivesThatAreGoneEndNothing) {
    fs::create_directory_symlink(folder / "gone", folder / "drives/d");
    pick([&] {
        chooseDrive("C:");
        fs::rename(folder.driveC(), folder / "c");
        desk->press(Qt::Key_Down);
        EXPECT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(drives().Drive(), "C:");
        EXPECT_TRUE(picker->isVisible());
        fs::rename(folder / "c", folder.driveC());
    });
}

TEST_F(LocationPicker, AFolderThatIsGoneIsNotOpened) {
    pick([&] {
        chooseDrive("C:");
        fs::remove_all(folder.driveC() / "Zov");
        openFolder("Zov");
        EXPECT_EQ(location(), "C:\\");
        EXPECT_THAT(person.boxes, IsEmpty());
        EXPECT_TRUE(picker->isVisible());
    });
}

TEST_F(LocationPicker, EscClosesAnOpenListOfDrivesOnly) {
    pick([&] {
        drives().setFocus();
        drives().showPopup();
        QWidget* popup = drives().view()->window();
        ASSERT_TRUE(popup->isVisible());
        QTest::keyClick(drives().view(), Qt::Key_Escape);
        EXPECT_FALSE(popup->isVisible());
        EXPECT_TRUE(picker->isLoaded());
    });
}

TEST_F(LocationPicker, TabGoesThroughTheListsToTheButtons) {
    pick([&] {
        drives().setFocus();
        std::vector<std::string> stops;
        for (int i = 0; i < 5; ++i) {
            stops.push_back(desk->focus());
            desk->press(Qt::Key_Tab);
        }
        EXPECT_THAT(stops, ElementsAre("Drive1", "Dir1", "File1", "cmdSelect", "cmdCancel"));
    });
}

} // namespace
} // namespace tol::test
