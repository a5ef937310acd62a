// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "data/rows/Cursor.h"

#include <fstream>

using namespace tol::data;
using namespace tol::test;
using tol::runtime::Null;
using tol::runtime::Value;
using Texts = std::vector<std::string>;

namespace {

std::string inUse(const std::string& table) {
    return "3211 Could not lock table '" + table + "'; it is in use by another user or process.";
}

/// What the interface relies on in an engine, asked without the interface in between.
class EngineContract : public testing::TestWithParam<EngineUnderTest> {
  protected:
    EngineContract() : engine(GetParam().make()), store(engine->create(path())) {
        TableDefinition table;
        table.name = "Table";
        table.fields = {field("N", dbLong), field("TXT", dbText, 20)};
        table.indexes = {plainIndex("BYN", {"N"}), plainIndex("BOTH", {"TXT", "N"})};
        store->alter(table.name, CreateTable{table});
    }

    [[nodiscard]] std::filesystem::path path() const { return folder / "FILE.MDB"; }

    std::string insert(Cursor& cursor, int number, const std::string& text = "x") {
        const Assignment values[] = {{0, number}, {1, text}};
        return cursor.insert(values);
    }
    static void setNumber(Cursor& cursor, int number) {
        const Assignment values[] = {{0, number}};
        cursor.update(values);
    }
    static int numberAt(Cursor& cursor) { return cursor.value(0).get<std::int32_t>(); }

    static Texts tableNames(Store& store) {
        Texts names;
        for (const auto& table : store.catalogue()->tables())
            names.push_back(table->name);
        return names;
    }

    TempFolder folder;
    std::unique_ptr<Engine> engine;
    std::shared_ptr<Store> store;
};

} // namespace

TEST_P(EngineContract, RecognisesItsOwnFilesOnly) {
    store->flush();
    store.reset();
    std::string bytes(100, '\0');
    std::ifstream(path(), std::ios::binary).read(bytes.data(), 100);
    EXPECT_TRUE(engine->recognises(bytes));
    EXPECT_FALSE(engine->recognises(""));
    EXPECT_FALSE(engine->recognises("Standard"));
    EXPECT_FALSE(engine->recognises(std::string(100, '\0')));
    store = engine->open(path(), false);
    EXPECT_EQ(store->path(), path());
    EXPECT_EQ(tableNames(*store), Texts{"Table"});
}

TEST_P(EngineContract, MakesNoFileOverAnother) {
    store->flush();
    const std::string before = folder.read("FILE.MDB");
    EXPECT_EQ(raised([&] { engine->create(path()); }).substr(0, 4), "3204");
    EXPECT_EQ(raised([&] { engine->create(folder / "no" / "where.mdb"); }).substr(0, 4), "3044");
    EXPECT_EQ(tableNames(*store), Texts{"Table"});
}

TEST_P(EngineContract, DefinitionKeepsTheStateThatItHad) {
    const auto before = store->definition("TABLE");
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(before->name, "Table");
    EXPECT_EQ(store->definition("none"), nullptr);
    store->alter("table", AddField{field("MORE", dbMemo)});
    store->alter("TABLE", DropIndex{"byn"});
    store->alter("TABLE", RenameField{"txt", "TEXT"});
    store->alter("TABLE", RenameTable{"Other"});
    EXPECT_EQ(before->fields.size(), 2U);
    EXPECT_EQ(before->indexes.size(), 2U);
    EXPECT_EQ(before->name, "Table");
    EXPECT_EQ(store->definition("Table"), nullptr);
    const auto after = store->definition("other");
    EXPECT_EQ(after->fields.size(), 3U);
    EXPECT_EQ(after->fields[2].ordinal, 2); // behind the last one
    EXPECT_EQ(after->indexes[0].fields, (Texts{"TEXT", "N"}));
    store->alter("OTHER", DropTable{});
    EXPECT_EQ(tableNames(*store), Texts{});
    EXPECT_EQ(after->fields.size(), 3U);
}

TEST_P(EngineContract, DefinitionIsTheSameObjectWhileNothingChanges) {
    EXPECT_EQ(store->definition("Table"), store->definition("TABLE"));
    store->refresh();
    EXPECT_EQ(store->definition("Table"), store->definition("TABLE"));
}

