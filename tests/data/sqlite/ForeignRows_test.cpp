// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "ForeignFilesTest.h"
#include "runtime/Conversions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data;
using runtime::Value;
using testing::ElementsAre;

class ForeignRows : public ForeignFilesTest {};

TEST_F(ForeignRows, ReadValuesAsTheirFieldTypes) {
    make("CREATE TABLE t(b BOOLEAN, y TINYINT, i SMALLINT, l INTEGER, c DECIMAL(10,2), d DOUBLE, big BIGINT, "
         "t VARCHAR(5), "
         "m TEXT, x BLOB, g UUID, u);"
         "INSERT INTO t VALUES(1, 255, -32768, 2147483647, 12.35, 0.5, 9007199254740991, 'ä b', 'long', "
         "x'414243', "
         "'{00112233-4455-6677-8899-AABBCCDDEEFF}', 7);"
         "INSERT INTO t VALUES(0, 0, 0, 0, 3, 1, 1, '', '', x'', '', 'seven');"
         "INSERT INTO t VALUES(NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_TRUE(rows.Fields("b").Value().is<bool>());
    EXPECT_EQ(rows.Fields("c").Value(), Value(runtime::Currency{123500}));
    EXPECT_TRUE(rows.Fields("x").Value().is<runtime::Bytes>());
    EXPECT_THAT(walk(rows), ElementsAre("True|255|-32768|2147483647|12.35|0.5|9.00719925474099E+15|ä "
                                        "b|long|ABC|{00112233-4455-6677-8899-AABBCCDDEEFF}|7",
                                        "False|0|0|0|3|1|1|||||seven",
                                        "Null|Null|Null|Null|Null|Null|Null|Null|Null|Null|Null|Null"));
}

TEST_F(ForeignRows, ReadDatesInEveryFormThatSqliteKnows) {
    make("CREATE TABLE t(d DATETIME); INSERT INTO t VALUES('2009-01-31 10:20:30'), ('2009-01-31'), "
         "('2009-01-31T10:20:30'), "
         "('2009-01-31 10:20:30.500'), (1233397230), (2454862.9309027777), ('2009-01-31T10:20:30Z'), "
         "('2009-01-31T10:20:30.123456Z')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows),
                ElementsAre("1/31/2009 10:20:30 AM", "1/31/2009", "1/31/2009 10:20:30 AM",
                            "1/31/2009 10:20:30 AM", "1/31/2009 10:20:30 AM", "1/31/2009 10:20:30 AM",
                            "1/31/2009 10:20:30 AM", "1/31/2009 10:20:30 AM"));
}

TEST_F(ForeignRows, HoldNumbersThatAreTooLargeForTheirDeclaredType) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, l INTEGER, d INT, b INTEGER, g BIGINT, r INT); CREATE INDEX "
         "byB "
         "ON t(b);"
         "INSERT INTO t VALUES(1, 2147483647, 2147483648, 9007199254740993, -9223372036854775808, 1.5), (2, "
         "-2147483648, -9007199254740992, 7, 5, 2)");
    EXPECT_THAT(fieldsOf(database.TableDefs("t")),
                ElementsAre("id:4/4", "l:4/4", "d:7/8", "b:10/20", "g:10/20", "r:7/8"));
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.Fields("d").Value(), Value(2147483648.0));
    EXPECT_EQ(rows.Fields("b").Value(), Value(std::string("9007199254740993")));
    EXPECT_EQ(rows.Fields("g").Value(), Value(std::string("-9223372036854775808")));
    EXPECT_EQ(rows.Fields("r").Value(), Value(1.5));
    rows.Index("byB");
    rows.Seek("=", {"9007199254740993"});
    ASSERT_FALSE(rows.NoMatch());
    EXPECT_EQ(rows.Bookmark(), "1");
    set(rows, "b", "9223372036854775807");
    set(rows, "d", 4294967296.0);
    EXPECT_EQ(valueText(rows.Fields("b").Value()), "9223372036854775807");
    rows.Close();
    EXPECT_EQ(file.value("SELECT b, typeof(b), d, typeof(d) FROM t WHERE id = 1"),
              "9223372036854775807|integer|4294967296|integer");
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")),
                ElementsAre("id:4/4", "l:4/4", "d:7/8", "b:10/20", "g:10/20", "r:7/8"));
}

TEST_F(ForeignRows, CountByNumbersThatAreTooLargeForALong) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT); INSERT INTO t VALUES(9007199254740993, 'x'), (5, "
         "'y')");
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("id:10/20", "a:12/0"));
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("5|y", "9007199254740993|x"));
    rows.Seek("=", {"9007199254740993"});
    ASSERT_FALSE(rows.NoMatch());
    set(rows, "id", "9007199254740995");
    EXPECT_EQ(rows.LastModified(), "9007199254740995");
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "x");
}

