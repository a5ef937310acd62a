// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "ForeignFilesTest.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data;
using testing::ElementsAre;
using testing::IsEmpty;

class ForeignDefinitions : public ForeignFilesTest {};

namespace {

std::vector<std::string> wordsOf(const SchemaNotes& notes) {
    std::vector<std::string> words;
    for (const SchemaNote& note : notes)
        words.push_back(note.table + ": " + kindWord(note.kind) + " " + note.name);
    return words;
}

} // namespace

TEST_F(ForeignDefinitions, KeepAConstraintInForceWhoseIndexIsDeleted) {
    make("CREATE TABLE t(k TEXT PRIMARY KEY, v TEXT UNIQUE, n INT); INSERT INTO t VALUES('a', '1', 2), ('b', "
         "'2', 1)");
    database.TableDefs("t").Indexes().Delete("PrimaryKey");
    database.TableDefs("t").Indexes().Delete("v");
    EXPECT_THAT(wordsOf(database.takeNotes()),
                ElementsAre("t: still in force PrimaryKey", "t: still in force v"));
    EXPECT_THAT(database.takeNotes(), IsEmpty());
    reopen();
    EXPECT_THAT(indexesOf(database.TableDefs("t")), IsEmpty());
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walk(rows), ElementsAre("a|1|2", "b|2|1"));
        const auto error = errorOf([&] { add(rows, {{"k", "a"}, {"v", "3"}}); });
        EXPECT_EQ(error.number(), 3022);
        EXPECT_THAT(error.description(), testing::HasSubstr("'t.k'")) << "no message has a gap";
        EXPECT_EQ(errorOf([&] { add(rows, {{"k", "c"}, {"v", "1"}}); }).number(), 3022);
    }
    TableDef table = database.TableDefs("t");
    Index index = table.CreateIndex("PrimaryKey");
    index.Fields().Append(index.CreateField("k"));
    table.Indexes().Append(index);
    reopen();
    EXPECT_THAT(indexesOf(database.TableDefs("t")), ElementsAre("PrimaryKey"));
    EXPECT_FALSE(database.TableDefs("t").Indexes()("PrimaryKey").Primary());
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("a|1|2", "b|2|1"));
    }
    database.TableDefs("t").Name("u");
    reopen();
    EXPECT_THAT(indexesOf(database.TableDefs("u")), ElementsAre("PrimaryKey"));
    database.TableDefs("u").Indexes().Delete("PrimaryKey");
    database.TableDefs("u").Fields().Delete("v"); // the table is made anew
    EXPECT_THAT(wordsOf(database.takeNotes()), ElementsAre("u: unique v"));
    EXPECT_THAT(indexesOf(database.TableDefs("u")), IsEmpty()) << "the primary key's stays deleted";
    EXPECT_EQ(file.value("SELECT count(*) FROM pragma_index_list('u') WHERE origin = 'pk'"), "1");
}

TEST_F(ForeignDefinitions, WalkAnIndexOnTheRowId) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, a TEXT); INSERT INTO t VALUES(3, 'c'), (1, "
         "'a'), (20, 'z')");
    TableDef table = database.TableDefs("t");
    table.Indexes().Delete("PrimaryKey");
    Index index = table.CreateIndex("PrimaryKey");
    index.Fields().Append(index.CreateField("id"));
    table.Indexes().Append(index);
    {
        Recordset rows = database.OpenRecordset("t");
        EXPECT_THAT(walkBy(rows, "PrimaryKey"), ElementsAre("1|a", "3|c", "20|z"));
        EXPECT_THAT(walkBack(rows, 0), ElementsAre("20", "3", "1"));
        rows.Seek(">=", {4});
        EXPECT_EQ(valueText(rows.Fields("a").Value()), "z");
        rows.Seek("=", {4});
        EXPECT_TRUE(rows.NoMatch());
    }
    EXPECT_EQ(file.value("PRAGMA integrity_check"), "ok");
    file.run("INSERT INTO t(a) VALUES('next')");
    EXPECT_EQ(file.value("SELECT max(id) FROM t"), "21");
}

