// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteStore.h"

#include "EngineTest.h"
#include "data/sqlite/connection/FileFormat.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;
using testing::ElementsAre;

class SqliteStoreTest : public EngineTest {
  protected:
    std::string inFile(const std::string& query) {
        store->flush();
        return PlainSqlite(file()).text(query);
    }
    std::string fieldNames(const std::string& table) {
        std::string names;
        for (const auto& field : store->definition(table)->fields)
            names += field.name + " ";
        return names;
    }
    static FieldDef longField(const std::string& name) { return {.name = name, .type = dbLong, .size = 4}; }
    bool fileContains(const std::string& text) {
        store->flush();
        return folder.read(file()).find(text) != std::string::npos;
    }
};

TEST_F(SqliteStoreTest, MakesFilesThatOtherToolsCanRead) {
    makeTable(*store);
    addRows(*store, "T", 1, 2);
    EXPECT_EQ(inFile("SELECT sql FROM sqlite_schema WHERE name = 'T'"),
              "CREATE TABLE \"T\" (\"MSysKey\" INTEGER PRIMARY KEY AUTOINCREMENT, \"Id\" INTEGER, "
              "\"Name\" TEXT(20), \"Note\" TEXT)");
    EXPECT_EQ(inFile("SELECT Name FROM T WHERE Id = 2"), "n2");
    EXPECT_EQ(inFile("PRAGMA application_id"), std::to_string(sqlite::applicationId));
    EXPECT_EQ(inFile("PRAGMA user_version"), std::to_string(sqlite::formatVersion));
    EXPECT_EQ(inFile("PRAGMA journal_mode"), "delete");
}

TEST_F(SqliteStoreTest, LeavesNoFileBesideTheDatabase) {
    makeTable(*store);
    addRows(*store, "T", 1, 2);
    store.reset();
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, testing::UnorderedElementsAre("A.MDB", "drives"));
}

TEST_F(SqliteStoreTest, KeepsDefinitionsWhenReopened) {
    makeTable(*store);
    store->alter("T", SetOrdinal{"Id", 9});
    store->alter("t", SetAllowZeroLength{"name", true});
    const auto before = *store->definition("T");
    reopen();
    const auto after = *store->definition("T");
    EXPECT_EQ(fieldNames("T"), "Name Note Id ");
    EXPECT_TRUE(after.fields[0].allowZeroLength);
    EXPECT_EQ(after.fields[2].ordinal, 9);
    EXPECT_EQ(after.indexes.size(), before.indexes.size());
    EXPECT_TRUE(after.indexes[0].unique);
}

TEST_F(SqliteStoreTest, HidesADeletedFieldAtOnceAndKeepsItsBytes) {
    makeTable(*store);
    const auto cursor = openCursor(*store, "T");
    const Assignment row[] = {{0, 1}, {2, "a note that is soon gone"}};
    const std::string bookmark = cursor->insert(row);
    store->alter("T", DropField{"Note"});
    EXPECT_EQ(fieldNames("T"), "Id Name ");
    EXPECT_EQ(inFile("SELECT group_concat(name) FROM pragma_table_info('T')"),
              "MSysKey,Id,Name,MSysDeleted1");
    EXPECT_TRUE(fileContains("a note that is soon gone"));
    store->alter("T", AddField{{.name = "Note", .type = dbMemo}});
    EXPECT_EQ(column(*store, "T", 2), std::vector<Value>{runtime::Null{}});
    store->alter("T", DropField{"Note"});
    EXPECT_EQ(inFile("SELECT group_concat(FieldName || Deleted) FROM MSysFields WHERE Deleted"),
              "Note1,Note1");
}

TEST_F(SqliteStoreTest, SweepsDeletedFieldsOutBeforeTheColumnsRunOut) {
    makeTable(*store);
    addRows(*store, "T", 1, 3);
    sqlite3_limit(session().connection().handle(), SQLITE_LIMIT_COLUMN, 120);
    store->begin();
    for (int i = 0; i < 150; ++i) {
        store->alter("T", AddField{longField("Temp")});
        store->alter("T", DropField{"Temp"});
    }
    store->commit();
    EXPECT_LT(std::stoi(inFile("SELECT count(*) FROM pragma_table_info('T')")), 120);
    EXPECT_EQ(column(*store, "T", 0, "ById"), (std::vector<Value>{1, 2, 3}));
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
}

