// SPDX-License-Identifier: MIT
#include "data/sqlite/TableRebuild.h"

#include "ForeignFile.h"
#include "data/sqlite/Catalogue.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace tol::test {

using namespace data;
using namespace data::sqlite;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class Rebuild : public testing::Test {
  protected:
    TempFolder folder;
    ForeignFile file{folder / "other.db"};

    /// Runs a rebuild in a transaction of its own.
    void rebuild(const std::string& table,
                 const std::function<void(TableRebuild&, const PhysicalTable&)>& plan) {
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        connection.execute("BEGIN IMMEDIATE");
        const auto before = Catalogue(connection).table(table);
        ASSERT_TRUE(before.has_value());
        TableRebuild work(connection, before->sqlName);
        plan(work, *before);
        work.run();
        connection.execute("COMMIT");
    }

    void dropColumns(const std::string& table, const std::vector<std::string>& columns) {
        rebuild(table, [&](TableRebuild& work, const PhysicalTable&) {
            for (const std::string& column : columns)
                work.removeColumn(column);
        });
        expectSound();
    }

    /// Takes away the key behind the index of that name.
    void dropKey(const std::string& table, const std::string& index) {
        rebuild(table, [&](TableRebuild& work, const PhysicalTable& before) {
            const int position = before.definition.findIndex(index);
            ASSERT_GE(position, 0) << index;
            work.removeKey(before, static_cast<std::size_t>(position));
        });
        expectSound();
    }

    void expectSound() const {
        EXPECT_EQ(file.value("PRAGMA integrity_check"), "ok");
        EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE name LIKE 'MSysRebuild%'"), IsEmpty());
    }

    [[nodiscard]] std::string sqlOf(const std::string& name) const {
        return file.value("SELECT sql FROM sqlite_schema WHERE name = '" + name + "'");
    }
};

} // namespace

TEST_F(Rebuild, TakesAColumnOutAndKeepsTheRest) {
    file.run("CREATE TABLE t(a VARCHAR(5) NOT NULL DEFAULT 'x' COLLATE nocase, b INT, -- the second\n c REAL "
             "DEFAULT (1 + 1));"
             "INSERT INTO t(rowid, a, b, c) VALUES(7, 'p', 1, 2.5), (-3, 'q', 2, NULL), (9, 'r', NULL, 3)");
    dropColumns("t", {"B"});
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a VARCHAR(5) NOT NULL DEFAULT 'x' COLLATE nocase,  -- the "
                          "second\n c REAL DEFAULT (1 + 1))");
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("-3|q|NULL", "7|p|2.5", "9|r|3.0"));
    file.run("INSERT INTO t DEFAULT VALUES");
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t WHERE rowid > 9"), ElementsAre("10|x|2.0"));
}

TEST_F(Rebuild, KeepsRowIdsUnderAnIntegerKey) {
    file.run(
        "CREATE TABLE t(id INTEGER PRIMARY KEY, a, b); INSERT INTO t VALUES(5, 'a', 'b'), (50, 'c', 'd')");
    dropColumns("t", {"a"});
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|5|b", "50|50|d"));
}

TEST_F(Rebuild, KeepsRowIdsWhenTheIntegerKeyGoes) {
    file.run("CREATE TABLE t(id INTEGER PRIMARY KEY, a); INSERT INTO t VALUES(5, 'a'), (50, 'c')");
    dropKey("t", "PrimaryKey");
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(id INTEGER , a)");
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|5|a", "50|50|c"));
    file.run("INSERT INTO t VALUES(5, 'again')");
    dropColumns("t", {"id"});
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|a", "50|c", "51|again"));
}

TEST_F(Rebuild, FindsTheRowIdUnderItsOtherNames) {
    file.run("CREATE TABLE t(rowid TEXT, a, b); INSERT INTO t(_rowid_, rowid, a, b) VALUES(5, 'x', 1, 2), "
             "(70, 'y', 3, 4)");
    dropColumns("t", {"a"});
    EXPECT_THAT(file.rows("SELECT _rowid_, * FROM t"), ElementsAre("5|x|2", "70|y|4"));
    dropColumns("t", {"rowid"});
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("5|2", "70|4"));
}

