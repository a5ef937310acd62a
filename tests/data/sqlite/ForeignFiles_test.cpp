// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "ForeignFile.h"
#include "data/DBEngine.h"
#include "data/StoreRegistry.h"
#include "runtime/Conversions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tol::test {

using namespace data;
using runtime::Value;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A file that another program made, opened through the database interface.
class ForeignFiles : public testing::Test {
  protected:
    ForeignFiles() {
        StoreRegistry::Engines engines;
        engines.push_back(std::make_unique<sqlite::SqliteEngine>());
        m_before = StoreRegistry::instance().exchangeEngines(std::move(engines));
    }
    ~ForeignFiles() override {
        if (database.isOpen())
            database.Close();
        StoreRegistry::instance().exchangeEngines(std::move(m_before));
    }

    /// Makes the file and opens it.
    void make(const std::string& sql) {
        file.run(sql);
        open();
    }
    void open() {
        workspace = DBEngine::CreateWorkspace("wksTARGET");
        database = workspace.OpenDatabase(file.path().native());
    }
    void reopen() {
        database.Close();
        open();
    }

    TempFolder folder;
    ForeignFile file{folder / "OTHER.DB"};
    Workspace workspace;
    Database database;

  private:
    StoreRegistry::Engines m_before;
};

std::string textOf(const Value& value) {
    return value.isNull() ? "Null" : runtime::toText(value);
}

/// Each row's fields as texts, joined by "|", in the current order.
std::vector<std::string> walk(Recordset& rows) {
    std::vector<std::string> texts;
    for (; !rows.AtEOF(); rows.MoveNext()) {
        std::string text;
        for (int field = 0; field < rows.Fields().Count(); ++field)
            text += (field == 0 ? "" : "|") + textOf(rows.Fields(field).Value());
        texts.push_back(text);
    }
    return texts;
}

std::vector<std::string> walkBy(Recordset& rows, const std::string& index) {
    rows.Index(index);
    return walk(rows);
}

std::vector<std::string> walkBack(Recordset& rows, int field) {
    std::vector<std::string> texts;
    for (rows.MoveLast(); !rows.AtBOF(); rows.MovePrevious())
        texts.push_back(textOf(rows.Fields(field).Value()));
    return texts;
}

void set(Recordset& rows, const std::string& field, const Value& value) {
    rows.Edit();
    rows.Fields(field).Value(value);
    rows.Update();
}

void add(Recordset& rows, std::initializer_list<std::pair<const char*, Value>> values) {
    rows.AddNew();
    for (const auto& [field, value] : values)
        rows.Fields(field).Value(value);
    rows.Update();
}

/// "name:type/size" of each field.
std::vector<std::string> fieldsOf(const TableDef& table) {
    std::vector<std::string> texts;
    for (const FieldDef& field : table.definition().fields)
        texts.push_back(field.name + ":" + std::to_string(field.type) + "/" + std::to_string(field.size));
    return texts;
}

std::vector<std::string> indexesOf(const TableDef& table) {
    std::vector<std::string> names;
    for (const IndexDef& index : table.definition().indexes)
        names.push_back(index.name);
    return names;
}

} // namespace

// ---------------------------------------------------------------- rows

TEST_F(ForeignFiles, ReadValuesAsTheirFieldTypes) {
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

TEST_F(ForeignFiles, ReadDatesInEveryFormThatSqliteKnows) {
    make("CREATE TABLE t(d DATETIME); INSERT INTO t VALUES('2009-01-31 10:20:30'), ('2009-01-31'), "
         "('2009-01-31T10:20:30'), "
         "('2009-01-31 10:20:30.500'), (1233397230), (2454862.9309027777)");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows),
                ElementsAre("1/31/2009 10:20:30 AM", "1/31/2009", "1/31/2009 10:20:30 AM",
                            "1/31/2009 10:20:30 AM", "1/31/2009 10:20:30 AM", "1/31/2009 10:20:30 AM"));
}