TEST_F(ForeignRows, SayWhichValueHasNoMeaningInItsField) {
    make("CREATE TABLE t(i SMALLINT, d DATE, b TINYINT); INSERT INTO t VALUES(70000, 'soon', -1)");
    Recordset rows = database.OpenRecordset("t");
    for (const char* field : {"i", "d", "b"})
        EXPECT_EQ(errorOf([&] { valueText(rows.Fields(field).Value()); }).number(), 3421) << field;
    EXPECT_EQ(file.value("SELECT * FROM t"), "70000|soon|-1");
}

TEST_F(ForeignRows, TakeAddedChangedAndDeletedRows) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, name VARCHAR(10) NOT NULL, price DECIMAL(8,2), born DATE, "
         "stock INT DEFAULT 5);"
         "INSERT INTO t VALUES(1, 'one', 1.5, '2001-02-03', 1), (2, 'two', NULL, NULL, 2)");
    Recordset rows = database.OpenRecordset("t");
    add(rows, {{"name", "three"},
               {"price", runtime::Currency{199900}},
               {"born", runtime::dateFromIso("2004-05-06")}});
    rows.Bookmark(rows.LastModified());
    EXPECT_EQ(valueText(rows.Fields("id").Value()), "3");
    EXPECT_EQ(valueText(rows.Fields("stock").Value()), "5");
    rows.MoveFirst();
    set(rows, "price", runtime::Currency{25000});
    rows.MoveNext();
    rows.Delete();
    rows.Close();
    EXPECT_THAT(file.rows("SELECT *, typeof(price) FROM t"),
                ElementsAre("1|one|2.5|2001-02-03|1|real", "3|three|19.99|2004-05-06 00:00:00|5|real"));
}

TEST_F(ForeignRows, HoldToWhatTheirMakersDemand) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, name VARCHAR(10) NOT NULL, code TEXT UNIQUE, n INT CHECK(n "
         "> 0));"
         "INSERT INTO t VALUES(1, 'one', 'a', 1)");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(errorOf([&] { add(rows, {{"code", "b"}}); }).number(), 3314);
    EXPECT_EQ(errorOf([&] { add(rows, {{"name", "x"}, {"code", "a"}}); }).number(), 3022);
    EXPECT_EQ(errorOf([&] { add(rows, {{"name", "x"}, {"id", 1}}); }).number(), 3022);
    EXPECT_EQ(errorOf([&] { add(rows, {{"name", "far too long"}}); }).number(), 3163);
    EXPECT_NE(errorOf([&] { add(rows, {{"name", "x"}, {"n", -1}}); }).number(), 0);
    rows.CancelUpdate();
    EXPECT_EQ(rows.RecordCount(), 1);
    add(rows, {{"name", ""}});
    EXPECT_EQ(file.value("SELECT count(*) FROM t WHERE name = ''"), "1");
}

TEST_F(ForeignRows, KeepBookmarksOfTheirRowIds) {
    make("CREATE TABLE t(a TEXT); INSERT INTO t(rowid, a) VALUES(-5, 'x'), (10, 'y'), (9223372036854775807, "
         "'z')");
    std::vector<std::string> marks;
    {
        Recordset rows = database.OpenRecordset("t");
        for (; !rows.AtEOF(); rows.MoveNext())
            marks.push_back(rows.Bookmark());
    }
    EXPECT_THAT(marks, ElementsAre("-5", "10", "9223372036854775807"));
    reopen();
    Recordset rows = database.OpenRecordset("t");
    rows.Bookmark(marks[2]);
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "z");
    rows.Bookmark(marks[0]);
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "x");
}

TEST_F(ForeignRows, ShowRowsThatTriggersWrite) {
    make("CREATE TABLE t(a INT); CREATE TABLE log(what TEXT);"
         "CREATE TRIGGER r AFTER INSERT ON t BEGIN INSERT INTO log VALUES('t ' || new.a); END");
    Recordset log = database.OpenRecordset("log");
    EXPECT_EQ(log.RecordCount(), 0);
    Recordset rows = database.OpenRecordset("t");
    add(rows, {{"a", 7}});
    EXPECT_EQ(log.RecordCount(), 1);
    log.MoveFirst();
    EXPECT_EQ(valueText(log.Fields(0).Value()), "t 7");
}

// ---------------------------------------------------------------- orders

