// SPDX-License-Identifier: MIT
// Work on many files whose changes wait together, and the log among them.
#include "PlayedFile.h"

#include "data/writes/PendingWrites.h"

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class Batch : public WritesTest {
  protected:
    Batch() { log.writes.leadBatch(true); }

    /// The description of the error that it raises, "" for none.
    template <typename Call>
    static std::string raised(Call&& call) {
        try {
            call();
        } catch (const runtime::RuntimeError& error) {
            return error.description();
        }
        return {};
    }

    File file{*this, "A"};
    File log{*this, "LOG"};
};

TEST_F(Batch, HoldsEvenALoneChangeForHalfASecond) {
    file.write();
    playedNow += 499ms;
    file.write();
    EXPECT_THAT(take(), ElementsAre("A begin"));
    playedNow += 1ms;
    file.write();
    EXPECT_THAT(take(), ElementsAre("A commit", "A begin"));
    file.writes.flush();
    EXPECT_THAT(take(), ElementsAre("A commit"));
}

TEST_F(Batch, HoldsWhatTheCallerHasCommitted) {
    file.writes.begin();
    file.write();
    file.writes.flush(); // nothing happens to a transaction of his
    EXPECT_THAT(take(), ElementsAre("A begin alone", "A savepoint"));
    playedNow += 600ms;
    file.write();
    file.writes.commit();
    EXPECT_THAT(take(), ElementsAre("A release"));
    log.write();
    EXPECT_THAT(take(), ElementsAre("A commit", "LOG begin"));
}

TEST_F(Batch, UndoesThePartThatTheCallerRollsBack) {
    file.write();
    file.writes.begin();
    file.write();
    file.writes.rollback();
    file.writes.flush();
    EXPECT_THAT(take(), ElementsAre("A begin", "A savepoint", "A roll back to savepoint", "A commit"));
}

TEST_F(Batch, MeetsReadersBeforeAStep) {
    file.writes.writeStep([] {});
    log.writes.writeStep([] {});
    EXPECT_THAT(take(), ElementsAre("A begin alone", "A savepoint", "A release", "LOG begin", "LOG savepoint",
                                    "LOG release"));
}

TEST_F(Batch, StoresTheLogBeforeWhatItTellsOf) {
    file.write();
    log.write();
    take();
    file.writes.flush();
    EXPECT_THAT(take(), ElementsAre("LOG commit", "A commit"));
    file.write();
    log.write();
    take();
    playedNow += 500ms;
    file.write();
    EXPECT_THAT(take(), ElementsAre("LOG commit", "A commit", "A begin"));
}

TEST_F(Batch, UndoesWhatALostLogTellsOf) {
    file.write();
    log.write();
    take();
    log.fullDisk = true;
    EXPECT_EQ(raised([&] { log.writes.flush(); }), "No room for 'LOG'.");
    log.fullDisk = false;
    log.write();
    EXPECT_THAT(take(), ElementsAre("LOG commit", "LOG rollback", "LOG begin"));
    EXPECT_EQ(raised([&] { file.writes.flush(); }),
              "No room for 'LOG'. What was changed last in 'A' is undone.");
    EXPECT_THAT(take(), ElementsAre("A rollback"));
    file.write();
    EXPECT_EQ(raised([&] { file.writes.flush(); }), "");
    EXPECT_THAT(take(), ElementsAre("A begin", "LOG commit", "A commit"));
}

TEST_F(Batch, TellsOfTheFileThatTheLogKeepsFromBeingStored) {
    file.write();
    log.write();
    log.fullDisk = true;
    EXPECT_EQ(raised([&] { file.writes.flush(); }),
              "No room for 'LOG'. What was changed last in 'A' is undone.");
    EXPECT_THAT(take(), ElementsAre("A begin", "LOG begin", "LOG commit", "LOG rollback", "A rollback"));
}

TEST_F(Batch, WaitsWithAFileUntilTheLogsStepIsWhole) {
    file.write();
    log.writes.writeStep([&] {
        playedNow += 600ms;
        log.writes.waitForLock();
        file.write();
    });
    EXPECT_THAT(take(), ElementsAre("A begin", "LOG begin", "LOG savepoint", "LOG release"));
    file.write();
    EXPECT_THAT(take(), ElementsAre("LOG commit", "A commit", "A begin"));
}

TEST_F(Batch, EndsWithItsLog) {
    log.writes.leadBatch(false);
    file.write();
    EXPECT_THAT(take(), IsEmpty());
    file.writes.begin();
    file.writes.commit();
    EXPECT_THAT(take(), ElementsAre("A begin", "A commit"));
}

} // namespace
} // namespace tol::test