TEST_F(ForeignFiles, SayWhichValueHasNoMeaningInItsField) {
    make("CREATE TABLE t(i SMALLINT, d DATE, b TINYINT); INSERT INTO t VALUES(70000, 'soon', -1)");
    Recordset rows = database.OpenRecordset("t");
    for (const char* field : {"i", "d", "b"})
        EXPECT_EQ(errorOf([&] { textOf(rows.Fields(field).Value()); }).number(), 3421) << field;
    EXPECT_EQ(file.value("SELECT * FROM t"), "70000|soon|-1");
}

TEST_F(ForeignFiles, TakeAddedChangedAndDeletedRows) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, name VARCHAR(10) NOT NULL, price DECIMAL(8,2), born DATE, "
         "stock INT DEFAULT 5);"
         "INSERT INTO t VALUES(1, 'one', 1.5, '2001-02-03', 1), (2, 'two', NULL, NULL, 2)");
    Recordset rows = database.OpenRecordset("t");
    add(rows, {{"name", "three"},
               {"price", runtime::Currency{199900}},
               {"born", runtime::dateFromIso("2004-05-06")}});
    rows.Bookmark(rows.LastModified());
    EXPECT_EQ(textOf(rows.Fields("id").Value()), "3");
    EXPECT_EQ(textOf(rows.Fields("stock").Value()), "5");
    rows.MoveFirst();
    set(rows, "price", runtime::Currency{25000});
    rows.MoveNext();
    rows.Delete();
    rows.Close();
    EXPECT_THAT(file.rows("SELECT *, typeof(price) FROM t"),
                ElementsAre("1|one|2.5|2001-02-03|1|real", "3|three|19.99|2004-05-06 00:00:00|5|real"));
}

TEST_F(ForeignFiles, HoldToWhatTheirMakersDemand) {
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

TEST_F(ForeignFiles, KeepBookmarksOfTheirRowIds) {
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
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "z");
    rows.Bookmark(marks[0]);
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "x");
}

TEST_F(ForeignFiles, ShowRowsThatTriggersWrite) {
    make("CREATE TABLE t(a INT); CREATE TABLE log(what TEXT);"
         "CREATE TRIGGER r AFTER INSERT ON t BEGIN INSERT INTO log VALUES('t ' || new.a); END");
    Recordset log = database.OpenRecordset("log");
    EXPECT_EQ(log.RecordCount(), 0);
    Recordset rows = database.OpenRecordset("t");
    add(rows, {{"a", 7}});
    EXPECT_EQ(log.RecordCount(), 1);
    log.MoveFirst();
    EXPECT_EQ(textOf(log.Fields(0).Value()), "t 7");
}

// ---------------------------------------------------------------- orders

TEST_F(ForeignFiles, WalkIndexesInTheOrderOfTheirMakers) {
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

TEST_F(ForeignFiles, SeekByTheOrderOfTheirMakers) {
    make(
        "CREATE TABLE t(a TEXT COLLATE nocase, b TEXT, n INT, UNIQUE(b));"
        "CREATE INDEX byA ON t(a, n DESC); CREATE INDEX byN ON t(n DESC);"
        "INSERT INTO t VALUES('b', 'b', 1), ('A', 'A', 2), ('B', 'B', 3), ('a', 'a', NULL), (NULL, NULL, 1)");
    Recordset rows = database.OpenRecordset("t");
    const auto found = [&](const char* comparison, std::initializer_list<Value> keys) {
        rows.Seek(comparison, keys);
        return rows.NoMatch() ? std::string("none")
                              : textOf(rows.Fields("a").Value()) + textOf(rows.Fields("n").Value());
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
    EXPECT_EQ(textOf(rows.Fields("n").Value()), "1");
}

TEST_F(ForeignFiles, SeekByTheRowId) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT); INSERT INTO t VALUES(3, 'c'), (1, 'a'), (20, 'z')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("1|a", "3|c", "20|z"));
    rows.Seek("=", {3});
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "c");
    rows.Seek(">=", {4});
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "z");
    rows.Seek("=", {4});
    EXPECT_TRUE(rows.NoMatch());
}

TEST_F(ForeignFiles, FollowARowWhoseRowIdChanges) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT); INSERT INTO t VALUES(1, 'a'), (2, 'b'), (3, 'c')");
    Recordset rows = database.OpenRecordset("t");
    set(rows, "id", 10);
    EXPECT_EQ(rows.LastModified(), "10");
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "a");
    rows.MoveNext();
    EXPECT_EQ(textOf(rows.Fields("a").Value()), "b");
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF()) << "no row is met twice in one walk";
}

