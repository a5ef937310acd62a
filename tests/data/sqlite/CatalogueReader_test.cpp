// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/CatalogueReader.h"

#include "ForeignFile.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data;
using namespace data::sqlite;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A file of another maker and what the catalogue tells of it.
class CatalogueOfForeignFile : public testing::Test {
  protected:
    TempFolder folder;
    ForeignFile file{folder / "other.db"};

    std::vector<StoredTable> tables(const std::string& sql = {}) {
        if (!sql.empty())
            file.run(sql);
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        return CatalogueReader(connection).tables();
    }

    std::vector<std::string> tableNames(const std::string& sql = {}) {
        std::vector<std::string> names;
        for (const StoredTable& table : tables(sql))
            names.push_back(table.definition.name);
        return names;
    }

    StoredTable table(const std::string& sql, const std::string& name = "t") {
        if (!sql.empty())
            file.run(sql);
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        auto read = CatalogueReader(connection).table(name);
        EXPECT_TRUE(read.has_value());
        return read.value_or(StoredTable{});
    }

    /// Runs our own side of things on the file.
    template <typename Steps>
    void asOurselves(Steps steps) {
        Connection connection(file.path(), Connection::Mode::ReadWrite);
        SystemTables rows(connection);
        steps(connection, rows);
    }
};

std::vector<std::string> fieldNames(const StoredTable& table) {
    std::vector<std::string> names;
    for (const FieldDef& field : table.definition.fields)
        names.push_back(field.name);
    return names;
}

/// "name(field, field)", with "!" behind the name of a unique and "!!" behind that of a primary one.
std::vector<std::string> indexTexts(const StoredTable& table) {
    std::vector<std::string> texts;
    for (const IndexDef& index : table.definition.indexes) {
        std::string text = index.name + (index.primary ? "!!" : index.unique ? "!" : "") + "(";
        for (const std::string& field : index.fields)
            text += (text.back() == '(' ? "" : ", ") + field;
        texts.push_back(text + ")");
    }
    return texts;
}

std::vector<IndexKind> indexKinds(const StoredTable& table) {
    std::vector<IndexKind> kinds;
    for (const StoredIndex& index : table.indexes)
        kinds.push_back(index.kind);
    return kinds;
}

} // namespace

TEST_F(CatalogueOfForeignFile, TellsOrdinaryTablesByName) {
    EXPECT_THAT(
        tableNames("CREATE TABLE zebra(a); CREATE TABLE \"ant \"\"s\"\" nest\"(a); CREATE TABLE Bee(a)"),
        ElementsAre("Bee", "ant \"s\" nest", "zebra"));
}

TEST_F(CatalogueOfForeignFile, HasNoTablesInAnEmptyDatabase) {
    EXPECT_THAT(tableNames("CREATE TABLE t(a); DROP TABLE t"), IsEmpty());
}

TEST_F(CatalogueOfForeignFile, LeavesOutWhatIsNoOrdinaryTable) {
    EXPECT_THAT(
        tableNames("CREATE TABLE t(a INTEGER PRIMARY KEY AUTOINCREMENT, b); INSERT INTO t(b) VALUES(1);"
                   "CREATE VIEW v AS SELECT b FROM t; CREATE VIEW broken AS SELECT x FROM nowhere;"
                   "CREATE VIRTUAL TABLE words USING fts5(b); CREATE INDEX i ON t(b); ANALYZE;"
                   "CREATE TRIGGER r AFTER INSERT ON t BEGIN SELECT 1; END"),
        ElementsAre("t"));
}

TEST_F(CatalogueOfForeignFile, LeavesOutItsOwnTables) {
    file.run("CREATE TABLE t(a)");
    asOurselves([](Connection&, SystemTables& rows) { rows.create(); });
    EXPECT_THAT(tableNames(), ElementsAre("t"));
}