TEST_F(Rebuild, KeepsTheNumberingOfAutoincrement) {
    file.run(
        "CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, a, b); CREATE TABLE u(id INTEGER PRIMARY KEY "
        "AUTOINCREMENT);"
        "INSERT INTO u VALUES(17); INSERT INTO t VALUES(1, 2, 3), (100, 4, 5); DELETE FROM t WHERE id = 100");
    dropColumns("t", {"a"});
    EXPECT_THAT(file.rows("SELECT * FROM sqlite_sequence ORDER BY name"), ElementsAre("t|100", "u|17"));
    file.run("INSERT INTO t(b) VALUES(6)");
    EXPECT_EQ(file.value("SELECT max(id) FROM t"), "101");
    dropKey("t", "PrimaryKey");
    EXPECT_THAT(file.rows("SELECT * FROM sqlite_sequence"), ElementsAre("u|17"));
}

TEST_F(Rebuild, KeepsTheNumberingOfAnEmptiedTable) {
    file.run("CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, a, b); INSERT INTO t VALUES(100, 4, 5); "
             "DELETE FROM t");
    dropColumns("t", {"a"});
    file.run("INSERT INTO t(b) VALUES(6)");
    EXPECT_EQ(file.value("SELECT id FROM t"), "101");
}

TEST_F(Rebuild, DropsChecksThatUseTheColumnOnly) {
    file.run(
        "CREATE TABLE t(a INT CHECK(a > 0), b INT CHECK(b < 10), c TEXT CHECK(c <> 'b' AND length(c) > [b]), "
        "CHECK(a <> 5), CONSTRAINT both CHECK(a <> \"b\"), CHECK(c <> 'b')); INSERT INTO t VALUES(1, 2, "
        "'xyz')");
    dropColumns("t", {"b"});
    EXPECT_EQ(sqlOf("t"),
              "CREATE TABLE \"t\"(a INT CHECK(a > 0),  c TEXT , CHECK(a <> 5),  CHECK(c <> 'b'))");
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("1|xyz"));
}

TEST_F(Rebuild, TakesRowsThatOffendChecksAlong) {
    file.run("CREATE TABLE t(a INT CHECK(a > 0), b); PRAGMA ignore_check_constraints = ON; INSERT INTO t "
             "VALUES(-1, 2)");
    rebuild("t", [](TableRebuild& work, const PhysicalTable&) { work.removeColumn("b"); });
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("-1"));
}

TEST_F(Rebuild, DropsForeignKeysOfTheColumnOnly) {
    file.run("CREATE TABLE o(x INTEGER PRIMARY KEY, y); CREATE TABLE t(a INT REFERENCES o(x) ON DELETE "
             "CASCADE, b INT, c INT "
             "REFERENCES o, boss INT REFERENCES t(b), FOREIGN KEY(a, b) REFERENCES o(x, y), FOREIGN KEY(c) "
             "REFERENCES o(b) "
             "DEFERRABLE INITIALLY DEFERRED)");
    dropColumns("t", {"b"});
    EXPECT_EQ(sqlOf("t"),
              "CREATE TABLE \"t\"(a INT REFERENCES o(x) ON DELETE CASCADE,  c INT REFERENCES o, boss INT ,  "
              "FOREIGN KEY(c) REFERENCES o(b) DEFERRABLE INITIALLY DEFERRED)");
}

TEST_F(Rebuild, LeavesOtherTablesReferencesAlone) {
    file.run("CREATE TABLE t(id INTEGER PRIMARY KEY, parent INT REFERENCES t(id), a, b);"
             "CREATE TABLE child(p INT REFERENCES t(id), q REFERENCES \"t\");"
             "INSERT INTO t VALUES(1, NULL, 2, 3), (2, 1, 4, 5); INSERT INTO child VALUES(1, 2)");
    const std::string childText = sqlOf("child");
    dropColumns("t", {"a"});
    EXPECT_EQ(sqlOf("child"), childText);
    EXPECT_THAT(sqlOf("t"), HasSubstr("REFERENCES t(id)"));
    EXPECT_THAT(file.rows("PRAGMA foreign_key_check"), IsEmpty());
    EXPECT_EQ(file.value("SELECT count(*) FROM child"), "1");
}