// ---------------------------------------------------------------- tables without row ids

TEST_F(ForeignFiles, WalkAndChangeTablesWithoutRowIds) {
    make(
        "CREATE TABLE t(code TEXT, n INT, note TEXT, PRIMARY KEY(code COLLATE nocase, n DESC)) WITHOUT ROWID;"
        "CREATE INDEX byNote ON t(note);"
        "INSERT INTO t VALUES('b', 1, 'x'), ('A', 2, 'y'), ('a', 3, 'x')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("a|3|x", "A|2|y", "b|1|x"));
    EXPECT_THAT(walkBack(rows, 1), ElementsAre("1", "2", "3"));
    EXPECT_THAT(walkBy(rows, "byNote"), ElementsAre("a|3|x", "b|1|x", "A|2|y"));
    EXPECT_THAT(walkBack(rows, 1), ElementsAre("2", "1", "3"));
    EXPECT_THAT(walkBy(rows, ""), ElementsAre("a|3|x", "A|2|y", "b|1|x"));

    rows.Index("PrimaryKey");
    rows.Seek("=", {"A", 2});
    ASSERT_FALSE(rows.NoMatch());
    set(rows, "note", "changed");
    set(rows, "n", 9);
    EXPECT_EQ(textOf(rows.Fields("note").Value()), "changed");
    add(rows, {{"code", "c"}, {"n", 1}});
    rows.Bookmark(rows.LastModified());
    EXPECT_EQ(textOf(rows.Fields("code").Value()), "c");
    EXPECT_EQ(errorOf([&] { add(rows, {{"code", "C"}, {"n", 1}}); }).number(), 3022);
    rows.CancelUpdate();
    rows.MoveFirst();
    rows.Delete();
    rows.Close();
    EXPECT_THAT(file.rows("SELECT * FROM t ORDER BY code COLLATE nocase, n DESC"),
                ElementsAre("a|3|x", "b|1|x", "c|1|NULL"));
}

TEST_F(ForeignFiles, MissNoRowWhereAnIndexTellsFewerTextsApartThanThePrimaryKey) {
    make("CREATE TABLE t(code TEXT PRIMARY KEY, n INT) WITHOUT ROWID; CREATE INDEX loose ON t(code COLLATE "
         "nocase);"
         "WITH RECURSIVE c(x) AS (SELECT 0 UNION ALL SELECT x + 1 FROM c WHERE x < 99)"
         "INSERT INTO t SELECT char(65 + x / 10) || char(97 + x % 10), x FROM c;"
         "INSERT INTO t SELECT lower(code), n FROM t; INSERT OR IGNORE INTO t SELECT upper(code), n FROM t");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(walkBy(rows, "loose").size(), 300U);
    EXPECT_EQ(walkBack(rows, 0).size(), 300U);
}

TEST_F(ForeignFiles, KeepBookmarksOfTablesWithoutRowIds) {
    make("CREATE TABLE t(k PRIMARY KEY, v TEXT) WITHOUT ROWID;"
         "INSERT INTO t VALUES(5, 'integer'), (2.5, 'real'), ('', 'blank'), ('5', 'text'), (x'00ff', "
         "'bytes')");
    std::map<std::string, std::string> marks;
    {
        Recordset rows = database.OpenRecordset("t");
        for (; !rows.AtEOF(); rows.MoveNext())
            marks[rows.Bookmark()] = textOf(rows.Fields("v").Value());
    }
    EXPECT_EQ(marks.size(), 5U);
    reopen();
    Recordset rows = database.OpenRecordset("t");
    for (const auto& [mark, value] : marks) {
        rows.Bookmark(mark);
        EXPECT_EQ(textOf(rows.Fields("v").Value()), value);
    }
}

TEST_F(ForeignFiles, MakeARowIdTableWhenAPrimaryKeyIsDeleted) {
    make("CREATE TABLE t(k TEXT PRIMARY KEY, v TEXT) WITHOUT ROWID; INSERT INTO t VALUES('b', '2'), ('a', "
         "'1')");
    database.TableDefs("t").Indexes().Delete("PrimaryKey");
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walk(rows), ElementsAre("a|1", "b|2"));
        add(rows, {{"k", "a"}, {"v", "3"}});
        EXPECT_EQ(rows.LastModified(), "3");
    }
    database.TableDefs("t").Fields().Delete("k");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows), ElementsAre("1", "2", "3"));
}