TEST_P(EngineContract, EntriesAreChangedByTheOnlyUser) {
    const auto use = store->useTable("Table");
    EXPECT_EQ(raised([&] { store->alter("Table", SetOrdinal{"n", 9}); }), inUse("Table"));
    EXPECT_EQ(raised([&] { store->alter("Table", SetAllowZeroLength{"TXT", true}); }), inUse("Table"));
    store->alter("Table", SetOrdinal{"n", 9}, use.get());
    store->alter("Table", SetAllowZeroLength{"TXT", true}, use.get());
    store->alter("Table", SetOrdinal{"n", 9});
    const auto table = store->definition("Table");
    EXPECT_EQ(table->fields[0].name, "TXT"); // by ordinal
    EXPECT_EQ(table->fields[1].ordinal, 9);
    EXPECT_TRUE(table->fields[0].allowZeroLength);
}

TEST_P(EngineContract, UseKeepsSchemaStepsAway) {
    auto first = store->useTable("Table");
    auto second = store->useTable("TABLE");
    const auto steps = [&] {
        return Texts{raised([&] { store->alter("Table", DropTable{}); }),
                     raised([&] { store->alter("Table", RenameTable{"X"}); }),
                     raised([&] { store->alter("Table", AddField{field("X", dbLong)}); }),
                     raised([&] { store->alter("Table", DropField{"N"}); }),
                     raised([&] {
                         store->alter("Table", RenameField{"N", "X"});
                     }),
                     raised([&] { store->alter("Table", AddIndex{plainIndex("X", {"N"})}); }),
                     raised([&] { store->alter("Table", DropIndex{"BYN"}); })};
    };
    EXPECT_EQ(steps(), Texts(7, inUse("Table")));
    first.reset();
    EXPECT_EQ(steps(), Texts(7, inUse("Table")));
    TableDefinition other;
    other.name = "Other";
    store->alter(other.name, CreateTable{other});
    second.reset();
    store->alter("Table", DropTable{});
    EXPECT_EQ(tableNames(*store), Texts{"Other"});
}

TEST_P(EngineContract, CursorStandsOnNoRowAtFirst) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "table");
    insert(*cursor, 1);
    for (const char* index : {"", "BYN", "byn"}) {
        cursor->setIndex(index);
        EXPECT_FALSE(cursor->next());
        EXPECT_FALSE(cursor->previous());
        EXPECT_TRUE(cursor->first());
    }
    EXPECT_EQ(raised([&] { cursor->setIndex("NONE"); }), "3015 'NONE' is not an index in this table.");
}

TEST_P(EngineContract, InsertLeavesTheCursorWhereItIs) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    const std::string first = insert(*cursor, 1);
    ASSERT_TRUE(cursor->first());
    const std::string second = insert(*cursor, 2);
    EXPECT_EQ(cursor->bookmark(), first);
    EXPECT_EQ(cursor->count(), 2);
    EXPECT_TRUE(cursor->seekBookmark(second));
    EXPECT_EQ(numberAt(*cursor), 2);
    EXPECT_TRUE(cursor->previous());
    EXPECT_EQ(cursor->bookmark(), first);
    EXPECT_FALSE(cursor->previous());
}

TEST_P(EngineContract, WalkGoesOnOverCommitsAndOverChangesOfOthers) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    const auto other = openCursor(*store, "Table");
    for (int i = 0; i < 40; ++i)
        insert(*cursor, i);
    cursor->setIndex("BYN");
    other->setIndex("BYN");
    int met = 0;
    for (bool onRow = cursor->first(); onRow; onRow = cursor->next(), ++met) {
        EXPECT_EQ(numberAt(*cursor), met);
        store->flush();
        const Value next[] = {met + 1};
        if (met % 4 == 0 && other->seek(SeekOperator::Equal, next)) {
            other->remove(); // just ahead
            insert(*other, met + 1, "new");
        }
    }
    EXPECT_EQ(met, 40);
    EXPECT_EQ(cursor->count(), 40);
}

