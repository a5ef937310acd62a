// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/Connection.h"

#include "EngineTest.h"

#include <sqlite3.h>

#include <thread>

namespace tol::test {
namespace {

using data::sqlite::Connection;
using data::sqlite::Statement;
using namespace std::string_view_literals;

class ConnectionTest : public EngineTest {
  protected:
    Connection& connection() { return session().connection(); }
};

using StatementTest = ConnectionTest;

TEST_F(StatementTest, KeepsEveryKindOfValue) {
    const auto bytes = std::as_bytes(std::span("\0\1\2", 3));
    Statement statement(connection(), "SELECT ?1, ?2, ?3, ?4, ?5, ?6, ?7");
    statement.bindNull(1);
    statement.bind(2, std::int64_t{1} << 62);
    statement.bind(3, 0.1);
    statement.bind(4, "a\0b"sv);
    statement.bind(5, ""sv);
    statement.bind(6, bytes);
    statement.bind(7, std::span<const std::byte>());
    ASSERT_TRUE(statement.step());
    EXPECT_TRUE(statement.isNull(0));
    EXPECT_EQ(statement.integer(1), std::int64_t{1} << 62);
    EXPECT_EQ(statement.real(2), 0.1);
    EXPECT_EQ(statement.text(3), "a\0b"sv);
    EXPECT_EQ(statement.type(4), SQLITE_TEXT);
    EXPECT_EQ(statement.text(4), "");
    EXPECT_TRUE(std::ranges::equal(statement.bytes(5), bytes));
    EXPECT_EQ(statement.type(6), SQLITE_BLOB);
    EXPECT_FALSE(statement.step());
}

TEST_F(StatementTest, TellsColumns) {
    Statement statement(connection(), "SELECT 1 AS one, 2 AS \"t wo\"");
    EXPECT_EQ(statement.columnCount(), 2);
    EXPECT_EQ(statement.columnName(1), "t wo");
}

TEST_F(StatementTest, RaisesWhatSqliteSaysAndCanBeUsedAgain) {
    const auto error = errorOf([&] { Statement(connection(), "SELECT a FROM nowhere"); });
    EXPECT_EQ(error.number(), 3219);
    EXPECT_EQ(error.engineText(), "no such table: nowhere");

    connection().execute("CREATE TEMP TABLE one (a PRIMARY KEY)");
    Statement insert(connection(), "INSERT INTO one VALUES (?)");
    insert.bind(1, 1);
    insert.run();
    EXPECT_EQ(errorOf([&] { insert.run(); }).number(), 3022);
    insert.bind(1, 2);
    insert.run();
    EXPECT_EQ(connection().number("SELECT count(*) FROM one"), 2);
}

TEST_F(ConnectionTest, LendsAStatementTwiceAtOnce) {
    const std::string sql = "SELECT 1 UNION SELECT 2";
    auto outer = connection().cached(sql);
    ASSERT_TRUE(outer->step());
    {
        auto inner = connection().cached(sql);
        ASSERT_TRUE(inner->step());
        EXPECT_EQ(inner->integer(0), 1);
    }
    ASSERT_TRUE(outer->step());
    EXPECT_EQ(outer->integer(0), 2);
}

TEST_F(ConnectionTest, LendsStatementsWithoutTheLastParameters) {
    connection().cached("SELECT ?1")->bind(1, 5);
    auto again = connection().cached("SELECT ?1");
    ASSERT_TRUE(again->step());
    EXPECT_TRUE(again->isNull(0));
}

TEST_F(ConnectionTest, GivesZeroAndNothingForNoRow) {
    EXPECT_EQ(connection().number("SELECT 5 WHERE 0"), 0);
    EXPECT_EQ(connection().text("SELECT 'x' WHERE 0"), "");
}

TEST_F(ConnectionTest, FailsOnAFolderAndOnAMissingFile) {
    const auto open = [](const std::filesystem::path& path) {
        Connection connection(path, Connection::Mode::ReadWrite);
        connection.number("SELECT count(*) FROM sqlite_schema");
    };
    EXPECT_EQ(errorOf([&] { open(folder.path()); }).number(), 3051);
    EXPECT_EQ(errorOf([&] { open(folder / "none.mdb"); }).number(), 3051);
    EXPECT_FALSE(std::filesystem::exists(folder / "none.mdb"));
}

TEST_F(ConnectionTest, WaitsForALockAndThenTellsThatTheFileIsLocked) {
    PlainSqlite other(file());
    other.execute("BEGIN IMMEDIATE");
    connection().setBusyWait(std::chrono::milliseconds(60));
    int turns = 0;
    connection().setWaitObserver([&] { ++turns; });
    const auto before = std::chrono::steady_clock::now();
    const auto error = errorOf([&] { connection().execute("BEGIN IMMEDIATE"); });
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(60));
    EXPECT_EQ(error.number(), 3218);
    EXPECT_EQ(error.description(), "Could not update '" + file().string() + "'; currently locked.");
    EXPECT_GT(turns, 5);
    other.execute("ROLLBACK");
    connection().execute("BEGIN IMMEDIATE; COMMIT");
}

TEST_F(ConnectionTest, WaitsOnceForAnotherWhoKeepsHisLock) {
    using Clock = std::chrono::steady_clock;
    using namespace std::chrono_literals;
    PlainSqlite other(file());
    other.execute("BEGIN IMMEDIATE");
    connection().setBusyWait(400ms);
    const auto start = Clock::now();
    for (int attempt = 0; attempt < 4; ++attempt)
        EXPECT_EQ(errorOf([&] { connection().execute("BEGIN IMMEDIATE"); }).number(), 3218);
    EXPECT_GE(Clock::now() - start, 400ms);
    EXPECT_LT(Clock::now() - start, 800ms);
    std::this_thread::sleep_for(1100ms);
    const auto later = Clock::now();
    EXPECT_EQ(errorOf([&] { connection().execute("BEGIN IMMEDIATE"); }).number(), 3218);
    EXPECT_GE(Clock::now() - later, 400ms);
}

TEST_F(ConnectionTest, WaitsFiveSecondsUnlessToldOtherwise) {
    EXPECT_EQ(connection().busyWait(), std::chrono::seconds(5));
}

TEST(Sql, QuotesNamesAndTexts) {
    EXPECT_EQ(data::sqlite::quotedName("a \"b\""), "\"a \"\"b\"\"\"");
    EXPECT_EQ(data::sqlite::quotedText("it's"), "'it''s'");
}

} // namespace
} // namespace tol::test
