// SPDX-License-Identifier: MIT
// When changes reach the file: what another program can see of them, and when.
#include "data/writes/PendingWrites.h"

#include "EngineTest.h"
#include "data/writes/WriteClock.h"

#include <thread>

namespace tol::test {
namespace {

using namespace data;
using data::WriteClock;
using runtime::Value;
using namespace std::chrono_literals;

void sleepOnePeriod() {
    std::this_thread::sleep_for(WriteClock::period + 20ms);
}

class PendingWritesTest : public EngineTest {
  protected:
    PendingWritesTest() {
        makeTable(*store);
        store->flush();
        cursor = openCursor(*store, "T");
        other = std::make_unique<PlainSqlite>(file());
        sleepOnePeriod(); // so that nothing belongs to a run
    }

    void insert() { cursor->insert({}); }
    int inFile() { return std::stoi(other->text("SELECT count(*) FROM T")); }

    std::unique_ptr<Cursor> cursor;
    std::unique_ptr<PlainSqlite> other;
};

TEST_F(PendingWritesTest, ALoneChangeIsCommittedAtOnce) {
    insert();
    EXPECT_EQ(inFile(), 1);
    sleepOnePeriod();
    insert();
    EXPECT_EQ(inFile(), 2);
}

TEST_F(PendingWritesTest, ALoneSchemaStepIsCommittedAtOnce) {
    store->alter("T", AddField{{.name = "More", .type = dbLong}});
    EXPECT_EQ(other->text("SELECT count(More) FROM T"), "0");
}

TEST_F(PendingWritesTest, ARunIsHeldAndCommittedByTheClock) {
    insert();
    insert();
    insert();
    EXPECT_EQ(inFile(), 1);
    sleepOnePeriod();
    EXPECT_EQ(inFile(), 1); // the clock is looked at by calls
    EXPECT_FALSE(cursor->next());
    EXPECT_EQ(inFile(), 3);
}

TEST_F(PendingWritesTest, ALongRunIsCommittedAllTheTime) {
    const auto start = std::chrono::steady_clock::now();
    int seen = 0;
    int commits = 0;
    while (std::chrono::steady_clock::now() - start < 8 * WriteClock::period) {
        insert();
        if (const int now = inFile(); now != seen) {
            seen = now;
            ++commits;
        }
    }
    EXPECT_GE(commits, 3);
    EXPECT_LE(commits, 10);
    store->flush();
    EXPECT_EQ(inFile(), cursor->count());
}

TEST_F(PendingWritesTest, FlushingCommitsWhatIsHeld) {
    insert();
    insert();
    store->flush();
    EXPECT_EQ(inFile(), 2);
    store->flush();
}

TEST_F(PendingWritesTest, SchemaStepsJoinTheRun) {
    insert();
    store->alter("T", AddField{{.name = "More", .type = dbLong}});
    store->alter("T", DropField{"More"});
    store->alter("T", AddField{{.name = "Last", .type = dbLong}});
    EXPECT_EQ(other->text("SELECT count(*) FROM pragma_table_info('T') WHERE name = 'Last'"), "0");
    store->flush();
    EXPECT_EQ(other->text("SELECT count(*) FROM pragma_table_info('T') WHERE name = 'Last'"), "1");
}

TEST_F(PendingWritesTest, AFailedChangeKeepsTheOnesBeforeIt) {
    const Assignment row[] = {{0, 1}};
    cursor->insert(row);
    insert();
    EXPECT_EQ(errorOf([&] { cursor->insert(row); }).number(), 3022);
    insert();
    store->flush();
    EXPECT_EQ(inFile(), 3);
    EXPECT_EQ(cursor->count(), 3);
}

TEST_F(PendingWritesTest, ClosingCommitsWhatIsHeld) {
    insert();
    insert();
    store.reset();
    cursor.reset();
    EXPECT_EQ(inFile(), 2);
}

TEST_F(PendingWritesTest, CallsForAnotherFileMakeTheClockGoOn) {
    insert();
    insert();
    const auto second = engine.create(folder / "B.MDB");
    sleepOnePeriod();
    second->refresh();
    EXPECT_EQ(inFile(), 2);
}

TEST_F(PendingWritesTest, TheCallersTransactionIsLeftToHim) {
    insert();
    insert();
    store->begin();
    EXPECT_EQ(inFile(), 2); // what waited was not his
    insert();
    sleepOnePeriod();
    insert();
    store->flush();
    EXPECT_EQ(inFile(), 2);
    store->begin();
    insert();
    store->rollback();
    store->commit();
    EXPECT_EQ(inFile(), 4);
    EXPECT_EQ(errorOf([&] { store->commit(); }).number(), 3034);
    EXPECT_EQ(errorOf([&] { store->rollback(); }).number(), 3034);
}

TEST_F(PendingWritesTest, ARollbackTakesRowsAndDefinitionsBack) {
    insert();
    store->begin();
    insert();
    store->alter("T", AddField{{.name = "More", .type = dbLong}});
    EXPECT_EQ(store->definition("T")->fields.size(), 4U);
    store->rollback();
    EXPECT_EQ(store->definition("T")->fields.size(), 3U);
    EXPECT_EQ(cursor->count(), 1);
    EXPECT_NE(store->useTable("T"), nullptr); // the table is not held any longer
}

TEST_F(PendingWritesTest, WaitsForAReaderWhenItCommitsAndGivesUp) {
    session().connection().setBusyWait(30ms);
    insert();
    insert();
    other->execute("BEGIN; SELECT count(*) FROM T");
    EXPECT_EQ(errorOf([&] { store->flush(); }).number(), 3218);
    EXPECT_EQ(cursor->count(), 1); // what was told as failed does not happen later
    PlainSqlite third(file());
    EXPECT_EQ(third.text("SELECT count(*) FROM T"), "1"); // and keeps no new reader out
    other->execute("COMMIT");
    store->flush();
    EXPECT_EQ(inFile(), 1);
    insert();
    store->flush();
    EXPECT_EQ(inFile(), 2);
}

TEST_F(PendingWritesTest, AStepThatAReaderKeepsOutIsUndone) {
    session().connection().setBusyWait(30ms);
    other->execute("BEGIN; SELECT count(*) FROM T");
    const auto addField = [&] { store->alter("T", AddField{{.name = "More", .type = dbLong}}); };
    EXPECT_EQ(errorOf(addField).number(), 3218);
    other->execute("COMMIT");
    EXPECT_EQ(store->definition("T")->findField("More"), -1);
    addField();
    store->flush();
    EXPECT_EQ(other->text("SELECT count(More) FROM T"), "0");
}

TEST_F(PendingWritesTest, WhoWaitsForOneFileKeepsNobodyFromAnother) {
    const auto second = engine.create(folder / "B.MDB");
    makeTable(*second);
    addRows(*second, "T", 1, 2);
    const auto rows = openCursor(*second, "T");
    rows->insert({});
    rows->insert({});
    PlainSqlite third(folder / "B.MDB");
    EXPECT_EQ(third.text("SELECT count(*) FROM T"), "2");
    other->execute("BEGIN IMMEDIATE");
    session().connection().setBusyWait(10ms);
    EXPECT_EQ(errorOf([&] { insert(); }).number(), 3218);
    EXPECT_EQ(third.text("SELECT count(*) FROM T"), "4");
    other->execute("COMMIT");
    insert();
    EXPECT_EQ(inFile(), 1);
}

} // namespace
} // namespace tol::test
