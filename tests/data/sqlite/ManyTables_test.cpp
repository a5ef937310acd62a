// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "StatementCount.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

/// A file of so many tables that it is quicker to write a small one anew than to alter it.
class ManyTables : public EngineTest {
  protected:
    ManyTables() {
        makeTable(*store);
        addRows(*store, "T", 1, 40);
        store->begin();
        for (int number = 0; number < 600; ++number)
            createTable(*store, definitionOf("T" + std::to_string(number), {{.name = "A", .type = dbLong}}));
        store->commit();
    }

    /// How many statements that begin so the step takes.
    int statements(std::string_view begin, const std::function<void()>& step) {
        const StatementCount counter(session().connection().handle(), begin);
        step();
        return counter.count();
    }

    [[nodiscard]] Texts fieldNames() const {
        Texts names;
        for (const auto& field : store->definition("T")->fields)
            names.push_back(field.name);
        return names;
    }

    /// The row key and what lies in "Name", row by row.
    std::string rowsInFile() {
        store->flush();
        return PlainSqlite(file()).text("SELECT group_concat(MSysKey || Name || ifnull(Note, '')) FROM T");
    }
};

TEST_F(ManyTables, FieldsOfASmallOneComeAndGoWithoutAlteringIt) {
    const std::string before = rowsInFile();
    EXPECT_EQ(statements("ALTER",
                         [&] {
                             store->alter("T", AddField{{.name = "X", .type = dbDouble}});
                             store->alter("T", DropField{"Note"});
                             store->alter("T", AddField{{.name = "Note", .type = dbText, .size = 9}});
                             store->alter("T", DropField{"X"});
                         }),
              0);
    EXPECT_EQ(rowsInFile(), before);
    EXPECT_THAT(fieldNames(), ElementsAre("Id", "Name", "Note"));
    EXPECT_EQ(store->definition("T")->fields[2].type, dbText);
    EXPECT_EQ(store->definition("T")->fields[2].size, 9);
    ASSERT_EQ(store->definition("T")->indexes.size(), 2U);
    EXPECT_TRUE(store->definition("T")->indexes[0].unique);
    EXPECT_EQ(PlainSqlite(file()).text("SELECT count(*) FROM pragma_table_xinfo('T')"), "4")
        << "nothing hidden";
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
    reopen();
    EXPECT_THAT(fieldNames(), ElementsAre("Id", "Name", "Note"));
    EXPECT_EQ(column(*store, "T", 1, "ByName").size(), 40U);
}

TEST_F(ManyTables, AFieldOfASmallOneIsRenamedWithoutAlteringItUnlessAnIndexHasIt) {
    const std::string before = rowsInFile();
    const auto renames = [&](const char* field, const char* newName) {
        return statements("ALTER", [&] { store->alter("T", RenameField{field, newName}); });
    };
    EXPECT_EQ(renames("Note", "Remark"), 0);
    EXPECT_THAT(fieldNames(), ElementsAre("Id", "Name", "Remark"));
    EXPECT_EQ(renames("Name", "Label"), 1);
    EXPECT_EQ(renames("Label", "Name"), 1);
    EXPECT_EQ(renames("Remark", "Note"), 0);
    EXPECT_EQ(rowsInFile(), before);
    reopen();
    EXPECT_THAT(fieldNames(), ElementsAre("Id", "Name", "Note"));
    EXPECT_EQ(column(*store, "T", 1, "ByName").size(), 40U);
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
}

TEST_F(ManyTables, RowKeysAreNotGivenAgain) {
    const auto last = [&] { return PlainSqlite(file()).text("SELECT max(MSysKey) FROM T"); };
    {
        const auto cursor = openCursor(*store, "T");
        ASSERT_TRUE(cursor->last());
        cursor->remove();
    }
    store->alter("T", AddField{{.name = "X", .type = dbLong}});
    addRows(*store, "T", 90, 90);
    EXPECT_EQ(last(), "41");
}

TEST_F(ManyTables, StepThatIsTakenBackLeavesTheTable) {
    const std::string before = rowsInFile();
    store->begin();
    store->alter("T", DropField{"Note"});
    store->alter("T", AddField{{.name = "X", .type = dbLong}});
    store->rollback();
    EXPECT_THAT(fieldNames(), ElementsAre("Id", "Name", "Note"));
    EXPECT_EQ(rowsInFile(), before);
}

TEST_F(ManyTables, WhatOthersHavePutOnATableStays) {
    store.reset();
    PlainSqlite(file()).execute("CREATE INDEX others ON T (Id) WHERE Id > 7");
    store = engine.open(file(), false);
    store->alter("T", AddField{{.name = "X", .type = dbLong}});
    store->alter("T", DropField{"Note"});
    store->flush();
    EXPECT_EQ(PlainSqlite(file()).text("SELECT count(*) FROM sqlite_schema WHERE name = 'others'"), "1");
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
}

TEST_F(ManyTables, LargeOneIsAltered) {
    addRows(*store, "T", 41, 2000);
    EXPECT_EQ(statements("ALTER", [&] { store->alter("T", AddField{{.name = "X", .type = dbDouble}}); }), 1);
}

} // namespace
} // namespace tol::test