TEST_F(SqliteStoreTest, IndexNamesCountPerTable) {
    makeTable(*store);
    makeTable(*store, "U");
    EXPECT_EQ(
        inFile("SELECT group_concat(name) FROM sqlite_schema WHERE type = 'index' AND name LIKE '%.ById'"),
        "T.ById,U.ById");
    store->alter("T", RenameTable{"V"});
    makeTable(*store); // whose index finds its name taken
    reopen();
    for (const char* table : {"T", "U", "V"}) {
        ASSERT_EQ(store->definition(table)->findIndex("ById"), 0) << table;
        addRows(*store, table, 1, 3);
        EXPECT_EQ(column(*store, table, 0, "ById").size(), 3U);
        store->alter(table, DropIndex{"ById"});
        EXPECT_EQ(store->definition(table)->findIndex("ById"), -1);
    }
}

TEST_F(SqliteStoreTest, RenamesInCaseOnly) {
    makeTable(*store, "Items");
    addRows(*store, "Items", 1, 1);
    store->alter("ITEMS", RenameTable{"items"});
    store->alter("items", RenameField{"ID", "id"});
    reopen();
    EXPECT_THAT(tableNames(*store), ElementsAre("items"));
    EXPECT_EQ(store->definition("items")->fields[0].name, "id");
    EXPECT_EQ(column(*store, "items", 0, "ById"), std::vector<Value>{1});
}

TEST_F(SqliteStoreTest, TakesNamesOfAllKinds) {
    for (const char* name : {"a b", "it's \"quoted\"", "select", "Größe", "[x]", "T.ById", "99"}) {
        createTable(*store, {.name = name,
                             .fields = {longField(name)},
                             .indexes = {{.name = name, .fields = {name}, .primary = true}}});
        const auto cursor = openCursor(*store, name);
        const Assignment row[] = {{0, 7}};
        cursor->insert(row);
        cursor->setIndex(name);
        const Value key[] = {7};
        EXPECT_TRUE(cursor->seek(SeekOperator::GreaterOrEqual, key));
    }
}

TEST_F(SqliteStoreTest, RefusesNamesThatItKeepsForItself) {
    EXPECT_EQ(errorOf([&] { makeTable(*store, "sqlite_x"); }).number(), 3125);
    EXPECT_EQ(errorOf([&] { makeTable(*store, "MSysInfo"); }).number(), 3010);
    makeTable(*store);
    EXPECT_EQ(errorOf([&] { store->alter("T", AddField{longField("MSysKey")}); }).number(), 3125);
    EXPECT_EQ(errorOf([&] { store->alter("T", AddField{longField("MSysDeleted1")}); }).number(), 3125);
    EXPECT_EQ(errorOf([&] { store->alter("T", RenameField{"Id", "msyskey"}); }).number(), 3125);
    EXPECT_EQ(fieldNames("T"), "Id Name Note ");
}

TEST_F(SqliteStoreTest, AStepThatFailsLeavesNothingBehind) {
    makeTable(*store);
    addRows(*store, "T", 1, 3);
    EXPECT_NE(errorOf([&] {
                  createTable(*store, definitionOf("New", {longField("A"), longField("A")}));
              }).number(),
              0);
    EXPECT_EQ(store->definition("New"), nullptr);
    EXPECT_EQ(inFile("SELECT count(*) FROM MSysFields WHERE TableName = 'New'"), "0");
    const auto cursor = openCursor(*store, "T");
    ASSERT_TRUE(cursor->first());
    const Assignment same[] = {{1, "n2"}};
    cursor->update(same);
    const auto error =
        errorOf([&] { store->alter("T", AddIndex{{.name = "U", .fields = {"Name"}, .unique = true}}); });
    EXPECT_EQ(error.number(), 3022);
    EXPECT_EQ(store->definition("T")->findIndex("U"), -1);
    EXPECT_EQ(inFile("SELECT count(*) FROM T WHERE Name = 'n2'"), "2"); // the row before it is kept
}

