// SPDX-License-Identifier: MIT
#include "data/rows/Cursor.h"

#include "PlayedTable.h"
#include "support/Raises.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;
using testing::ElementsAre;
using testing::IsEmpty;

/// Rows 1 to 100, with A ten times the key.
class CursorTest : public testing::Test {
  protected:
    CursorTest() {
        auto rows = std::make_unique<PlayedTable>();
        table = rows.get();
        for (int key = 1; key <= 100; ++key)
            table->rows[key] = {10 * key, 0};
        cursor = std::make_unique<Cursor>(std::move(rows));
    }

    std::vector<std::string> calls() { return std::exchange(table->calls, {}); }
    void setA(int value) {
        const Assignment change[] = {{0, value}};
        cursor->update(change);
    }
    /// The keys met from the current row on.
    std::vector<int> walk() {
        std::vector<int> keys;
        do
            keys.push_back(std::stoi(cursor->bookmark()));
        while (cursor->next());
        return keys;
    }

    PlayedTable* table;
    std::unique_ptr<Cursor> cursor;
};

TEST_F(CursorTest, ReadsMoreRowsWithEachBatch) {
    ASSERT_TRUE(cursor->first());
    EXPECT_EQ(walk().size(), 100U);
    EXPECT_EQ(calls().size(), 5U); // of 4, 16, 64 and the rest, and the end
}

TEST_F(CursorTest, MeetsNoRowTwiceThatItMovedAhead) {
    cursor->setIndex("ByA");
    ASSERT_TRUE(cursor->first());
    setA(555); // behind row 55
    EXPECT_EQ(cursor->value(0), Value(555));
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(walk().size(), 99U);
    ASSERT_TRUE(cursor->first());
    EXPECT_EQ(walk().size(), 100U) << "a jump begins another walk";
}

TEST_F(CursorTest, MeetsAMovedRowWhenTheWalkTurns) {
    cursor->setIndex("ByA");
    ASSERT_TRUE(cursor->first());
    setA(25); // behind row 2
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->bookmark(), "2");
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->bookmark(), "3");
    ASSERT_TRUE(cursor->previous());
    EXPECT_EQ(cursor->bookmark(), "1");
}

TEST_F(CursorTest, EndsWhereOnlyMovedRowsAreLeft) {
    cursor->setIndex("ByA");
    ASSERT_TRUE(cursor->seekBookmark("99"));
    setA(2000);
    ASSERT_TRUE(cursor->next());
    EXPECT_FALSE(cursor->next());
}

TEST_F(CursorTest, GoesOnFromWhereADeletedRowStood) {
    ASSERT_TRUE(cursor->first());
    table->rows.erase(1);
    table->rows.erase(2);
    ++table->otherChanges;
    EXPECT_EQ(errorOf([&] { cursor->value(0); }), runtime::errRecordDeleted);
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->bookmark(), "3");
}

TEST_F(CursorTest, ReadsAgainWhatOthersHaveChanged) {
    ASSERT_TRUE(cursor->first());
    EXPECT_EQ(cursor->value(0), Value(10));
    table->rows[1] = {11, 0};
    EXPECT_EQ(cursor->value(0), Value(10)) << "nobody told of a change";
    ++table->otherChanges;
    EXPECT_EQ(cursor->value(0), Value(11));
    table->rows[1] = {12, 0};
    ++table->shared.changes; // through another cursor
    EXPECT_EQ(cursor->value(0), Value(12));
}

TEST_F(CursorTest, KeepsItsBatchThroughItsOwnChanges) {
    ASSERT_TRUE(cursor->first());
    calls();
    setA(11);
    const Assignment row[] = {{0, 7}};
    EXPECT_EQ(cursor->insert(row), "101");
    EXPECT_EQ(cursor->value(0), Value(11));
    cursor->remove();
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->value(0), Value(20));
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(CursorTest, CountsOnceUntilOthersChangeTheTable) {
    EXPECT_EQ(cursor->count(), 100);
    cursor->insert({});
    ASSERT_TRUE(cursor->first());
    cursor->remove();
    cursor->insert({});
    EXPECT_EQ(cursor->count(), 101);
    EXPECT_THAT(calls(), ElementsAre("count", "read"));
    ++table->otherChanges;
    EXPECT_EQ(cursor->count(), 101);
    EXPECT_THAT(calls(), ElementsAre("count"));
}

TEST_F(CursorTest, FindsABookmarkInWhatWasReadAhead) {
    ASSERT_TRUE(cursor->first());
    calls();
    ASSERT_TRUE(cursor->seekBookmark("3"));
    EXPECT_EQ(cursor->value(0), Value(30));
    EXPECT_THAT(calls(), IsEmpty());
    ASSERT_TRUE(cursor->seekBookmark("50"));
    EXPECT_EQ(cursor->value(0), Value(500));
    EXPECT_THAT(calls(), ElementsAre("readRow"));
    EXPECT_FALSE(cursor->seekBookmark("1000"));
}

TEST_F(CursorTest, RefusesTextsThatAreNoBookmark) {
    for (const char* text : {"", " ", "x", "1 ", "1.5", "99999999999999999999", "i1:1"})
        EXPECT_EQ(errorOf([&] { cursor->seekBookmark(text); }), 3159) << text;
}

TEST_F(CursorTest, SearchesASmallTableThatItHasReadAsAWhole) {
    cursor->setIndex("ByA");
    const auto find = [&](int key) {
        const Value keys[] = {key};
        return cursor->seek(SeekOperator::Equal, keys);
    };
    for (int key = 1; key <= 5; ++key)
        ASSERT_TRUE(find(10 * key));
    calls();
    EXPECT_TRUE(find(1000));
    EXPECT_FALSE(find(1));
    EXPECT_THAT(calls(), IsEmpty());
}

} // namespace
} // namespace tol::test
