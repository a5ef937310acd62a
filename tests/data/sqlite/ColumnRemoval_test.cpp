// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/ColumnRemoval.h"

#include "ForeignFile.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data;
using namespace data::sqlite;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class Removal : public testing::Test {
  protected:
    TempFolder folder;
    ForeignFile file{folder / "other.db"};

    /// Drops the columns one after the other and gives the words and names of what went with them.
    std::vector<std::string> drop(const std::string& table, const std::vector<std::string>& columns) {
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        connection.execute("BEGIN IMMEDIATE");
        Losses losses(connection);
        ColumnRemoval removal(connection, table, losses);
        for (const std::string& column : columns)
            removal.drop(column);
        connection.execute("COMMIT");
        EXPECT_EQ(connection.text("PRAGMA integrity_check"), "ok");
        EXPECT_EQ(connection.number("SELECT count(*) FROM sqlite_schema WHERE name LIKE 'MSys%'"), 0);
        std::vector<std::string> lost;
        for (const SchemaNote& note : losses.takeNotes())
            lost.push_back(kindWord(note.kind) + (note.name.empty() ? "" : " " + note.name));
        return lost;
    }

    [[nodiscard]] std::string sqlOf(const std::string& name) const {
        return file.value("SELECT sql FROM sqlite_schema WHERE name = '" + name + "'");
    }
};

} // namespace

// ---------------------------------------------------------------- by SQLite itself

TEST_F(Removal, LeavesAllElseOfTheTableAsItIs) {
    file.run("CREATE TABLE o(x INTEGER PRIMARY KEY);"
             "CREATE TABLE t(a VARCHAR(5) NOT NULL DEFAULT 'x' COLLATE nocase CHECK(a <> ''), b INT, -- the "
             "second\n c REAL DEFAULT (1 + 1) REFERENCES o DEFERRABLE INITIALLY DEFERRED, d AS (c + 1), "
             "CONSTRAINT pair UNIQUE(a, c)); CREATE INDEX part ON t(a) WHERE c > 1;"
             "INSERT INTO t(rowid, a, b, c) VALUES(7, 'p', 1, 2.5), (-3, 'q', 2, NULL), (9, 'r', NULL, 3)");
    EXPECT_THAT(drop("t", {"B"}), IsEmpty());
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE t(a VARCHAR(5) NOT NULL DEFAULT 'x' COLLATE nocase CHECK(a <> ''), c "
                          "REAL DEFAULT (1 + 1) REFERENCES o DEFERRABLE INITIALLY DEFERRED, d AS (c + 1), "
                          "CONSTRAINT pair UNIQUE(a, c))");
    EXPECT_THAT(file.rows("SELECT rowid, a, c FROM t"),
                UnorderedElementsAre("-3|q|NULL", "7|p|2.5", "9|r|3.0"));
    EXPECT_NE(sqlOf("part"), "");
}

TEST_F(Removal, TellsWhatWasDeclaredForTheColumn) {
    file.run("CREATE TABLE o(x INTEGER PRIMARY KEY);"
             "CREATE TABLE t(a INT, b INT NOT NULL DEFAULT 5 CHECK(b > 0) REFERENCES o, CHECK(a > 0))");
    EXPECT_THAT(drop("t", {"b"}),
                UnorderedElementsAre("default b", "not null b", "check", "foreign key b to o"));
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE t(a INT, CHECK(a > 0))");
}

TEST_F(Removal, NeverLetsAViewFollow) {
    file.run("CREATE TABLE t(a, b, c); CREATE TABLE child(x REFERENCES t(b)); CREATE VIEW bad AS SELECT zz "
             "FROM t; CREATE VIEW \"on all\" AS SELECT * FROM t; CREATE VIEW named AS SELECT a, \"b\" FROM t;"
             "CREATE VIEW second AS SELECT b FROM named; INSERT INTO t VALUES(1, 2, 3)");
    const auto before = file.rows("SELECT name, sql FROM sqlite_schema WHERE name <> 't'");
    EXPECT_THAT(drop("t", {"b"}), UnorderedElementsAre("view named", "reference child"));
    EXPECT_EQ(file.rows("SELECT name, sql FROM sqlite_schema WHERE name <> 't'"), before);
    EXPECT_THAT(file.rows("SELECT * FROM \"on all\""), ElementsAre("1|3"));
}