TEST_F(SqliteStoreTest, APrimaryKeyTakesNoNull) {
    makeTable(*store);
    openCursor(*store, "T")->insert({});
    const auto error = errorOf([&] {
        store->alter("T", AddIndex{{.name = "Key", .fields = {"Id", "Name"}, .primary = true}});
    });
    EXPECT_EQ(error.number(), 3058);
    EXPECT_EQ(error.description(), "Index or primary key 'Key' cannot contain a Null value.");
}

TEST_F(SqliteStoreTest, UnknownNamesAreErrors) {
    makeTable(*store);
    EXPECT_EQ(errorOf([&] { store->alter("U", DropTable{}); }).number(), 3078);
    EXPECT_EQ(errorOf([&] { store->alter("T", DropField{"U"}); }).number(), 3265);
    EXPECT_EQ(errorOf([&] { store->alter("T", DropIndex{"U"}); }).number(), 3265);
    EXPECT_EQ(errorOf([&] { openCursor(*store, "U"); }).number(), 3078);
    EXPECT_EQ(errorOf([&] { openCursor(*store, "T")->setIndex("U"); }).number(), 3015);
    EXPECT_EQ(store->definition("U"), nullptr);
}

TEST_F(SqliteStoreTest, DefinitionsOutliveTheirChange) {
    makeTable(*store);
    const auto before = store->definition("T");
    store->alter("T", DropField{"Note"});
    EXPECT_EQ(before->fields.size(), 3U);
    EXPECT_EQ(store->definition("T")->fields.size(), 2U);
}

TEST_F(SqliteStoreTest, NoticesChangesOfDefinitionsByOthers) {
    makeTable(*store);
    PlainSqlite(file()).execute("CREATE TABLE Foreigners (a VARCHAR(7))");
    session().enter(sqlite::Session::Look::AtOnce);
    store->refresh();
    EXPECT_THAT(tableNames(*store), ElementsAre("Foreigners", "T"));
    PlainSqlite(file()).execute("UPDATE MSysFields SET Ordinal = 77 WHERE FieldName = 'Id'; "
                                "INSERT OR REPLACE INTO MSysInfo VALUES ('EntryChanges', '900')");
    session().enter(sqlite::Session::Look::AtOnce);
    store->refresh();
    EXPECT_EQ(store->definition("T")->fields[2].ordinal, 77);
}

TEST_F(SqliteStoreTest, AnUnchangedEntryWritesNothing) {
    makeTable(*store);
    store->flush();
    const std::string before = inFile("PRAGMA data_version") + folder.read(file());
    store->alter("T", SetOrdinal{"Id", store->definition("T")->fields[0].ordinal});
    store->alter("T", SetAllowZeroLength{"Name", false});
    EXPECT_EQ(inFile("PRAGMA data_version") + folder.read(file()), before);
}

TEST_F(SqliteStoreTest, TablesWithoutFieldsHaveRows) {
    createTable(*store, definitionOf("Empty"));
    const auto cursor = openCursor(*store, "Empty");
    const std::string first = cursor->insert({});
    EXPECT_NE(cursor->insert({}), first);
    EXPECT_EQ(cursor->count(), 2);
    ASSERT_TRUE(cursor->first());
    EXPECT_EQ(cursor->bookmark(), first);
    cursor->update({});
    cursor->remove();
    EXPECT_EQ(cursor->count(), 1);
}

TEST_F(SqliteStoreTest, MakesNoFileWhereItCannot) {
    EXPECT_EQ(errorOf([&] { engine.create(file()); }).number(), 3204);
    EXPECT_EQ(errorOf([&] { engine.create(folder / "none/B.MDB"); }).number(), 3044);
    EXPECT_TRUE(engine.recognises(folder.read(file())));
    EXPECT_FALSE(engine.recognises(""));
    EXPECT_FALSE(engine.recognises("SQLite format 2"));
}

} // namespace
} // namespace tol::test
