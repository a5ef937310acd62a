// SPDX-License-Identifier: MIT
// The window of Record Locks over many seconds and many locks.
#include "LocksTest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include <unistd.h>

namespace tol::test {
namespace {

namespace fs = std::filesystem;

/// Seconds that are played. A whole day has 86,400, which take some minutes; TOL_LOCK_TICKS asks for them.
int secondsToPlay() {
    const char* asked = std::getenv("TOL_LOCK_TICKS");
    return asked != nullptr ? std::atoi(asked) : 5000;
}

/// Bytes of this process that lie in memory.
long residentBytes() {
    std::ifstream numbers("/proc/self/statm");
    long total = 0, resident = 0;
    numbers >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

/// The files that this process has open; pipes and events, which threads make at their first use, are none.
std::multiset<std::string> openFiles() {
    std::multiset<std::string> files;
    std::error_code gone;
    for (const auto& handle : fs::directory_iterator("/proc/self/fd"))
        if (const fs::path file = fs::read_symlink(handle.path(), gone); file.is_absolute())
            files.insert(file.string());
    return files;
}

class DayOfLocks : public LocksTest {
  protected:
    void playSeconds(int count) {
        for (int second = 0; second < count; ++second) {
            tick();
            QCoreApplication::processEvents();
        }
    }
};

TEST_F(DayOfLocks, TakesNoMoreMemoryAndLeavesNoFileOpen) {
    if (!fs::exists("/proc/self/fd"))
        GTEST_SKIP() << "the system doesn't tell what is open";
    const auto before = openFiles();
    openWith(20);
    const int seconds = secondsToPlay();
    playSeconds(seconds / 10);
    const auto filesAtFirst = openFiles();
    const long bytesAtFirst = residentBytes();
    for (int part = 0; part < 9; ++part) {
        addNumbered(30 + part, 30 + part);
        playSeconds(seconds / 10);
    }
    constexpr long slack =
        2 * 1024 * 1024; // of the allocator; one handle kept at each tick would take far more
    EXPECT_LE(residentBytes() - bytesAtFirst, slack);
    EXPECT_EQ(openFiles(), filesAtFirst);
    window->unload();
    EXPECT_EQ(openFiles(), before);
}

TEST_F(DayOfLocks, LeavesNoFileOpenWhileTheNetworkIsGone) {
    if (!fs::exists("/proc/self/fd"))
        GTEST_SKIP() << "the system doesn't tell what is open";
    const auto before = openFiles();
    openWith(3);
    fs::rename("ZOVNET.MDB", "GONE.MDB");
    playSeconds(100);
    EXPECT_EQ(window->windowTitle(), "Record Locks - not connected");
    EXPECT_EQ(openFiles(), before);
}

TEST_F(DayOfLocks, FiftyThousandLocksAreFollowed) {
    constexpr int count = 50'000;
    addNumbered(1, count);
    open();
    tick();
    EXPECT_EQ(tags(), "1* 2 3 4 5 6 7");
    desk->press(Qt::Key_End);
    EXPECT_EQ(tags(), "50000* End");
    desk->press(Qt::Key_PageUp);
    tick();
    EXPECT_EQ(tags(), "49994* 49995 49996 49997 49998 49999 50000");
    net.locks.add({lock(0)});
    tick();
    EXPECT_EQ(tags(), "0* 1 2 3 4 5 6");
    desk->press(Qt::Key_End);
    desk->press(Qt::Key_D);
    EXPECT_EQ(tags(), "0* 1 2 3 4 5 6");
    EXPECT_EQ(person.boxes.size(), 1U);
    desk->press(Qt::Key_End);
    EXPECT_EQ(tags(), "49999* End");
}

} // namespace
} // namespace tol::test