TEST_F(ForeignRows, WalkIndexesInTheOrderOfTheirMakers) {
    make(
        "CREATE TABLE t(a TEXT COLLATE nocase, b TEXT, n INT);"
        "CREATE INDEX byA ON t(a, n DESC); CREATE INDEX byB ON t(b); CREATE INDEX byN ON t(n DESC);"
        "INSERT INTO t VALUES('b', 'b', 1), ('A', 'A', 2), ('B', 'B', 3), ('a', 'a', NULL), (NULL, NULL, 1)");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walkBy(rows, "byA"), ElementsAre("Null|Null|1", "A|A|2", "a|a|Null", "B|B|3", "b|b|1"));
    EXPECT_THAT(walkBack(rows, 0), ElementsAre("b", "B", "a", "A", "Null"));
    EXPECT_THAT(walkBy(rows, "byB"), ElementsAre("Null|Null|1", "A|A|2", "B|B|3", "a|a|Null", "b|b|1"));
    EXPECT_THAT(walkBack(rows, 1), ElementsAre("b", "a", "B", "A", "Null"));
    EXPECT_THAT(walkBy(rows, "byN"), ElementsAre("B|B|3", "A|A|2", "b|b|1", "Null|Null|1", "a|a|Null"));
    EXPECT_THAT(walkBack(rows, 2), ElementsAre("Null", "1", "1", "2", "3"));
}

TEST_F(ForeignRows, SeekByTheOrderOfTheirMakers) {
    make(
        "CREATE TABLE t(a TEXT COLLATE nocase, b TEXT, n INT, UNIQUE(b));"
        "CREATE INDEX byA ON t(a, n DESC); CREATE INDEX byN ON t(n DESC);"
        "INSERT INTO t VALUES('b', 'b', 1), ('A', 'A', 2), ('B', 'B', 3), ('a', 'a', NULL), (NULL, NULL, 1)");
    Recordset rows = database.OpenRecordset("t");
    const auto found = [&](const char* comparison, std::initializer_list<Value> keys) {
        rows.Seek(comparison, keys);
        return rows.NoMatch() ? std::string("none")
                              : valueText(rows.Fields("a").Value()) + valueText(rows.Fields("n").Value());
    };
    rows.Index("byA");
    EXPECT_EQ(found("=", {"B"}), "B3");
    EXPECT_EQ(found("=", {"b", 1}), "b1");
    EXPECT_EQ(found("=", {"b", 2}), "none");
    EXPECT_EQ(found(">=", {"b", 2}), "b1") << "the second key descends";
    EXPECT_EQ(found(">=", {"a", 1}), "aNull") << "Null stands last where the order descends";
    EXPECT_EQ(found(">=", {"c"}), "none");
    rows.Index("b");
    EXPECT_EQ(found("=", {"B"}), "B3");
    EXPECT_EQ(found("=", {"c"}), "none");
    EXPECT_EQ(found(">=", {"C"}), "aNull") << "capitals stand before small letters";
    rows.Index("byN");
    EXPECT_EQ(found(">=", {2}), "A2");
    rows.MoveNext();
    EXPECT_EQ(valueText(rows.Fields("n").Value()), "1");
}

TEST_F(ForeignRows, SeekByTheRowId) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT); INSERT INTO t VALUES(3, 'c'), (1, 'a'), (20, 'z')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("1|a", "3|c", "20|z"));
    rows.Seek("=", {3});
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "c");
    rows.Seek(">=", {4});
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "z");
    rows.Seek("=", {4});
    EXPECT_TRUE(rows.NoMatch());
}

TEST_F(ForeignRows, FollowARowWhoseRowIdChanges) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT); INSERT INTO t VALUES(1, 'a'), (2, 'b'), (3, 'c')");
    Recordset rows = database.OpenRecordset("t");
    set(rows, "id", 10);
    EXPECT_EQ(rows.LastModified(), "10");
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "a");
    rows.MoveNext();
    EXPECT_EQ(valueText(rows.Fields("a").Value()), "b");
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF()) << "no row is met twice in one walk";
}

// ---------------------------------------------------------------- tables without row ids

TEST_F(ForeignRows, AreNotOpenedWhereTheyHaveNoRowIds) {
    make("CREATE TABLE t(code TEXT PRIMARY KEY, n INT) WITHOUT ROWID; INSERT INTO t VALUES('a', 1)");
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("code:12/0", "n:4/4"));
    EXPECT_TRUE(database.TableDefs("t").definition().withoutRowKeys);
    const auto error = errorOf([&] { database.OpenRecordset("t"); });
    EXPECT_EQ(error.number(), runtime::errNotSupported);
    EXPECT_EQ(error.description(), "Operation is not supported for this type of object. (" +
                                       file.path().native() +
                                       ") The table 't' is WITHOUT ROWID: its rows can't be opened.");
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("more", dbLong)); // nobody has the table in use
    EXPECT_THAT(fieldsOf(table), ElementsAre("code:12/0", "n:4/4", "more:4/4"));
    table.Fields().Delete("n");
    database.Close();
    EXPECT_EQ(file.value("SELECT * FROM t"), "a|NULL");
}

} // namespace tol::test