TEST_F(Rebuild, KeepsIndexesAndDropsThoseOfTheColumn) {
    file.run("CREATE TABLE t(a TEXT, b TEXT, c INT, UNIQUE(a, c), UNIQUE(b)); CREATE INDEX b ON t(a DESC, c "
             "COLLATE nocase);"
             "CREATE INDEX onB ON t(b); CREATE UNIQUE INDEX part ON t(c) WHERE b IS NOT NULL; CREATE INDEX "
             "expr ON t(lower([b]));"
             "CREATE INDEX quoted ON t(\"b\"); CREATE INDEX [odd (name] ON t(c); CREATE INDEX text ON t(c, a "
             "|| 'b');"
             "INSERT INTO t VALUES('x', 'y', 1), ('x', 'z', 2)");
    const std::string indexText = sqlOf("b");
    dropColumns("t", {"b"});
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type = 'index' ORDER BY rowid"),
                ElementsAre("sqlite_autoindex_t_1", "b", "odd (name", "text"));
    EXPECT_EQ(sqlOf("b"), indexText);
    EXPECT_THAT(file.rows("SELECT c FROM t ORDER BY a, c"), ElementsAre("1", "2"));
}

TEST_F(Rebuild, KeepsTriggersThatStillWork) {
    file.run("CREATE TABLE log(what); CREATE TABLE t(a, b, c);"
             "CREATE TRIGGER one AFTER INSERT ON t BEGIN INSERT INTO log VALUES(new.a); END;"
             "CREATE TRIGGER two AFTER INSERT ON t BEGIN INSERT INTO log VALUES(new.b); END;"
             "CREATE TRIGGER three BEFORE UPDATE OF c ON t WHEN old.b > 1 BEGIN SELECT 1; END;"
             "CREATE TRIGGER four AFTER DELETE ON t BEGIN INSERT INTO log SELECT b FROM t; END;"
             "CREATE TRIGGER five AFTER DELETE ON t BEGIN INSERT INTO log VALUES('b'); END;");
    dropColumns("t", {"b"});
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type = 'trigger'"),
                ElementsAre("one", "five"));
    file.run("INSERT INTO t VALUES(1, 2); DELETE FROM t");
    EXPECT_THAT(file.rows("SELECT * FROM log"), ElementsAre("1", "b"));
}

TEST_F(Rebuild, KeepsTriggersThatItCannotJudge) {
    file.run("CREATE TABLE t(a, b); CREATE TRIGGER theirs AFTER INSERT ON t BEGIN SELECT "
             "their_function(new.a), 'x' AS b; END");
    dropColumns("t", {"b"});
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type = 'trigger'"), ElementsAre("theirs"));
}

TEST_F(Rebuild, LeavesViewsAndTriggersElsewhereAlone) {
    file.run("CREATE TABLE t(a, b); CREATE TABLE u(x); CREATE VIEW good AS SELECT a FROM t; CREATE VIEW bad "
             "AS SELECT b FROM t;"
             "CREATE VIEW broken AS SELECT * FROM nowhere; CREATE TRIGGER r AFTER INSERT ON u BEGIN INSERT "
             "INTO t(a) VALUES(new.x); END;"
             "INSERT INTO t VALUES(1, 2)");
    dropColumns("t", {"b"});
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type IN ('view', 'trigger') ORDER BY name"),
                ElementsAre("bad", "broken", "good", "r"));
    file.run("INSERT INTO u VALUES(9)");
    EXPECT_THAT(file.rows("SELECT * FROM good"), ElementsAre("1", "9"));
}

TEST_F(Rebuild, KeepsGeneratedColumns) {
    file.run("CREATE TABLE t(a INT, b INT, double AS (a * 2), triple INT GENERATED ALWAYS AS (a * 3) STORED);"
             "CREATE INDEX i ON t(double); INSERT INTO t(a, b) VALUES(5, 6)");
    dropColumns("t", {"b"});
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("5|10|15"));
    EXPECT_NE(sqlOf("i"), "");
}

