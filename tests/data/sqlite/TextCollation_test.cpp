// SPDX-License-Identifier: MIT
#include "EngineTest.h"
#include "data/sqlite/definitions/SystemTables.h"
#include "runtime/Text.h"

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;

class TextCollationTest : public EngineTest {
  protected:
    TextCollationTest() {
        makeTable(*store);
        const auto cursor = openCursor(*store, "T");
        int id = 0;
        for (const char* name : {"b", "É", "a", "e", "Z", "ä", "A"}) {
            const Assignment row[] = {{0, ++id}, {1, name}};
            cursor->insert(row);
        }
        store->flush();
    }

    static std::vector<std::string> texts(const std::vector<Value>& values) {
        std::vector<std::string> result;
        for (const auto& value : values)
            result.push_back(value.get<std::string>());
        return result;
    }

    /// Makes the index as another collator would have sorted it.
    void spoilIndex() {
        store->flush();
        store.reset();
        PlainSqlite plain(file());
        plain.useBinaryTextOrder();
        plain.execute("REINDEX; UPDATE MSysInfo SET Value = 'other' WHERE Name = 'CollatorVersion'");
    }

    const std::vector<std::string> sorted = {"a", "A", "ä", "b", "e", "É", "Z"};
};

TEST_F(TextCollationTest, SortsWithoutRegardToCase) {
    EXPECT_EQ(texts(column(*store, "T", 1, "ByName")), sorted);
}

TEST_F(TextCollationTest, KeysOfAUniqueIndexAreEqualByCaseAlone) {
    createTable(*store, definitionOf("U", {{"KEY", dbText, 20}}, {{"KEY", {"KEY"}, true, true}}));
    const auto cursor = openCursor(*store, "U");
    const auto insert = [&](const char* key) {
        const Assignment row[] = {{0, key}};
        cursor->insert(row);
    };
    const std::vector<const char*> keys = {"M2", "M²",     "ª",      "A",      "a\u00ADb",
                                           "AB", "a\x01b", "Straße", "STRASSE"};
    for (const char* key : keys)
        insert(key);
    for (const char* same : {"m2", "m²", "a", "A\u00ADB", "ab", "STRAßE", "strasse"})
        EXPECT_EQ(errorOf([&] { insert(same); }).number(), 3022) << same;
    cursor->setIndex("KEY");
    for (const char* key : keys) {
        const Value sought[] = {runtime::upperCase(key)};
        ASSERT_TRUE(cursor->seek(SeekOperator::Equal, sought)) << key;
        EXPECT_EQ(cursor->value(0), Value(key));
    }
}

TEST_F(TextCollationTest, StandsOnTheIndexAlone) {
    PlainSqlite plain(file());
    EXPECT_EQ(plain.text("SELECT sql FROM sqlite_schema WHERE type = 'index' AND name = 'T.ByName'"),
              "CREATE INDEX \"T.ByName\" ON \"T\" (\"Name\" COLLATE TOLTEXT)");
    EXPECT_EQ(plain.text("SELECT instr(sql, 'COLLATE') FROM sqlite_schema WHERE name = 'T'"), "0");
}

TEST_F(TextCollationTest, SortsIndexesAnewForAnotherVersionOfTheCollator) {
    spoilIndex();
    store = engine.open(file(), false);
    EXPECT_EQ(texts(column(*store, "T", 1, "ByName")), sorted);
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
    EXPECT_NE(PlainSqlite(file()).text("SELECT Value FROM MSysInfo WHERE Name = 'CollatorVersion'"), "other");
}

TEST_F(TextCollationTest, TellsWhichKeysHaveBecomeEqual) {
    createTable(*store, definitionOf("U", {{"KEY", dbText, 20}}, {{"KEY", {"KEY"}, true, true}}));
    spoilIndex();
    PlainSqlite plain(file());
    plain.useBinaryTextOrder();
    plain.execute("INSERT INTO U (KEY) VALUES ('s'), ('\u017F')");
    const auto error = errorOf([&] { engine.open(file(), false); });
    EXPECT_EQ(error.number(), 3022);
    EXPECT_EQ(error.description(),
              "The change was not made: it would create duplicate values in the index or primary key "
              "'U.KEY'. (" +
                  file().string() + ")");
    store = engine.open(file(), true);
    EXPECT_EQ(column(*store, "U", 0, "KEY").size(), 2U);
}

TEST_F(TextCollationTest, WalksNoOutdatedIndexWhereItCannotBeSortedAnew) {
    spoilIndex();
    store = engine.open(file(), true);
    EXPECT_EQ(texts(column(*store, "T", 1, "ByName")), sorted);
    const auto cursor = openCursor(*store, "T");
    cursor->setIndex("ByName");
    const Value key[] = {"É"};
    ASSERT_TRUE(cursor->seek(SeekOperator::Equal, key));
    EXPECT_EQ(cursor->value(0), Value(2));
    ASSERT_TRUE(cursor->previous());
    EXPECT_EQ(cursor->value(1), Value("e"));
    EXPECT_EQ(PlainSqlite(file()).text("SELECT Value FROM MSysInfo WHERE Name = 'CollatorVersion'"), "other");
}

} // namespace
} // namespace tol::test
