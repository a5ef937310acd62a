// SPDX-License-Identifier: MIT
// Updates that wait to be written together, seen through the cursor: nobody may notice that they waited.
#include "data/sqlite/rows/RangeWriter.h"

#include "EngineTest.h"

#include <random>

namespace tol::test {
namespace {

using namespace data;
using runtime::Null;
using runtime::Value;

class RangeWriterTest : public EngineTest {
  protected:
    RangeWriterTest() {
        makeTable(*store);
        addRows(*store, "T", 1, 100);
        cursor = openCursor(*store, "T");
        store->begin();
    }

    void writeNote(const Value& note) {
        const Assignment change[] = {{2, note}};
        cursor->update(change);
    }
    bool isWaiting() { return !session().changedRows().isEmpty(); }
    std::string inFile(const std::string& query) { return session().connection().text(query); }

    std::unique_ptr<Cursor> cursor;
};

TEST_F(RangeWriterTest, HoldsUpdatesBackUntilRowsAreRead) {
    ASSERT_TRUE(cursor->first());
    for (int i = 0; i < 3; ++i) {
        writeNote("note " + std::to_string(i));
        ASSERT_TRUE(cursor->next());
    }
    EXPECT_TRUE(isWaiting());
    EXPECT_EQ(inFile("SELECT count(Note) FROM T"), "0");
    EXPECT_EQ(column(*store, "T", 2)[1], Value("note 1"));
    EXPECT_FALSE(isWaiting());
}

TEST_F(RangeWriterTest, WritesRowsWithGapsBetweenThem) {
    std::mt19937 random(7);
    std::vector<Value> expected;
    for (bool row = cursor->first(); row; row = cursor->next()) {
        const int id = cursor->value(0).get<std::int32_t>();
        expected.emplace_back(Null{});
        if (random() % 3 == 0)
            continue;
        expected.back() = id % 5 == 0 ? Value(Null{}) : Value("note " + std::to_string(id));
        writeNote(expected.back());
        EXPECT_EQ(cursor->value(2), expected.back());
    }
    EXPECT_EQ(column(*store, "T", 2), expected);
}

TEST_F(RangeWriterTest, WritesSeveralFieldsOfSeveralKinds) {
    store->commit();
    createTable(*store, definitionOf("U", {{.name = "D", .type = dbDouble},
                                           {.name = "B", .type = dbLongBinary},
                                           {.name = "T", .type = dbText, .size = 9}}));
    const auto rows = openCursor(*store, "U");
    for (int i = 0; i < 10; ++i)
        rows->insert({});
    store->begin();
    const Value bytes(runtime::Bytes{std::byte{0}, std::byte{1}});
    for (bool row = rows->first(); row; row = rows->next()) {
        const Assignment change[] = {{2, std::string("a\0b", 3)}, {0, 1.5}, {1, bytes}};
        rows->update(change);
    }
    store->commit();
    EXPECT_EQ(column(*store, "U", 0), std::vector<Value>(10, 1.5));
    EXPECT_EQ(column(*store, "U", 1), std::vector<Value>(10, bytes));
    EXPECT_EQ(column(*store, "U", 2), std::vector<Value>(10, std::string("a\0b", 3)));
}

TEST_F(RangeWriterTest, WritesARowTwiceInTheOrderOfTheCalls) {
    ASSERT_TRUE(cursor->first());
    writeNote("first");
    writeNote("second");
    EXPECT_EQ(cursor->value(2), Value("second"));
    ASSERT_TRUE(cursor->next());
    writeNote("other");
    ASSERT_TRUE(cursor->previous());
    writeNote("third");
    EXPECT_EQ(column(*store, "T", 2)[0], Value("third"));
    EXPECT_EQ(column(*store, "T", 2)[1], Value("other"));
}

TEST_F(RangeWriterTest, IsWrittenBeforeOtherChanges) {
    ASSERT_TRUE(cursor->first());
    writeNote("note");
    const auto other = openCursor(*store, "T");
    ASSERT_TRUE(other->first());
    EXPECT_EQ(other->value(2), Value("note"));
    writeNote("again");
    other->remove();
    EXPECT_EQ(errorOf([&] { cursor->value(2); }).number(), 3167);
    EXPECT_EQ(errorOf([&] { writeNote("lost"); }).number(), 3167);
    store->commit();
    EXPECT_EQ(cursor->count(), 99);
}

TEST_F(RangeWriterTest, NeverHoldsKeysBack) {
    ASSERT_TRUE(cursor->first());
    const Assignment change[] = {{0, 50}};
    EXPECT_EQ(errorOf([&] { cursor->update(change); }).number(), 3022);
    EXPECT_EQ(cursor->value(0), Value(1));
}

// Other makers' unique indexes may be of expressions or of some rows, and are then none of the interface.
TEST_F(RangeWriterTest, HoldsNothingBackThatAHiddenUniqueIndexMayRefuse) {
    for (const char* index : {"(lower(Note))", "(Note) WHERE Id < 3"}) {
        store->rollback();
        cursor.reset();
        PlainSqlite(file()).execute(
            std::string("DROP INDEX IF EXISTS Hidden; CREATE UNIQUE INDEX Hidden ON T ") + index);
        reopen();
        cursor = openCursor(*store, "T");
        store->begin();
        ASSERT_TRUE(cursor->first());
        writeNote("same");
        ASSERT_TRUE(cursor->next());
        EXPECT_EQ(errorOf([&] { writeNote("same"); }).number(), 3022) << index;
        EXPECT_EQ(cursor->value(2), Value(Null{}));
    }
}

TEST_F(RangeWriterTest, GoesWithTheTransaction) {
    ASSERT_TRUE(cursor->first());
    writeNote("undone");
    store->rollback();
    EXPECT_EQ(cursor->value(2), Value(Null{}));
    EXPECT_EQ(column(*store, "T", 2)[0], Value(Null{}));

    store->begin();
    writeNote("outer");
    store->begin();
    ASSERT_TRUE(cursor->next());
    writeNote("inner");
    store->rollback();
    store->commit();
    EXPECT_EQ(column(*store, "T", 2)[0], Value("outer"));
    EXPECT_EQ(column(*store, "T", 2)[1], Value(Null{}));
}

TEST_F(RangeWriterTest, IsWrittenBeforeADefinitionChanges) {
    ASSERT_TRUE(cursor->first());
    writeNote("note");
    cursor.reset();
    store->alter("T", AddField{{.name = "More", .type = dbLong}});
    EXPECT_EQ(inFile("SELECT Note FROM T"), "note");
    store->commit();
}

TEST_F(RangeWriterTest, BoundsItsMemoryForLongTexts) {
    ASSERT_TRUE(cursor->first());
    writeNote(std::string(700'000, 'x'));
    EXPECT_TRUE(isWaiting());
    ASSERT_TRUE(cursor->next());
    writeNote(std::string(700'000, 'y'));
    EXPECT_FALSE(isWaiting());
    store->commit();
    EXPECT_EQ(inFile("SELECT group_concat(length(Note)) FROM T"), "700000,700000");
}

} // namespace
} // namespace tol::test