TEST_F(Rebuild, RefusesAColumnThatAGeneratedOneNeeds) {
    file.run("CREATE TABLE t(a INT, b INT, sum AS (a + b)); INSERT INTO t(a, b) VALUES(5, 6)");
    try {
        dropColumns("t", {"a"});
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3280);
        EXPECT_EQ(error.engineText(), "the generated column sum uses it");
    }
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("5|6|11"));
}

TEST_F(Rebuild, TakesUniqueConstraintsAway) {
    file.run("CREATE TABLE t(a TEXT CONSTRAINT own UNIQUE, b TEXT UNIQUE, c, CONSTRAINT pair UNIQUE(a, b)); "
             "INSERT INTO t VALUES('x', 'y', 1)");
    dropKey("t", "pair");
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a TEXT CONSTRAINT own UNIQUE, b TEXT UNIQUE, c)");
    dropKey("t", "own");
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a TEXT , b TEXT UNIQUE, c)");
    file.run("INSERT INTO t VALUES('x', 'z', 2)");
    dropKey("t", "b");
    EXPECT_THAT(file.rows("SELECT name FROM sqlite_schema WHERE type = 'index'"), IsEmpty());
}

TEST_F(Rebuild, TakesAPrimaryKeyAwayWithTheUniqueThatSharesItsIndex) {
    file.run("CREATE TABLE t(a TEXT UNIQUE, b TEXT, PRIMARY KEY(a)); INSERT INTO t VALUES('x', 'y')");
    EXPECT_EQ(file.value("SELECT count(*) FROM pragma_index_list('t')"), "1");
    dropKey("t", "PrimaryKey");
    file.run("INSERT INTO t VALUES('x', 'y')");
    EXPECT_EQ(file.value("SELECT count(*) FROM t"), "2");
}

TEST_F(Rebuild, LeavesTheUniqueOfARowIdWhenItsKeyGoes) {
    file.run("CREATE TABLE t(a INTEGER PRIMARY KEY UNIQUE, b)");
    dropKey("t", "PrimaryKey");
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a INTEGER  UNIQUE, b)");
}

TEST_F(Rebuild, MakesAnOrdinaryTableOfOneWithoutRowIds) {
    file.run("CREATE TABLE t(a TEXT, b INT, c INT UNIQUE, PRIMARY KEY(b DESC, a)) WITHOUT ROWID; CREATE "
             "INDEX i ON t(c, a);"
             "INSERT INTO t VALUES('x', 1, 10), ('y', 2, 20), ('x', 2, 30)");
    dropKey("t", "PrimaryKey");
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a TEXT, b INT, c INT UNIQUE)");
    EXPECT_THAT(file.rows("SELECT rowid, * FROM t"), ElementsAre("1|x|2|30", "2|y|2|20", "3|x|1|10"));
    EXPECT_NE(sqlOf("i"), "");
}

TEST_F(Rebuild, KeepsATableWithoutRowIdsOtherwise) {
    file.run("CREATE TABLE t(a TEXT PRIMARY KEY, b ANY, c INT) WITHOUT ROWID, STRICT; INSERT INTO t "
             "VALUES('k', 'v', 1)");
    dropColumns("t", {"b"});
    EXPECT_EQ(sqlOf("t"), "CREATE TABLE \"t\"(a TEXT PRIMARY KEY,  c INT) WITHOUT ROWID, STRICT");
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("k|1"));
}

TEST_F(Rebuild, LeavesARowKeyWhereNoColumnIsLeft) {
    file.run("CREATE TABLE t(a, b, CHECK(a <> b)); INSERT INTO t(rowid, a, b) VALUES(4, 1, 2), (8, 3, 4);"
             "CREATE TABLE u(a PRIMARY KEY) WITHOUT ROWID; INSERT INTO u VALUES('x'), ('y')");
    dropColumns("t", {"a", "b"});
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("4", "8"));
    rebuild("u", [](TableRebuild& work, const PhysicalTable& before) {
        work.removeKey(before, 0);
        work.removeColumn("a");
    });
    expectSound();
    EXPECT_THAT(file.rows("SELECT \"MSysKey\" FROM u"), ElementsAre("1", "2"));
}

