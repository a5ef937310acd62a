// SPDX-License-Identifier: MIT
// The window of Record Locks while the network comes and goes, and what it holds of it.
#include "LocksTest.h"

#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"
#include "support/SecondProcess.h"

#include <QAbstractButton>

#include <sqlite3.h>

#include <filesystem>
#include <fstream>

namespace tol::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;
namespace fs = std::filesystem;

/// The network database lies in a folder of its own.
class NetworkOfLocks : public LocksTest {
  protected:
    NetworkOfLocks() {
        fs::create_directory(networkFolder);
        fs::rename(folder / NetworkTables::file, networkFolder / NetworkTables::file);
        folder.addPath("C:\\NET");
    }
    void openThree() {
        bringOver([&] { addNumbered(1, 3); });
        open();
        tick();
    }
    /// Works on the network's tables where they lie.
    void bringOver(const std::function<void()>& work) const {
        const fs::path here = fs::current_path();
        fs::current_path(networkFolder);
        work();
        fs::current_path(here);
    }
    void disconnect() const { fs::rename(networkFolder, elsewhere); }
    void reconnect() const { fs::rename(elsewhere, networkFolder); }
    void expectConnected(bool connected) const {
        EXPECT_EQ(window->windowTitle(), connected ? "Record Locks" : "Record Locks - not connected");
        EXPECT_EQ(desk->control("cmdDelete").isEnabled(), connected);
        EXPECT_EQ(desk->control("cmdVDBEND").isEnabled(), connected);
    }

    const fs::path networkFolder = folder.driveC() / "NET";
    const fs::path elsewhere = folder.driveC() / "ELSEWHERE";
};

TEST_F(NetworkOfLocks, GoneItLeavesTheLastPageAndKeysDoNothing) {
    openThree();
    desk->press(Qt::Key_Down);
    disconnect();
    tick();
    expectConnected(false);
    desk->keepPicture("record-locks-not-connected");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown,
                              Qt::Key_PageUp, Qt::Key_D, Qt::Key_Delete, Qt::Key_Return, Qt::Key_X}) {
        desk->press(key);
        EXPECT_EQ(tags(), "1 2* 3 End") << key;
    }
    desk->press(Qt::Key_D, Qt::AltModifier);
    desk->click("lblTAGNO(0)");
    tick();
    EXPECT_EQ(tags(), "1 2* 3 End");
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(forms::LoadedForms::Count(), 1);
}

TEST_F(NetworkOfLocks, BackAgainItIsShownWhereTheHighlightStood) {
    openThree();
    desk->press(Qt::Key_Down);
    disconnect();
    tick();
    reconnect();
    EXPECT_EQ(window->windowTitle(), "Record Locks - not connected") << "until a tick works";
    tick();
    expectConnected(true);
    EXPECT_EQ(tags(), "1 2* 3 End");
    desk->press(Qt::Key_D);
    EXPECT_EQ(tags(), "1* 3 End");
    bringOver([&] { EXPECT_THAT(net.locks.rows(), SizeIs(2)); });
}

TEST_F(NetworkOfLocks, AnotherFileInItsPlaceIsSeen) {
    const NetworkTables saved; // in the current folder
    saved.locks.add({lock(7)});
    openThree();
    fs::rename(NetworkTables::file, networkFolder / NetworkTables::file);
    tick();
    expectConnected(true);
    EXPECT_EQ(tags(), "7* End");
}

TEST_F(NetworkOfLocks, TheButtonThatGoesOutOfUsePassesTheKeyboardOn) {
    openThree();
    desk->control("cmdDelete").setFocus();
    disconnect();
    tick();
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(NetworkOfLocks, AWindowThatIsNotConnectedCanBeClosed) {
    openThree();
    disconnect();
    tick();
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(NetworkOfLocks, AKeyThatFindsTheFileDamagedMarksTheWindow) {
    openThree();
    std::ofstream(networkFolder / NetworkTables::file) << std::string(9000, 'x');
    desk->press(Qt::Key_Down);
    expectConnected(false);
    tick();
    expectConnected(false);
    EXPECT_EQ(tags(), "1* 2 3 End");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(NetworkOfLocks, AClickThatFindsTheFileDamagedMarksTheWindow) {
    openThree();
    std::ofstream(networkFolder / NetworkTables::file) << std::string(9000, 'x');
    desk->click("lblTAGNO(1)");
    expectConnected(false);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(NetworkOfLocks, GoneWhileTheQuestionStandsItIsTold) {
    openThree();
    person.onBox = [&](QMessageBox& box) {
        if (person.boxes.size() == 1)
            disconnect();
        box.findChild<QAbstractButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_D);
    ASSERT_THAT(person.boxes, SizeIs(2));
    EXPECT_EQ(person.boxes[1].title, "Cannot Delete Record Lock");
    EXPECT_THAT(person.boxes[1].text, testing::HasSubstr(NetworkTables::file));
    expectConnected(false);
    EXPECT_EQ(tags(), "1* 2 3 End");
    reconnect();
    tick();
    expectConnected(true);
    EXPECT_EQ(tags(), "1* 2 3 End") << "nothing was deleted";
}

// What other modules meet.

/// Whether another module, which has no patience, gets the whole file for itself to write to.
bool othersMayWrite(const fs::path& file) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    const int result = sqlite3_exec(database, "BEGIN EXCLUSIVE; COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    return result == SQLITE_OK;
}

TEST_F(NetworkOfLocks, NobodyWaitsForTheWindow) {
    openThree();
    const fs::path file = networkFolder / NetworkTables::file;
    EXPECT_TRUE(othersMayWrite(file));
    desk->press(Qt::Key_End);
    desk->press(Qt::Key_Up);
    EXPECT_TRUE(othersMayWrite(file));
    bool whileAsked = false;
    person.onBox = [&](QMessageBox& box) {
        whileAsked = othersMayWrite(file);
        box.findChild<QAbstractButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_D);
    EXPECT_TRUE(whileAsked);
    EXPECT_TRUE(othersMayWrite(file)) << "the delete is stored";
}

TEST_F(NetworkOfLocks, WhileAnotherHoldsTheFileTheWindowIsNotConnected) {
    openThree();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open((networkFolder / NetworkTables::file).c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    tick();
    expectConnected(false);
    sqlite3_close(other);
    tick();
    expectConnected(true);
    EXPECT_EQ(tags(), "1* 2 3 End");
}

// A process that has the file open on another machine, and its clock, are real here; the window's clock is
// not.
TEST_F(NetworkOfLocks, ALockOfAnotherProcessComesAndGoes) {
    bringOver([&] { addNumbered(1, 2); });
    const SecondProcess other([&](const SecondProcess::Steps& steps) {
        fs::current_path(networkFolder);
        steps.wait();
        net.locks.add({lock(5)});
        steps.done();
        steps.wait();
        net.locks.remove("TAGNO", 5);
        steps.done();
        steps.wait();
    });
    open();
    tick();
    for (const char* expected : {"1* 2 5 End", "1* 2 End"}) {
        other.next();
        ASSERT_TRUE(other.await());
        tick();
        EXPECT_EQ(tags(), expected);
    }
}

} // namespace
} // namespace tol::test