TEST_F(CatalogueOfForeignFile, TellsFieldsInColumnOrder) {
    const StoredTable read =
        table("CREATE TABLE t(b VARCHAR(20) NOT NULL, \"a x\" INT NOT NULL DEFAULT 3, c NUMERIC(9,2), "
              "d DATETIME, e)");
    EXPECT_FALSE(read.own);
    EXPECT_EQ(read.sqlName, "t");
    EXPECT_EQ(read.rowKey, "rowid");
    EXPECT_THAT(fieldNames(read), ElementsAre("b", "a x", "c", "d", "e"));

    const FieldDef& text = read.definition.fields[0];
    EXPECT_EQ(text.type, dbText);
    EXPECT_EQ(text.size, 20);
    EXPECT_EQ(text.ordinal, 0);
    EXPECT_TRUE(text.allowZeroLength);
    EXPECT_TRUE(text.required);

    const FieldDef& number = read.definition.fields[1];
    EXPECT_EQ(number.type, dbLong);
    EXPECT_EQ(number.size, 4);
    EXPECT_EQ(number.ordinal, 1);
    EXPECT_FALSE(number.allowZeroLength);
    EXPECT_FALSE(number.required) << "the default fills it";

    EXPECT_EQ(read.columns[2].storage, Storage::DecimalCurrency);
    EXPECT_EQ(read.columns[3].storage, Storage::IsoDate);
    EXPECT_EQ(read.columns[4].name, "e");
    EXPECT_FALSE(read.columns[4].own);
    EXPECT_EQ(read.definition.fields[4].type, dbMemo);
    EXPECT_TRUE(read.definition.fields[4].allowZeroLength);
}

TEST_F(CatalogueOfForeignFile, LeavesOutGeneratedColumns) {
    const StoredTable read =
        table("CREATE TABLE t(a INT, b AS (a * 2), c INT GENERATED ALWAYS AS (a * 3) STORED, d INT)");
    EXPECT_THAT(fieldNames(read), ElementsAre("a", "d"));
    EXPECT_EQ(read.definition.fields[1].ordinal, 1);
}

TEST_F(CatalogueOfForeignFile, TakesAnIntegerPrimaryKeyAsTheRowKey) {
    const StoredTable read =
        table("CREATE TABLE t(a TEXT, id INTEGER NOT NULL, CONSTRAINT p PRIMARY KEY(id))");
    EXPECT_EQ(read.rowKey, "id");
    EXPECT_FALSE(read.definition.fields[1].required) << "a row without one is numbered";
    EXPECT_THAT(indexTexts(read), ElementsAre("PrimaryKey!!(id)"));
    EXPECT_THAT(indexKinds(read), ElementsAre(IndexKind::RowId));
    EXPECT_EQ(read.indexes[0].sqlName, "");
    EXPECT_THAT(read.indexes[0].collations, ElementsAre(""));
    EXPECT_THAT(read.indexes[0].descending, ElementsAre(false));
}

TEST_F(CatalogueOfForeignFile, SeesThatADescendingIntegerKeyIsNoRowKey) {
    const StoredTable read = table("CREATE TABLE t(id INTEGER PRIMARY KEY DESC)");
    EXPECT_EQ(read.rowKey, "rowid");
    EXPECT_THAT(indexKinds(read), ElementsAre(IndexKind::Constraint));
    EXPECT_THAT(read.indexes[0].descending, ElementsAre(true));
}

TEST_F(CatalogueOfForeignFile, SeesThatOnlyIntegerNamesTheRowKey) {
    EXPECT_EQ(table("CREATE TABLE t(id INT PRIMARY KEY)").rowKey, "rowid");
}

TEST_F(CatalogueOfForeignFile, NamesConstraintIndexes) {
    const StoredTable read =
        table("CREATE TABLE t(a TEXT PRIMARY KEY, b TEXT CONSTRAINT \"one b\" UNIQUE, c TEXT UNIQUE, d, "
              "CONSTRAINT pair UNIQUE(c, d), UNIQUE(d, a))");
    EXPECT_THAT(indexTexts(read),
                ElementsAre("PrimaryKey!!(a)", "b!(b)", "c!(c)", "c_d!(c, d)", "d_a!(d, a)"));
    EXPECT_THAT(indexKinds(read), testing::Each(IndexKind::Constraint));
    EXPECT_EQ(read.indexes[1].sqlName, "sqlite_autoindex_t_2");
}

TEST_F(CatalogueOfForeignFile, KeepsIndexNamesApart) {
    const StoredTable read =
        table("CREATE TABLE t(id INTEGER PRIMARY KEY, a UNIQUE, b, c, CONSTRAINT A UNIQUE(b), UNIQUE(c, b));"
              "CREATE INDEX \"primarykey\" ON t(b); CREATE INDEX c_b ON t(c)");
    EXPECT_THAT(indexTexts(read), ElementsAre("PrimaryKey!!(id)", "a!(a)", "b!(b)", "c_b!(c, b)",
                                              "primarykey_2(b)", "c_b_2(c)"));
    EXPECT_EQ(read.indexes[4].sqlName, "primarykey");
}