TEST_F(Rebuild, CopesWithNamesInAllQuotes) {
    file.run("CREATE TABLE \"order \"\"by\"\"\"([a b] INT, `c``d` INT, \"e'f\" INT, 'select' INT UNIQUE, "
             "Größe INT);"
             "CREATE INDEX \"in \"\"dex\" ON \"order \"\"by\"\"\"([a b]); INSERT INTO \"order \"\"by\"\"\" "
             "VALUES(1, 2, 3, 4, 5)");
    dropColumns("order \"by\"", {"c`d", "e'f", "Größe"});
    EXPECT_EQ(sqlOf("order \"by\""), "CREATE TABLE \"order \"\"by\"\"\"([a b] INT,  'select' INT UNIQUE)");
    EXPECT_THAT(file.rows("SELECT * FROM \"order \"\"by\"\"\""), ElementsAre("1|4"));
    EXPECT_NE(sqlOf("in \"dex"), "");
}

TEST_F(Rebuild, NeverPassesARowOverOrReplacesOne) {
    file.run("CREATE TABLE t(a INT NOT NULL ON CONFLICT IGNORE, b INT UNIQUE ON CONFLICT REPLACE, c)");
    file.run("INSERT INTO t VALUES(1, 1, 1), (2, 2, 2)");
    dropColumns("t", {"c"});
    EXPECT_THAT(file.rows("SELECT * FROM t"), ElementsAre("1|1", "2|2"));
    EXPECT_EQ(sqlOf("t"),
              "CREATE TABLE \"t\"(a INT NOT NULL ON CONFLICT IGNORE, b INT UNIQUE ON CONFLICT REPLACE)");
}

TEST_F(Rebuild, ChangesNothingWhenItFails) {
    file.run("CREATE TABLE t(a TEXT, b TEXT); INSERT INTO t VALUES('x', 'y'); CREATE INDEX i ON t(a)");
    file.run("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE INDEX i ON t(a COLLATE "
             "theirs)' WHERE name = 'i'");
    const std::string before = folder.read("other.db");
    Connection connection(file.path(), Connection::Mode::ReadWrite);
    connection.execute("BEGIN IMMEDIATE");
    connection.execute("CREATE TABLE earlier(x)");
    TableRebuild work(connection, "t");
    work.removeColumn("b");
    EXPECT_THROW(work.run(), runtime::RuntimeError);
    EXPECT_TRUE(connection.inTransaction());
    EXPECT_EQ(connection.text("SELECT sql FROM sqlite_schema WHERE name = 't'"),
              "CREATE TABLE t(a TEXT, b TEXT)");
    EXPECT_EQ(connection.text("SELECT b FROM t"), "y");
    EXPECT_EQ(connection.number("PRAGMA legacy_alter_table"), 0);
    EXPECT_EQ(connection.number("PRAGMA ignore_check_constraints"), 0);
    connection.execute("ROLLBACK");
    EXPECT_EQ(folder.read("other.db"), before);
}

TEST_F(Rebuild, RaisesForATableThatIsNotThere) {
    file.run("CREATE TABLE t(a)");
    Connection connection(file.path(), Connection::Mode::ReadWrite);
    try {
        TableRebuild(connection, "nothing").run();
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3078);
    }
}

TEST_F(Rebuild, KnowsWhichColumnsCanStayHidden) {
    file.run("CREATE TABLE t(id INTEGER PRIMARY KEY, a INT NOT NULL, b INT NOT NULL DEFAULT 1, c INT, d INT, "
             "CHECK(d > 0))");
    Connection connection(file.path(), Connection::Mode::ReadWrite);
    std::vector<std::string> found;
    for (const char* column : {"id", "a", "b", "c", "d", "e", "f", "none"})
        if (TableRebuild::canStayHidden(connection, "t", column))
            found.emplace_back(column);
    EXPECT_THAT(found, ElementsAre("b", "c"));
}

} // namespace tol::test
