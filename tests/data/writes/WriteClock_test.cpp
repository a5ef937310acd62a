// SPDX-License-Identifier: MIT
#include "data/writes/WriteClock.h"

#include "PlayedFile.h"

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class WriteClockTest : public WritesTest {
  protected:
    WriteClockTest() {
        file.write(); // a lone change, after which a run begins
        take();
    }

    /// Writes every millisecond for so long; the part of the time that commits took.
    double partOfCommits(milliseconds time) {
        const auto start = playedNow;
        milliseconds commits{0};
        while (playedNow < start + time) {
            file.write();
            for (const std::string& line : take())
                commits += line == "A commit" ? file.commitTime : 0ms;
            playedNow += 1ms;
        }
        return std::chrono::duration<double>(commits) / (playedNow - start);
    }

    File file{*this, "A"};
};

TEST_F(WriteClockTest, HoldsARunForFiftyMilliseconds) {
    file.write();
    playedNow += 49ms;
    file.write();
    EXPECT_THAT(take(), ElementsAre("A begin"));
    playedNow += 1ms;
    file.write();
    EXPECT_THAT(take(), ElementsAre("A commit", "A begin"));
}

TEST_F(WriteClockTest, GivesASlowDiskAFifthOfTheTime) {
    for (const milliseconds slow : {20ms, 50ms, 200ms}) {
        file.commitTime = slow;
        partOfCommits(2s);
        EXPECT_LE(partOfCommits(20s), 0.21) << slow.count();
        EXPECT_GE(partOfCommits(20s), 0.15) << slow.count();
    }
}

TEST_F(WriteClockTest, HoldsNothingForLongerThanASecond) {
    file.commitTime = 2s;
    partOfCommits(10s);
    EXPECT_EQ(clock.holdTime(), 1s);
    file.commitTime = 1ms;
    partOfCommits(2s);
    EXPECT_EQ(clock.holdTime(), 50ms); // the disk is quick again
}

TEST_F(WriteClockTest, RemembersASlowDiskWhileACallersTransactionIsDue) {
    File other(*this, "B");
    file.writes.leadBatch(true);
    file.commitTime = 200ms;
    file.write();
    playedNow += 500ms;
    file.write();
    ASSERT_EQ(clock.holdTime(), 800ms);
    file.writes.flush();
    other.writes.begin();
    playedNow += 1s;
    clock.tick(other.writes, playedNow); // nothing can be committed now
    EXPECT_EQ(clock.holdTime(), 800ms);
    other.writes.rollback();
    file.writes.leadBatch(false);
}

TEST_F(WriteClockTest, CommitsAllFilesWhenOneIsDue) {
    File other(*this, "B");
    other.write();
    take();
    file.write();
    playedNow += 40ms;
    other.write();
    playedNow += 10ms;
    File third(*this, "C");
    clock.tick(third.writes, playedNow);
    EXPECT_THAT(take(), ElementsAre("A begin", "B begin", "A commit", "B commit"));
}

TEST_F(WriteClockTest, DefersWhatAnothersCallCannotStore) {
    File other(*this, "B");
    file.write();
    file.fullDisk = true;
    playedNow += 50ms;
    EXPECT_NO_THROW(other.write());
    EXPECT_THAT(take(), ElementsAre("A begin", "A commit", "A rollback"));
    EXPECT_THROW(file.write(), runtime::RuntimeError);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(WriteClockTest, KeepsNoFileFromOthersWhileOneIsWaitedFor) {
    File other(*this, "B");
    other.write();
    other.write();
    file.write();
    take();
    file.writes.waitForLock();
    EXPECT_THAT(take(), ElementsAre("B commit"));
}

} // namespace
} // namespace tol::test