TEST_F(Removal, TakesTriggersAndIndexesAlongThatNoRowCouldBeWrittenWith) {
    file.run("CREATE TABLE log(what); CREATE TABLE t(a, b, c);"
             "CREATE TRIGGER one AFTER INSERT ON t BEGIN INSERT INTO log VALUES(new.a); END;"
             "CREATE TRIGGER two AFTER INSERT ON t BEGIN INSERT INTO log VALUES(new.b); END;"
             "CREATE TRIGGER three BEFORE UPDATE OF c ON t WHEN old.b > 1 BEGIN SELECT 1; END;"
             "CREATE TRIGGER four AFTER DELETE ON log BEGIN UPDATE t SET b = 1; END;"
             "CREATE TRIGGER five AFTER DELETE ON t BEGIN INSERT INTO log VALUES('b'); END;"
             "CREATE TRIGGER broken AFTER DELETE ON log BEGIN SELECT nosuch; END;"
             "CREATE INDEX part ON t(a) WHERE b > 1; CREATE INDEX expr ON t(lower(\"b\")); CREATE INDEX text "
             "ON t(a || 'b')");
    EXPECT_THAT(drop("t", {"b"}), UnorderedElementsAre("trigger two", "trigger three", "trigger four",
                                                       "index part", "index expr"));
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type IN ('trigger', 'index')"),
                UnorderedElementsAre("one", "five", "broken", "text"));
    file.run("INSERT INTO t VALUES(1, 2); DELETE FROM t");
    EXPECT_THAT(file.rows("SELECT * FROM log"), ElementsAre("1", "b"));
}

TEST_F(Removal, KeepsATableWithoutRowIdsAndAStrictOne) {
    file.run("CREATE TABLE t(a TEXT PRIMARY KEY, b ANY, c INT) WITHOUT ROWID, STRICT; INSERT INTO t "
             "VALUES('k', 'v', 1)");
    EXPECT_THAT(drop("t", {"b"}), IsEmpty());
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE t(a TEXT PRIMARY KEY, c INT) WITHOUT ROWID, STRICT");
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("k|1"));
}

// ---------------------------------------------------------------- by a rebuild

TEST_F(Removal, RebuildsFromWhatSqliteTells) {
    file.run("CREATE TABLE o(x INTEGER PRIMARY KEY, y); "
             "CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, k TEXT UNIQUE, a \"odd, type\" NOT NULL "
             "DEFAULT 'x' COLLATE nocase, b DECIMAL(8, 2) DEFAULT (1 + 1), c DEFAULT -1.5, d DEFAULT word, "
             "parent INT REFERENCES t(id) ON DELETE CASCADE, o INT, UNIQUE(a DESC, b), FOREIGN KEY(o, c) "
             "REFERENCES o(x, y) ON UPDATE SET NULL);"
             "CREATE INDEX part ON t(b) WHERE c > 1; CREATE INDEX plain ON t(a COLLATE binary, c DESC);"
             "INSERT INTO t(id, k, a, b, c, parent) VALUES(5, 'k', 'A', 1.5, x'00', NULL), (100, 'l', 'B', "
             "'odd', NULL, 5); DELETE FROM t WHERE id = 100");
    EXPECT_THAT(drop("t", {"k"}), ElementsAre("unique k"));
    EXPECT_EQ(
        sqlOf("t"),
        "CREATE TABLE \"t\" (\"id\" INTEGER PRIMARY KEY AUTOINCREMENT, \"a\" \"odd, type\" COLLATE "
        "\"nocase\" NOT NULL DEFAULT ('x'), \"b\" \"DECIMAL(8, 2)\" DEFAULT (1 + 1), \"c\" DEFAULT "
        "(-1.5), \"d\" DEFAULT word, \"parent\" INT, \"o\" INT, UNIQUE (\"a\" COLLATE \"nocase\" DESC, "
        "\"b\" COLLATE \"BINARY\"), FOREIGN KEY (\"parent\") REFERENCES \"t\" (\"id\") ON UPDATE NO "
        "ACTION ON DELETE CASCADE, FOREIGN KEY (\"o\", \"c\") REFERENCES \"o\" (\"x\", \"y\") ON UPDATE "
        "SET NULL ON DELETE NO ACTION)");
    EXPECT_THAT(file.rows("SELECT *, typeof(b), quote(c) FROM t"),
                ElementsAre(std::string("5|A|1.5||word|NULL|NULL|real|X'00'")));
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type = 'index' AND sql <> ''"),
                ElementsAre("part", "plain"));
    file.run("INSERT INTO t DEFAULT VALUES");
    EXPECT_EQ(file.value("SELECT id, a, b, c, d FROM t WHERE id > 5"), "101|x|2|-1.5|word");
}

