// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "StatementCount.h"

#include <gmock/gmock.h>

#include <string_view>

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;

/// Rows of a table of another maker that are changed on a walk.
class ForeignUpdates : public EngineTest {
  protected:
    void make(const std::string& sql) {
        store.reset();
        PlainSqlite(file()).execute(sql + "; WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n "
                                          "WHERE x < 3000) INSERT INTO t (a, b) SELECT x, 'n' || x FROM n");
        store = engine.open(file(), false);
    }

    /// Sets the field to `value` in every row; how many statements it took that begin so.
    int statementsToChangeAll(std::size_t field, const Value& value, std::string_view begin) {
        const auto cursor = openCursor(*store, "t");
        const StatementCount counter(session().connection().handle(), begin);
        const Assignment change[] = {{field, value}};
        int rows = 0;
        for (bool row = cursor->first(); row; row = cursor->next(), ++rows)
            cursor->update(change);
        EXPECT_EQ(rows, 3000);
        store->flush();
        return counter.count();
    }

    static constexpr const char* plain = "CREATE TABLE t (a INTEGER, b TEXT)";
};

TEST_F(ForeignUpdates, ReadEachRowOnce) {
    make(plain);
    EXPECT_LT(statementsToChangeAll(1, Value("x"), "SELECT"), 20);
    EXPECT_EQ(PlainSqlite(file()).text("SELECT count(*) FROM t WHERE b = 'x'"), "3000");
}

TEST_F(ForeignUpdates, OfAFieldThatThisProgramHasMadeAreWrittenTogether) {
    make(plain);
    store->alter("t", AddField{{.name = "c", .type = dbDouble}});
    EXPECT_LT(statementsToChangeAll(2, Value(1.5), "UPDATE"), 20);
    EXPECT_EQ(PlainSqlite(file()).text("SELECT count(*) FROM t WHERE c = 1.5"), "3000");
}

TEST_F(ForeignUpdates, OfOtherFieldsAreWrittenOneByOne) {
    make("CREATE TABLE t (a INTEGER, b TEXT CHECK (length(b) < 8))");
    const auto cursor = openCursor(*store, "t");
    ASSERT_TRUE(cursor->first());
    const Assignment tooLong[] = {{1, Value("123456789")}};
    const Assignment fitting[] = {{1, Value("1234")}};
    cursor->update(fitting);
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(errorOf([&] { cursor->update(tooLong); }).number(), 3219);
    cursor->update(fitting);
    store->flush();
    EXPECT_EQ(PlainSqlite(file()).text("SELECT count(*) FROM t WHERE b = '1234'"), "2");
}

TEST_F(ForeignUpdates, ShowWhatTheFileHoldsThen) {
    make("CREATE TABLE t (a INTEGER, b NUMERIC)");
    const auto cursor = openCursor(*store, "t");
    ASSERT_TRUE(cursor->first());
    ASSERT_TRUE(cursor->next());
    const Value before = cursor->value(0);
    const std::string mark = cursor->bookmark();
    const Assignment change[] = {{1, Value(17.0)}};
    cursor->update(change);
    EXPECT_EQ(cursor->value(1), Value(17.0));
    EXPECT_EQ(cursor->value(0), before);
    EXPECT_EQ(cursor->bookmark(), mark);
    cursor->update(change);
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->value(0), Value(3));
    ASSERT_TRUE(cursor->previous());
    EXPECT_EQ(cursor->value(1), Value(17.0));
    EXPECT_EQ(cursor->bookmark(), mark);
    ASSERT_TRUE(cursor->previous());
    EXPECT_EQ(cursor->value(0), Value(1));
    EXPECT_FALSE(cursor->previous());
}

TEST_F(ForeignUpdates, ShowWhatTriggersChangeInOtherRows) {
    make("CREATE TABLE t (a INTEGER, b TEXT)");
    store.reset();
    PlainSqlite(file()).execute(
        "CREATE TRIGGER g AFTER UPDATE ON t BEGIN UPDATE t SET b = 'by ' || new.a WHERE a = new.a + 1; END");
    store = engine.open(file(), false);
    store->alter("t", AddField{{.name = "c", .type = dbDouble}});
    const auto cursor = openCursor(*store, "t");
    ASSERT_TRUE(cursor->first());
    for (int row = 1; row < 100; ++row) {
        const Assignment change[] = {{2, Value(0.5)}};
        cursor->update(change);
        ASSERT_TRUE(cursor->next());
        EXPECT_EQ(cursor->value(1), Value("by " + std::to_string(row)));
    }
}

TEST_F(ForeignUpdates, OfARowThatIsGoneAreRefused) {
    make(plain);
    const auto cursor = openCursor(*store, "t");
    const auto other = openCursor(*store, "t");
    ASSERT_TRUE(cursor->first());
    ASSERT_TRUE(other->first());
    const Assignment change[] = {{1, Value("x")}};
    cursor->update(change);
    other->remove();
    EXPECT_EQ(errorOf([&] { static_cast<void>(cursor->value(1)); }).number(), 3167);
    EXPECT_EQ(errorOf([&] { cursor->update(change); }).number(), 3167);
    ASSERT_TRUE(cursor->next());
    EXPECT_EQ(cursor->value(0), Value(2));
}

} // namespace
} // namespace tol::test