TEST_F(ForeignDefinitions, BringBackWithAFieldWhatWentWithIt) {
    make(
        "CREATE TABLE t(id INTEGER PRIMARY KEY, a INT, b INT NOT NULL DEFAULT 3); CREATE TABLE log(x);"
        "CREATE VIEW v AS SELECT b FROM t; CREATE INDEX part ON t(a) WHERE b > 1; CREATE INDEX expr ON t(b + "
        "1); CREATE TRIGGER r AFTER UPDATE OF b ON t BEGIN INSERT INTO log VALUES(new.b); END;"
        "INSERT INTO t VALUES(1, 2, 3)");
    const std::string others =
        "SELECT type, name, sql FROM sqlite_schema WHERE name NOT IN ('t') AND name NOT "
        "LIKE 'MSys%' ORDER BY name";
    const auto before = file.rows(others);
    database.TableDefs("t").Fields().Delete("b");
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("B", dbText, 5));
    runtime::flush();
    EXPECT_EQ(file.rows(others), before);
    EXPECT_THAT(wordsOf(database.takeNotes()), ElementsAre("t: default b", "t: not null b"));
    table.Fields().Delete("B");
    EXPECT_THAT(wordsOf(database.takeNotes()),
                testing::UnorderedElementsAre("t: view v", "t: index part", "t: index expr", "t: trigger r"));
    runtime::flush();
    EXPECT_THAT(file.rows(others),
                ElementsAre("table|log|CREATE TABLE log(x)", "view|v|CREATE VIEW v AS SELECT b FROM t"));
}

TEST_F(ForeignDefinitions, BringBackWithANameWhatWentWithIt) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a INT, b INT); CREATE VIEW v AS SELECT b FROM t; CREATE "
         "INDEX "
         "part ON t(a) WHERE b > 1; CREATE TRIGGER r AFTER UPDATE OF b ON t BEGIN SELECT new.b; END");
    const std::string others =
        "SELECT type, name, sql FROM sqlite_schema WHERE name NOT IN ('t') AND name NOT "
        "LIKE 'MSys%' ORDER BY name";
    const auto before = file.rows(others);
    TableDef table = database.TableDefs("t");
    table.Fields().Append(table.CreateField("TEMPFIELD", dbDouble));
    table.Fields().Delete("b");
    table.Fields()("TEMPFIELD").Name("b");
    runtime::flush();
    EXPECT_EQ(file.rows(others), before);
    EXPECT_THAT(database.takeNotes(), IsEmpty());
}

TEST_F(ForeignDefinitions, ForgetWhatARollbackBringsBack) {
    make("CREATE TABLE t(a INT, b INT DEFAULT 3); CREATE VIEW v AS SELECT b FROM t");
    const auto shared = StoreRegistry::instance().open(file.path(), false);
    Store& store = shared->store();
    store.begin();
    store.alter("t", DropField{"b"});
    store.rollback();
    EXPECT_THAT(store.takeNotes(), IsEmpty());
    EXPECT_EQ(store.definition("t")->fields.size(), 2U);
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 'v'"),
              "CREATE VIEW v AS SELECT b FROM t");
}

TEST_F(ForeignDefinitions, SetNoTriggersOffWhereNobodyWants) {
    make("CREATE TABLE t(a INT); CREATE TABLE log(x); CREATE TRIGGER r AFTER UPDATE ON t BEGIN INSERT INTO "
         "log "
         "VALUES(new.a); END; INSERT INTO t VALUES(1)");
    Recordset rows = database.OpenRecordset("t");
    {
        const TriggersOff off(database);
        set(rows, "a", 2);
    }
    EXPECT_EQ(file.value("SELECT count(*) FROM log"), "0");
    set(rows, "a", 3);
    rows.Close();
    EXPECT_EQ(file.value("SELECT x FROM log"), "3");
}