// ---------------------------------------------------------------- definitions

TEST_F(ForeignFiles, TakeNewFieldsAndIndexes) {
    make("CREATE TABLE t(name VARCHAR(20), n INT); INSERT INTO t VALUES('b', 1), ('B', 2), ('a', 3)");
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("Price", dbCurrency));
    table.Fields().Append(table.CreateField("Größe", dbText, 7));
    Index index = table.CreateIndex("ByName");
    index.Fields().Append(index.CreateField("name"));
    index.Fields().Append(index.CreateField("Price"));
    table.Indexes().Append(index);
    {
        Recordset rows = database.OpenRecordset("t");
        set(rows, "Price", runtime::Currency{12345});
        set(rows, "Größe", "groß");
        EXPECT_THAT(walkBy(rows, "ByName"), ElementsAre("a|3|Null|Null", "B|2|Null|Null", "b|1|1.2345|groß"))
            << "our indexes sort texts without regard to case";
        rows.Seek("=", {"B", runtime::Currency{12345}});
        EXPECT_EQ(textOf(rows.Fields("n").Value()), "1");
    }
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")),
                ElementsAre("name:10/20", "n:4/4", "Price:5/8", "Größe:10/7"));
    EXPECT_THAT(indexesOf(database.TableDefs("t")), ElementsAre("ByName"));
    EXPECT_FALSE(database.TableDefs("t").Fields()("Größe").AllowZeroLength());
    EXPECT_TRUE(database.TableDefs("t").Fields()("name").AllowZeroLength());
    EXPECT_EQ(file.value("SELECT Price, typeof(Price) FROM t WHERE n = 1"), "12345|integer");
    EXPECT_EQ(file.value("SELECT type FROM pragma_table_info('t') WHERE name = 'Price'"), "CURRENCY INTEGER");
}

TEST_F(ForeignFiles, TakeNewTablesBesideTheirOwn) {
    make("CREATE TABLE theirs(a)");
    TableDef table = database.CreateTableDef("Ours");
    table.Fields().Append(table.CreateField("a", dbText, 5));
    database.TableDefs().Append(table);
    reopen();
    EXPECT_EQ(database.TableDefs().Count(), 2);
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 'theirs'"), "CREATE TABLE theirs(a)");
    database.TableDefs().Delete("theirs");
    EXPECT_EQ(database.TableDefs().Count(), 1);
    EXPECT_EQ(file.value("PRAGMA application_id"), "0") << "the file stays its maker's";
}

TEST_F(ForeignFiles, LoseFieldsThatMayStayBehindAtOnce) {
    make("CREATE TABLE t(a INT, b TEXT, c INT DEFAULT 3); CREATE VIEW v AS SELECT a FROM t; INSERT INTO t "
         "VALUES(1, 'x', 2)");
    database.TableDefs("t").Fields().Delete("b");
    database.TableDefs("t").Fields().Delete("c");
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walk(rows), ElementsAre("1"));
        add(rows, {{"a", 2}});
    }
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("b", dbLong));
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("a:4/4", "b:4/4"));
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("a:4/4", "b:4/4"));
    EXPECT_THAT(file.rows("SELECT * FROM v"), ElementsAre("1", "2"));
}

TEST_F(ForeignFiles, LoseFieldsThatMustHaveValuesByARebuild) {
    make("CREATE TABLE t(a INT NOT NULL, b TEXT CHECK(b <> ''), c INT); CREATE INDEX i ON t(c); INSERT INTO "
         "t(rowid, a, b, c) VALUES(7, 1, 'x', 2)");
    database.TableDefs("t").Fields().Delete("a");
    database.TableDefs("t").Fields().Delete("b");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.Bookmark(), "7");
    add(rows, {{"c", 3}});
    EXPECT_THAT(walkBy(rows, "i"), ElementsAre("2", "3"));
    rows.Close();
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 't'"), "CREATE TABLE \"t\"(  c INT)");
}