TEST_F(Removal, TellsWhatARebuildGivesUp) {
    file.run(
        "CREATE TABLE o(x INTEGER PRIMARY KEY);"
        "CREATE TABLE t(a INT, b INT, c INT CHECK(c > a), s AS (a + b), FOREIGN KEY(a) REFERENCES o);"
        "CREATE INDEX onS ON t(s); CREATE INDEX onB ON t(b); CREATE INDEX quoted ON t(b) WHERE \"s\" > 1;"
        "INSERT INTO t VALUES(5, 6, 7)");
    EXPECT_THAT(drop("t", {"a"}), UnorderedElementsAre("generated column s", "check", "foreign key a to o",
                                                       "index onS", "index quoted"));
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\" (\"b\" INT, \"c\" INT)");
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("6|7"));
    EXPECT_NE(sqlOf("onB"), "");
}

TEST_F(Removal, KeepsViewsTriggersAndReferencesInARebuild) {
    file.run(
        "CREATE TABLE t(id INTEGER PRIMARY KEY, k UNIQUE, a); CREATE TABLE child(p REFERENCES t(id), q "
        "REFERENCES \"t\"); CREATE TABLE log(x); CREATE VIEW v AS SELECT a FROM t; CREATE TRIGGER r AFTER "
        "INSERT ON t BEGIN INSERT INTO log VALUES(new.a); END; INSERT INTO t VALUES(1, 2, 3)");
    const auto before = file.rows("SELECT name, sql FROM sqlite_schema WHERE name <> 't' ORDER BY name");
    EXPECT_THAT(drop("t", {"k"}), ElementsAre("unique k"));
    EXPECT_EQ(file.rows("SELECT name, sql FROM sqlite_schema WHERE name <> 't' UNION SELECT "
                        "'sqlite_autoindex_t_1', NULL ORDER BY name"),
              before);
    file.run("INSERT INTO t VALUES(7, 8)");
    EXPECT_THAT(file.rows("SELECT * FROM log"), ElementsAre("3", "8"));
    EXPECT_THAT(file.rows("SELECT * FROM v"), ElementsAre("3", "8"));
}

TEST_F(Removal, KeepsRowIdsUnderAllTheirNames) {
    file.run("CREATE TABLE t(rowid TEXT, a UNIQUE, b); INSERT INTO t(_rowid_, rowid, a, b) VALUES(5, 'x', 1, "
             "2), (70, 'y', 3, 4)");
    drop("t", {"a"});
    EXPECT_THAT(file.rows("SELECT _rowid_, * FROM t"), ElementsAre("5|x|2", "70|y|4"));
    drop("t", {"rowid"});
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|2", "70|4"));
}

TEST_F(Removal, GivesAnIntegerKeyUpWithItsColumnOnly) {
    file.run("CREATE TABLE t(id INTEGER PRIMARY KEY, a); INSERT INTO t VALUES(5, 'a'), (50, 'c')");
    EXPECT_THAT(drop("t", {"id"}), ElementsAre("primary key id"));
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|a", "50|c"));
}