TEST_F(ForeignDefinitions, TakeNewFieldsAndIndexes) {
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
        EXPECT_EQ(valueText(rows.Fields("n").Value()), "1");
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

TEST_F(ForeignDefinitions, TakeNewTablesBesideTheirOwn) {
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

TEST_F(ForeignDefinitions, LoseFieldsThatMayStayBehindAtOnce) {
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

TEST_F(ForeignDefinitions, LoseFieldsThatMustHaveValues) {
    make("CREATE TABLE t(a INT NOT NULL, b TEXT CHECK(b <> ''), c INT); CREATE INDEX i ON t(c); INSERT INTO "
         "t(rowid, a, b, c) VALUES(7, 1, 'x', 2)");
    database.TableDefs("t").Fields().Delete("a");
    database.TableDefs("t").Fields().Delete("b");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.Bookmark(), "7");
    add(rows, {{"c", 3}});
    EXPECT_THAT(walkBy(rows, "i"), ElementsAre("2", "3"));
    rows.Close();
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 't'"), "CREATE TABLE t(c INT)");
}

TEST_F(ForeignDefinitions, RenameFieldsWithAllThatNamesThem) {
    make("CREATE TABLE t(a INT, b INT CHECK(b > 0), PRIMARY KEY(a)); CREATE VIEW v AS SELECT b FROM t; "
         "CREATE INDEX i ON t(b);"
         "CREATE TABLE child(x INT REFERENCES t(a)); INSERT INTO t VALUES(1, 2)");

    auto store = StoreRegistry::instance().open(file.path(), false);
    store->store().alter("t", RenameField{"b", "New Name"});
    store->store().alter("t", RenameField{"a", "Key"});
    store.reset();
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("Key:4/4", "New Name:4/4"));
    EXPECT_THAT(file.rows("SELECT * FROM v"), ElementsAre("2"));
    EXPECT_EQ(file.value("SELECT sql FROM sqlite_schema WHERE name = 'child'"),
              "CREATE TABLE child(x INT REFERENCES t(\"Key\"))");
}

TEST_F(ForeignDefinitions, AreChangedAlthoughAViewIsBroken) {
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

TEST_F(ForeignDefinitions, AreChangedAlthoughATriggerIsBroken) {
    make("CREATE TABLE t(a INT, b INT); CREATE TRIGGER bad AFTER INSERT ON t BEGIN SELECT nosuch; END;"
         "CREATE VIEW v AS SELECT a FROM t");
    database.TableDefs("t").Fields().Delete("b");
    database.TableDefs("t").Name("u");
    reopen();
    EXPECT_THAT(fieldsOf(database.TableDefs("u")), ElementsAre("a:4/4"));
    EXPECT_EQ(file.value("SELECT tbl_name FROM sqlite_schema WHERE name = 'bad'"), "u");
}

TEST_F(ForeignDefinitions, KeepPositionsAndZeroLengthRulesOfTheirFields) {
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

TEST_F(ForeignDefinitions, LoseIndexesOfEveryKind) {
    make("CREATE TABLE t(id INTEGER PRIMARY KEY, a TEXT UNIQUE, b INT, c INT, CONSTRAINT pair UNIQUE(b, c)); "
         "CREATE INDEX byC ON t(c);"
         "CREATE INDEX part ON t(c) WHERE b > 1; INSERT INTO t VALUES(5, 'x', 1, 2)");
    EXPECT_THAT(indexesOf(database.TableDefs("t")), ElementsAre("PrimaryKey", "a", "b_c", "byC"));
    for (const char* name : {"b_c", "PrimaryKey", "byC", "a"})
        database.TableDefs("t").Indexes().Delete(name);
    EXPECT_THAT(indexesOf(database.TableDefs("t")), IsEmpty());
    Recordset rows = database.OpenRecordset("t");
    EXPECT_EQ(rows.Bookmark(), "5");
    add(rows, {{"a", "y"}, {"b", 1}, {"c", 3}});
    EXPECT_EQ(rows.LastModified(), "6");
    rows.Close();
    EXPECT_EQ(file.value("SELECT count(*) FROM sqlite_schema WHERE name = 'part'"), "1");
}

TEST_F(ForeignDefinitions, CopeWithAnyName) {
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

TEST_F(ForeignDefinitions, TakeNewFieldsInStrictTables) {
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

TEST_F(ForeignDefinitions, AreNotChangedByLooking) {
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

TEST_F(ForeignDefinitions, SeeTheirMakersChangesWhileOpen) {
    make("CREATE TABLE t(a INT)");
    EXPECT_EQ(database.TableDefs().Count(), 1);
    file.run("ALTER TABLE t ADD COLUMN b TEXT(3); CREATE TABLE u(x); INSERT INTO t VALUES(1, 'x')");
    Recordset rows = database.OpenRecordset("t");
    EXPECT_THAT(walk(rows), ElementsAre("1|x"));
    EXPECT_THAT(fieldsOf(database.TableDefs("t")), ElementsAre("a:4/4", "b:10/3"));
    EXPECT_EQ(database.TableDefs().Count(), 2);
}

} // namespace tol::test