TEST_F(ForeignFiles, RenameFieldsWithAllThatNamesThem) {
    make("CREATE TABLE t(a INT, b INT CHECK(b > 0), PRIMARY KEY(a)); CREATE VIEW v AS SELECT b FROM t; "
         "CREATE INDEX i ON t(b);"
         "CREATE TABLE child(x INT REFERENCES t(a)); INSERT INTO t VALUES(1, 2)");

    auto store = StoreRegistry::instance().open(file.path(), false);
    store->store().renameField("t", "b", "New Name");
    store->store().renameField("t", "a", "Key");
    store.reset();
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("Key:4/4", "New Name:4/4"));
    EXPECT_THAT(file.rows("SELECT * FROM v"), ElementsAre("2"));
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 'child'"),
              "CREATE TABLE child(x INT REFERENCES t(\"Key\"))");
}

TEST_F(ForeignFiles, AreChangedAlthoughAViewIsBroken) {
    make("CREATE TABLE t(a INT, b INT); CREATE TABLE child(x REFERENCES t(a)); CREATE VIEW good AS SELECT a "
         "FROM t; CREATE VIEW bad AS SELECT zz FROM t;"
         "CREATE TRIGGER works AFTER INSERT ON t BEGIN INSERT INTO child VALUES(new.a); END; INSERT INTO t "
         "VALUES(1, 2)");
    database.TableDefs("t").Fields().Delete("b");
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("c", dbLong));
    table.Name("u");
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("u")), ElementsAre("a:4/4", "c:4/4"));
    EXPECT_THAT(file.rows("SELECT * FROM good"), ElementsAre("1"));
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 'child'"),
              "CREATE TABLE child(x REFERENCES \"u\"(a))");
    file.run("INSERT INTO u(a) VALUES(5)");
    EXPECT_EQ(file.value("SELECT count(*) FROM child"), "2");
}

TEST_F(ForeignFiles, AreChangedAlthoughATriggerIsBroken) {
    make("CREATE TABLE t(a INT, b INT); CREATE TRIGGER bad AFTER INSERT ON t BEGIN SELECT nosuch; END;"
         "CREATE VIEW v AS SELECT a FROM t");
    database.TableDefs("t").Fields().Delete("b");
    database.TableDefs("t").Name("u");
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("u")), ElementsAre("a:4/4"));
    EXPECT_EQ(file.value("SELECT tbl_name FROM sqlite_schema WHERE name = 'bad'"), "u");
}

TEST_F(ForeignFiles, KeepPositionsAndZeroLengthRulesOfTheirFields) {
    make("CREATE TABLE t(a TEXT, b TEXT, c TEXT)");
    TableDef table = database.TableDefs("t");
    table.Fields()("a").OrdinalPosition(5);
    table.Fields()("b").AllowZeroLength(false);
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("b:12/0", "c:12/0", "a:12/0"));
    EXPECT_EQ(database.TableDefs("t").Fields()("a").OrdinalPosition(), 5);
    EXPECT_TRUE(database.TableDefs("t").Fields()("a").AllowZeroLength());
    EXPECT_FALSE(database.TableDefs("t").Fields()("b").AllowZeroLength());
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(errorOf([&] { add(rows, {{"b", ""}}); }).number(), 3315);
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 't'"),
              "CREATE TABLE t(a TEXT, b TEXT, c TEXT)");
}

TEST_F(ForeignFiles, LoseIndexesOfEveryKind) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT UNIQUE, b INT, c INT, CONSTRAINT pair UNIQUE(b, c)); "
         "CREATE INDEX byC ON t(c);"
         "CREATE INDEX part ON t(c) WHERE b > 1; INSERT INTO t VALUES(5, 'x', 1, 2)");
    EXPECT_THAT(indexesOf(database.TableDefs("t")), ElementsAre("PrimaryKey", "a", "pair", "byC"));
    for (const char* name : {"pair", "PrimaryKey", "byC", "a"})
        database.TableDefs("t").Indexes().Delete(name);
    EXPECT_THAT(indexesOf(database.TableDefs("t")), IsEmpty());
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.Bookmark(), "5");
    add(rows, {{"id", 5}, {"a", "x"}, {"b", 1}, {"c", 2}});
    EXPECT_EQ(rows.LastModified(), "6");
    rows.Close();
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 't'"),
              "CREATE TABLE \"t\"(id INTEGER , a TEXT , b INT, c INT)");
    EXPECT_EQ(file.value("SELECT count(*) FROM sqlite_schema WHERE name = 'part'"), "1");
}