TEST_F(Removal, MakesAnOrdinaryTableOfOneWithoutRowIds) {
    file.run("CREATE TABLE t(a TEXT, b INT, c INT UNIQUE, PRIMARY KEY(b DESC, a)) WITHOUT ROWID; CREATE "
             "INDEX i ON t(c, a);"
             "INSERT INTO t VALUES('x', 1, 10), ('y', 2, 20), ('x', 2, 30)");
    EXPECT_THAT(drop("t", {"b"}), UnorderedElementsAre("primary key b, a", "not null b"));
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("1|x|30", "2|y|20", "3|x|10"));
    EXPECT_NE(sqlOf("i"), "");
}

TEST_F(Removal, LeavesARowKeyWhereNoColumnIsLeft) {
    file.run("CREATE TABLE t(a, b, CHECK(a <> b)); INSERT INTO t(rowid, a, b) VALUES(4, 1, 2), (8, 3, 4);"
             "CREATE TABLE u(a PRIMARY KEY) WITHOUT ROWID; INSERT INTO u VALUES('x'), ('y')");
    drop("t", {"a", "b"});
    EXPECT_THAT(file.rows("SELECT \"MSysKey\" FROM t"), ElementsAre("4", "8"));
    drop("u", {"a"});
    EXPECT_THAT(file.rows("SELECT \"MSysKey\" FROM u"), ElementsAre("1", "2"));
}

TEST_F(Removal, CopesWithNamesInAllQuotes) {
    file.run("CREATE TABLE \"order \"\"by\"\"\"([a b] INT, `c``d` INT UNIQUE, \"e'f\" INT, 'select' INT "
             "UNIQUE, Größe INT);"
             "CREATE INDEX \"in \"\"dex\" ON \"order \"\"by\"\"\"([a b]); INSERT INTO \"order \"\"by\"\"\" "
             "VALUES(1, 2, 3, 4, 5)");
    EXPECT_THAT(drop("order \"by\"", {"c`d", "e'f", "Größe"}), ElementsAre("unique c`d"));
    EXPECT_THAT(file.rows("SELECT * FROM \"order \"\"by\"\"\""), ElementsAre("1|4"));
    EXPECT_NE(sqlOf("in \"dex"), "");
}

TEST_F(Removal, NeverPassesARowOverOrReplacesOne) {
    file.run("CREATE TABLE t(a INT NOT NULL ON CONFLICT IGNORE, b INT UNIQUE ON CONFLICT REPLACE, c UNIQUE)");
    file.run("INSERT INTO t VALUES(1, 1, 1), (2, 2, 2)");
    drop("t", {"c"});
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("1|1", "2|2"));
}

// ---------------------------------------------------------------- failures

TEST_F(Removal, ChangesNothingWhenItFails) {
    file.run(
        "CREATE TABLE t(a TEXT UNIQUE, b TEXT); INSERT INTO t VALUES('x', NULL); CREATE INDEX i ON t(b) "
        "WHERE a > ''; CREATE VIEW v AS SELECT a FROM t; CREATE TRIGGER r AFTER DELETE ON t BEGIN SELECT "
        "old.a; END; PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE TABLE t(a TEXT "
        "UNIQUE, b TEXT NOT NULL)' WHERE name = 't'"); // a row that can't be copied
    const auto before = file.rows("SELECT type, name, sql FROM sqlite_schema");
    {
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        connection.execute("BEGIN IMMEDIATE");
        Losses losses(connection);
        ColumnRemoval removal(connection, "t", losses);
        EXPECT_THROW(removal.drop("a"), runtime::RuntimeError);
        EXPECT_EQ(connection.text("SELECT a FROM v"), "x");
        connection.execute("COMMIT");
    }
    EXPECT_EQ(file.rows("SELECT type, name, sql FROM sqlite_schema"), before);
    EXPECT_EQ(file.value("PRAGMA integrity_check"), "NULL value in t.b");
}

TEST_F(Removal, RaisesForATableThatIsNotThere) {
    file.run("CREATE TABLE t(a, b)");
    Connection connection(file.path(), Connection::Mode::ReadWrite);
    try {
        Losses losses(connection);
        ColumnRemoval(connection, "nothing", losses).drop("a");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3078);
    }
}

} // namespace tol::test