TEST_F(CatalogueOfForeignFile, TellsCreatedIndexesWithOrderAndCollation) {
    const StoredTable read = table("CREATE TABLE t(a TEXT COLLATE nocase, b TEXT, c INT);"
                                   "CREATE UNIQUE INDEX first ON t(a, b DESC); CREATE INDEX second ON t(c)");
    EXPECT_THAT(indexTexts(read), ElementsAre("first!(a, b)", "second(c)"));
    EXPECT_THAT(indexKinds(read), testing::Each(IndexKind::Foreign));
    EXPECT_THAT(read.indexes[0].collations, ElementsAre("nocase", "BINARY"));
    EXPECT_THAT(read.indexes[0].descending, ElementsAre(false, true));
}

TEST_F(CatalogueOfForeignFile, LeavesOutIndexesThatItCannotWalk) {
    const StoredTable read =
        table("CREATE TABLE t(a TEXT, b TEXT, g AS (lower(a)));"
              "CREATE INDEX part ON t(a) WHERE b IS NOT NULL; CREATE INDEX expression ON t(a, upper(b));"
              "CREATE INDEX generated ON t(g); CREATE INDEX good ON t(b)");
    EXPECT_THAT(indexTexts(read), ElementsAre("good(b)"));
}

TEST_F(CatalogueOfForeignFile, LeavesOutIndexesInAnUnknownOrder) {
    file.run("CREATE TABLE t(a TEXT, b TEXT); CREATE INDEX ours ON t(a); CREATE INDEX good ON t(b)");
    file.run("PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE INDEX ours ON t(a COLLATE "
             "theirs)' "
             "WHERE name = 'ours'");
    EXPECT_THAT(indexTexts(table("")), ElementsAre("good(b)"));
}

TEST_F(CatalogueOfForeignFile, TellsATableWithoutRowIds) {
    const StoredTable read =
        table("CREATE TABLE t(a TEXT, b INT, c TEXT, PRIMARY KEY(c DESC, a COLLATE nocase)) WITHOUT ROWID");
    EXPECT_TRUE(read.definition.withoutRowKeys);
    EXPECT_EQ(read.rowKey, "");
    EXPECT_THAT(indexTexts(read), ElementsAre("PrimaryKey!!(c, a)"));
    EXPECT_THAT(indexKinds(read), ElementsAre(IndexKind::Constraint));
    EXPECT_THAT(read.indexes[0].descending, ElementsAre(true, false));
    EXPECT_THAT(read.indexes[0].collations, ElementsAre("BINARY", "nocase"));
    EXPECT_TRUE(read.definition.fields[0].required);
    EXPECT_FALSE(read.definition.fields[1].required);
}

TEST_F(CatalogueOfForeignFile, FindsANameForTheRowId) {
    EXPECT_EQ(table("CREATE TABLE t(RowId TEXT)").rowKey, "_rowid_");
    EXPECT_EQ(table("CREATE TABLE u(rowid TEXT, _rowid_ TEXT)", "u").rowKey, "oid");
    EXPECT_EQ(table("CREATE TABLE w(rowid TEXT, _rowid_ TEXT, oid INTEGER PRIMARY KEY)", "w").rowKey, "oid");
}

TEST_F(CatalogueOfForeignFile, LeavesOutATableWhoseRowsHaveNoName) {
    EXPECT_THAT(tableNames("CREATE TABLE t(rowid TEXT, _rowid_ TEXT, oid TEXT); CREATE TABLE u(a)"),
                ElementsAre("u"));
}

TEST_F(CatalogueOfForeignFile, ReadsStrictTables) {
    const StoredTable read =
        table("CREATE TABLE t(a INTEGER PRIMARY KEY, b TEXT, c REAL, d BLOB, e ANY) STRICT");
    EXPECT_TRUE(read.strict);
    EXPECT_EQ(read.definition.fields[2].type, dbDouble);
    EXPECT_EQ(read.definition.fields[4].type, dbMemo);
}

TEST_F(CatalogueOfForeignFile, LivesWithNamesThatDifferInTheCaseOfOtherLetters) {
    EXPECT_THAT(tableNames("CREATE TABLE \"Ärger\"(ä INT, Ä INT); CREATE TABLE \"ärger\"(a INT); "
                           "CREATE INDEX ö ON \"Ärger\"(ä); CREATE INDEX Ö ON \"Ärger\"(Ä)"),
                ElementsAre("Ärger", "ärger"));
    EXPECT_EQ(fieldNames(table("", "Ärger")).size(), 2U);
}