TEST_P(EngineContract, GoneRowRaisesAndIsSteppedOver) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    const auto other = openCursor(*store, "Table");
    std::string marks[3];
    for (int i = 0; i < 3; ++i)
        marks[i] = insert(*cursor, i);
    ASSERT_TRUE(cursor->seekBookmark(marks[1]));
    ASSERT_TRUE(other->seekBookmark(marks[1]));
    other->remove();
    EXPECT_EQ(raised([&] { static_cast<void>(cursor->value(0)); }), "3167 Record is deleted.");
    EXPECT_EQ(raised([&] { setNumber(*cursor, 7); }), "3167 Record is deleted.");
    EXPECT_EQ(raised([&] { cursor->remove(); }), "3167 Record is deleted.");
    EXPECT_TRUE(cursor->next());
    EXPECT_EQ(cursor->bookmark(), marks[2]);
    EXPECT_TRUE(other->previous());
    EXPECT_EQ(other->bookmark(), marks[0]);
    EXPECT_FALSE(cursor->seekBookmark(marks[1]));
    EXPECT_EQ(raised([&] { cursor->seekBookmark("?"); }), "3159 Not a valid bookmark.");
}

TEST_P(EngineContract, FailedUpdateLeavesRowAndPlace) {
    store->alter("Table", AddIndex{uniqueIndex("U", {"N"})});
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    for (int i = 0; i < 3; ++i)
        insert(*cursor, i);
    cursor->setIndex("U");
    ASSERT_TRUE(cursor->first());
    EXPECT_EQ(raised([&] { setNumber(*cursor, 2); }).substr(0, 4), "3022");
    EXPECT_EQ(raised([&] { insert(*cursor, 1); }).substr(0, 4), "3022");
    EXPECT_EQ(numberAt(*cursor), 0);
    EXPECT_EQ(cursor->count(), 3);
    EXPECT_TRUE(cursor->next());
    EXPECT_EQ(numberAt(*cursor), 1);
}

TEST_P(EngineContract, SeeksWithFewerKeys) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    insert(*cursor, 2, "b");
    insert(*cursor, 1, "B");
    insert(*cursor, 3, "a");
    cursor->setIndex("BOTH");
    const Value b[] = {"b"};
    EXPECT_TRUE(cursor->seek(SeekOperator::Equal, b));
    EXPECT_EQ(numberAt(*cursor), 1);
    const Value beyond[] = {"b", 3};
    EXPECT_FALSE(cursor->seek(SeekOperator::GreaterOrEqual, beyond));
    const Value before[] = {"a", 4};
    EXPECT_TRUE(cursor->seek(SeekOperator::GreaterOrEqual, before));
    EXPECT_EQ(numberAt(*cursor), 1);
    const Value none[] = {Null()};
    EXPECT_TRUE(cursor->seek(SeekOperator::GreaterOrEqual, none));
    EXPECT_EQ(numberAt(*cursor), 3);
    EXPECT_FALSE(cursor->seek(SeekOperator::Equal, none));
}

TEST_P(EngineContract, RollbackUndoesRowsAndDefinitions) {
    const auto use = store->useTable("Table");
    const auto cursor = openCursor(*store, "Table");
    insert(*cursor, 1);
    ASSERT_TRUE(cursor->first());
    store->begin();
    setNumber(*cursor, 5);
    insert(*cursor, 6);
    TableDefinition other;
    other.name = "Other";
    store->alter(other.name, CreateTable{other});
    EXPECT_EQ(cursor->count(), 2);
    store->flush(); // not for this one
    store->rollback();
    EXPECT_EQ(cursor->count(), 1);
    EXPECT_EQ(numberAt(*cursor), 1);
    EXPECT_EQ(tableNames(*store), Texts{"Table"});
    store->alter(other.name, CreateTable{other});
    store->begin();
    setNumber(*cursor, 8);
    store->commit();
    EXPECT_EQ(numberAt(*cursor), 8);
}

TEST_P(EngineContract, RowsAreThereAfterReopening) {
    std::string mark;
    {
        const auto use = store->useTable("Table");
        const auto cursor = openCursor(*store, "Table");
        insert(*cursor, 1, "one");
        mark = insert(*cursor, 2, "two");
    }
    store.reset(); // commits what waits
    store = engine->open(path(), true);
    const auto cursor = openCursor(*store, "Table");
    EXPECT_EQ(cursor->count(), 2);
    EXPECT_TRUE(cursor->seekBookmark(mark));
    EXPECT_EQ(cursor->value(1), Value("two"));
    EXPECT_EQ(raised([&] { insert(*cursor, 3); }).substr(0, 4), "3027");
    EXPECT_EQ(raised([&] { store->alter("Table", DropTable{}); }).substr(0, 4), "3027");
}

TOL_OVER_ALL_ENGINES(EngineContract);
