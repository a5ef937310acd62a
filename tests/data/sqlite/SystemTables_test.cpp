// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/SystemTables.h"

#include "EngineTest.h"

namespace tol::test {
namespace {

using data::sqlite::Connection;
using data::sqlite::SystemTables;

class CatalogueTablesTest : public testing::Test {
  protected:
    CatalogueTablesTest() {
        PlainSqlite(file).execute("CREATE TABLE T (A)");
        connection = std::make_unique<Connection>(file, Connection::Mode::ReadWrite);
        tables = std::make_unique<SystemTables>(*connection);
    }

    std::string row(const std::string& query) { return connection->text(query); }
    std::string fields() {
        return row(
            "SELECT group_concat(TableName || '.' || ColumnName || '=' || FieldName || ' ' || Ordinal || "
            "' ' || Type || ' ' || Size || ' ' || AllowZeroLength || Required || Deleted, '; ') FROM "
            "(SELECT * FROM MSysFields ORDER BY TableName, ColumnName)");
    }
    std::string indexes() {
        return row(
            "SELECT group_concat(TableName || '.' || IndexName || '=' || SqlName || ' ' || IsPrimary || "
            "IsUnique, '; ') FROM MSysIndexes");
    }

    TempFolder folder;
    std::filesystem::path file = folder / "foreign.db";
    std::unique_ptr<Connection> connection;
    std::unique_ptr<SystemTables> tables;
};

TEST_F(CatalogueTablesTest, AreNotThereUntilSomethingNeedsThem) {
    EXPECT_FALSE(tables->exist());
    tables->renameTable("T", "U");
    tables->removeTable("T");
    tables->removeField("T", "A");
    EXPECT_EQ(tables->info("Anything"), std::nullopt);
    EXPECT_FALSE(tables->exist());
    tables->setInfo("Anything", "x");
    EXPECT_TRUE(tables->exist());
    EXPECT_EQ(tables->info("Anything"), "x");
}

TEST_F(CatalogueTablesTest, KeepAFieldFromItsBirthToItsEnd) {
    tables->putField({.table = "T", .column = "A", .field = "A", .ordinal = 3, .type = 10, .size = 20});
    tables->putField({.table = "T", .column = "B", .field = "B", .type = 4, .size = 4, .required = true});
    EXPECT_EQ(fields(), "T.A=A 3 10 20 000; T.B=B 0 4 4 010");
    tables->putField({.table = "T",
                      .column = "A",
                      .field = "A",
                      .ordinal = 7,
                      .type = 10,
                      .size = 20,
                      .allowZeroLength = true});
    tables->renameField("T", "B", "C", "C");
    EXPECT_EQ(fields(), "T.A=A 7 10 20 100; T.C=C 0 4 4 010");
    tables->hideField("T", "A", "MSysDeleted1");
    EXPECT_EQ(fields(), "T.C=C 0 4 4 010; T.MSysDeleted1=A 7 10 20 101");
    tables->renameTable("T", "U");
    tables->removeDeletedFields("U");
    EXPECT_EQ(fields(), "U.C=C 0 4 4 010");
    tables->removeField("U", "C");
    EXPECT_EQ(fields(), "");
}

TEST_F(CatalogueTablesTest, KeepIndexes) {
    tables->putIndex({"T", "ByA", "T.ByA", true, true});
    tables->putIndex({"T", "ByB", "T.ByB~2", false, false});
    tables->renameTable("T", "U");
    EXPECT_EQ(indexes(), "U.ByA=T.ByA 11; U.ByB=T.ByB~2 00");
    tables->removeIndex("U", "ByA");
    EXPECT_EQ(indexes(), "U.ByB=T.ByB~2 00");
    tables->removeTable("U");
    EXPECT_EQ(indexes(), "");
}

TEST_F(CatalogueTablesTest, BelongToTheOpenTransaction) {
    connection->execute("BEGIN");
    tables->setInfo("Anything", "x");
    connection->execute("ROLLBACK");
    EXPECT_FALSE(tables->exist());
}

} // namespace
} // namespace tol::test