TEST_F(CatalogueOfForeignFile, FindsATableInAnyCase) {
    EXPECT_EQ(table("CREATE TABLE \"My Table\"(a)", "MY TABLE").definition.name, "My Table");
    Connection connection(file.path(), Connection::Mode::ReadWrite);
    EXPECT_FALSE(CatalogueReader(connection).table("none").has_value());
    EXPECT_FALSE(CatalogueReader(connection).table("sqlite_schema").has_value());
}

TEST_F(CatalogueOfForeignFile, TakesFromTheCatalogueWhatSqliteCannotDeclare) {
    file.run("CREATE TABLE t(a VARCHAR(5), b INT); ALTER TABLE t ADD COLUMN own CURRENCY INTEGER; "
             "CREATE INDEX \"t.Amount\" ON t(own)");
    asOurselves([](Connection&, SystemTables& rows) {
        rows.putField({.table = "t",
                       .column = "own",
                       .field = "Own Field",
                       .ordinal = 0,
                       .type = dbCurrency,
                       .size = 8,
                       .allowZeroLength = false,
                       .required = true});
        rows.putField({.table = "t", .column = "a", .field = "a", .ordinal = 7});
        rows.putIndex(
            {.table = "t", .index = "Amount", .sqlName = "t.Amount", .primary = true, .unique = true});
    });
    const StoredTable read = table("");
    EXPECT_FALSE(read.own);
    EXPECT_THAT(fieldNames(read), ElementsAre("Own Field", "b", "a"));
    EXPECT_EQ(read.columns[0].name, "own");
    EXPECT_TRUE(read.columns[0].own);
    EXPECT_EQ(read.columns[0].storage, Storage::ScaledCurrency);
    EXPECT_TRUE(read.definition.fields[0].required);
    EXPECT_FALSE(read.columns[2].own);
    EXPECT_EQ(read.definition.fields[2].ordinal, 7);
    EXPECT_EQ(read.definition.fields[2].size, 5);
    EXPECT_FALSE(read.definition.fields[2].allowZeroLength);
    EXPECT_THAT(indexTexts(read), ElementsAre("Amount!!(Own Field)"));
    EXPECT_THAT(indexKinds(read), ElementsAre(IndexKind::Own));
    EXPECT_EQ(read.indexes[0].sqlName, "t.Amount");
}

TEST_F(CatalogueOfForeignFile, BelievesTheColumnWhereTheCatalogueIsOutOfDate) {
    file.run("CREATE TABLE t(a VARCHAR(5))");
    asOurselves([](Connection&, SystemTables& rows) {
        rows.putField({.table = "t", .column = "a", .field = "a", .type = dbLong, .size = 4});
        rows.putField({.table = "t", .column = "gone", .field = "gone", .type = dbLong, .size = 4});
        rows.putField({.table = "gone", .column = "a", .field = "a", .type = dbLong, .size = 4});
    });
    const StoredTable read = table("");
    ASSERT_THAT(fieldNames(read), ElementsAre("a"));
    EXPECT_EQ(read.definition.fields[0].type, dbText);
    EXPECT_FALSE(read.columns[0].own);
}

TEST_F(CatalogueOfForeignFile, HidesTheRowKeyAndDeletedFieldsOfOwnTables) {
    file.run("CREATE TABLE t(\"MSysKey\" INTEGER PRIMARY KEY AUTOINCREMENT, a TEXT(5), MSysDeleted1 INTEGER, "
             "b INTEGER)");
    asOurselves([](Connection&, SystemTables& rows) {
        rows.putField({.table = "t", .column = "a", .field = "A", .ordinal = 1, .type = dbText, .size = 5});
        rows.putField({.table = "t",
                       .column = "MSysDeleted1",
                       .field = "c",
                       .type = dbLong,
                       .size = 4,
                       .deleted = true});
        rows.putField({.table = "t", .column = "b", .field = "B", .ordinal = 0, .type = dbLong, .size = 4});
    });
    const StoredTable read = table("");
    EXPECT_TRUE(read.own);
    EXPECT_EQ(read.rowKey, "MSysKey");
    EXPECT_EQ(read.hiddenColumns, 1);
    EXPECT_THAT(fieldNames(read), ElementsAre("B", "A"));
    EXPECT_THAT(read.indexes, IsEmpty());
    EXPECT_FALSE(read.definition.fields[1].allowZeroLength);
}

} // namespace tol::test