TEST_F(ForeignFiles, CopeWithAnyName) {
    make("CREATE TABLE \"select \"\"from\"\" 'y'\"(\"order by\" INT, [a b] INT, `ä\"` TEXT);"
         "CREATE UNIQUE INDEX \"in.\"\"dex\" ON \"select \"\"from\"\" 'y'\"(\"order by\", `ä\"`);"
         "INSERT INTO \"select \"\"from\"\" 'y'\" VALUES(1, 2, 'it''s')");
    const std::string name = "select \"from\" 'y'";
    TableDef table = database.TableDefs(name);
    table.Fields().Append(table.CreateField("new \"field\"", dbText, 5));
    Index index = table.CreateIndex("by {new}");
    index.Fields().Append(index.CreateField("new \"field\""));
    table.Indexes().Append(index);
    table.Fields().Delete("a b");
    Recordset rows = database.OpenRecordset(name);
    rows.Index("in.\"dex");
    rows.Seek("=", {1, "it's"});
    ASSERT_FALSE(rows.NoMatch());
    set(rows, "new \"field\"", "v\"'");
    EXPECT_THAT(walkBy(rows, "by {new}"), ElementsAre("1|it's|v\"'"));
}

TEST_F(ForeignFiles, TakeNewFieldsInStrictTables) {
    make("CREATE TABLE t(a INTEGER PRIMARY KEY) STRICT; INSERT INTO t VALUES(1)");
    TableDef table = database.TableDefs("t");
    for (const auto& [name, type] :
         {std::pair{"b", dbBoolean}, {"c", dbCurrency}, {"d", dbDate}, {"s", dbSingle}, {"g", dbGUID}})
        table.Fields().Append(table.CreateField(name, type));
    table.Fields().Append(table.CreateField("t", dbText, 9));
    {
        Recordset rows = database.OpenRecordset("t");
        rows.Edit();
        rows.Fields("b").Value(true);
        rows.Fields("c").Value(runtime::Currency{15000});
        rows.Fields("d").Value(runtime::dateFromIso("2001-02-03"));
        rows.Fields("s").Value(1.5F);
        rows.Fields("t").Value("text");
        rows.Update();
    }
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")),
                ElementsAre("a:4/4", "b:1/1", "c:5/8", "d:8/8", "s:6/4", "g:15/16", "t:10/9"));
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows), ElementsAre("1|True|1.5|2/3/2001|1.5|Null|text"));
}

TEST_F(ForeignFiles, AreNotChangedByLooking) {
    file.run(
        "CREATE TABLE t(a INT PRIMARY KEY, b TEXT); CREATE VIEW v AS SELECT 1; INSERT INTO t VALUES(1, 'x')");
    const std::string before = folder.read("OTHER.DB");
    open();
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("1|x"));
        EXPECT_EQ(database.TableDefs().Count(), 1);
        database.TableDefs("t").Fields()("a").OrdinalPosition(0);
        database.TableDefs("t").Fields()("b").AllowZeroLength(true);
    }
    database.Close();
    EXPECT_EQ(folder.read("OTHER.DB"), before);
}

TEST_F(ForeignFiles, SeeTheirMakersChangesWhileOpen) {
    make("CREATE TABLE t(a INT)");
    EXPECT_EQ(database.TableDefs().Count(), 1);
    file.run("ALTER TABLE t ADD COLUMN b TEXT(3); CREATE TABLE u(x); INSERT INTO t VALUES(1, 'x')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows), ElementsAre("1|x"));
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("a:4/4", "b:10/3"));
    EXPECT_EQ(database.TableDefs().Count(), 2);
}

} // namespace tol::test
