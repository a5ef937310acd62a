// SPDX-License-Identifier: MIT
#include "data/sqlite/KeyOrder.h"

#include "EngineTest.h"
#include "data/sqlite/Catalogue.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace data;
using namespace data::sqlite;
using testing::HasSubstr;
using testing::Not;
using Relation = Level::Relation;

class KeyOrderTest : public EngineTest {
  protected:
    KeyOrderTest() {
        store->createTable({.name = "T",
                            .fields = {{.name = "A", .type = dbText, .size = 10},
                                       {.name = "B", .type = dbLong},
                                       {.name = "C", .type = dbLong}},
                            .indexes = {{.name = "Both", .fields = {"A", "B"}},
                                        {.name = "One", .fields = {"B"}, .unique = true}}});
        table = *Catalogue(session().connection()).table("T");
    }

    std::string plan(const std::string& sql) {
        Statement statement(session().connection(), "EXPLAIN QUERY PLAN " + sql);
        std::string text;
        while (statement.step())
            text += std::string(statement.text(3)) + "\n";
        return text;
    }

    std::string described(const std::vector<Level>& levels) {
        static const char* names[] = {"all", ">", ">=", "<", "<=", "null", "not null"};
        std::string text;
        for (const auto& level : levels)
            text += std::to_string(level.equalTerms) + " " + names[static_cast<int>(level.relation)] + "; ";
        return text;
    }

    PhysicalTable table;
};

TEST_F(KeyOrderTest, EndsInTheRowKey) {
    const KeyOrder order(table, 0);
    EXPECT_EQ(order.keys(), 2U);
    EXPECT_EQ(order.terms(), 3U);
    EXPECT_TRUE(order.slot(2).inRowKey);
    EXPECT_TRUE(order.usesField(0));
    EXPECT_EQ(KeyOrder(table, KeyOrder::storedOrder).terms(), 1U);
}

TEST_F(KeyOrderTest, AsksForTheNearestRowsFirst) {
    const KeyOrder order(table, 0);
    EXPECT_EQ(described(order.levelsBehind({false, false, false}, Direction::Forward)), "2 >; 1 >; 0 >; ");
    EXPECT_EQ(described(order.levelsBehind({false, true, false}, Direction::Forward)),
              "2 >; 1 not null; 0 >; ");
    EXPECT_EQ(described(order.levelsBehind({false, false, false}, Direction::Backward)),
              "2 <; 1 <; 1 null; 0 <; 0 null; ");
    EXPECT_EQ(described(order.levelsBehind({true, false, false}, Direction::Backward)), "2 <; 1 <; 1 null; ");
}

TEST_F(KeyOrderTest, PassesOverTheRowKeyBehindAUniqueKey) {
    const KeyOrder order(table, 1);
    EXPECT_EQ(described(order.levelsBehind({false, false}, Direction::Forward)), "0 >; ");
    EXPECT_EQ(described(order.levelsBehind({true, false}, Direction::Forward)), "1 >; 0 not null; ");
}

TEST_F(KeyOrderTest, FindsTheFirstRowAtOrAfterFewerKeys) {
    const KeyOrder order(table, 0);
    EXPECT_EQ(described(order.levelsFrom({false})), "0 >=; ");
    EXPECT_EQ(described(order.levelsFrom({false, false})), "1 >=; 0 >; ");
    EXPECT_EQ(described(order.levelsFrom({true})), "0 all; ");
}

TEST_F(KeyOrderTest, TurnsRoundWhereAKeyDescends) {
    table.indexes[0].descending = {true, false};
    const KeyOrder order(table, 0);
    EXPECT_EQ(described(order.levelsBehind({false, false, false}, Direction::Forward)),
              "2 >; 1 >; 0 <; 0 null; ");
    EXPECT_EQ(described(order.levelsFrom({false})), "0 <=; 0 null; ");
    EXPECT_EQ(described(order.levelsFrom({true})), "0 null; ");
    EXPECT_THAT(order.query("*", {0, Relation::None}, Direction::Forward),
                HasSubstr("\"A\" COLLATE \"TOLTEXT\" DESC"));
}

TEST_F(KeyOrderTest, NeverSorts) {
    for (const int index : {0, 1, KeyOrder::storedOrder}) {
        const KeyOrder order(table, index);
        for (std::size_t equal = 0; equal < order.terms(); ++equal) {
            for (const auto relation :
                 {Relation::None, Relation::Greater, Relation::GreaterOrEqual, Relation::Less,
                  Relation::LessOrEqual, Relation::IsNull, Relation::IsNotNull}) {
                for (const auto direction : {Direction::Forward, Direction::Backward}) {
                    const std::string sql = order.query("*", {equal, relation}, direction);
                    EXPECT_THAT(plan(sql), Not(HasSubstr("TEMP B-TREE"))) << sql;
                    if (equal > 0 && index != KeyOrder::storedOrder) {
                        EXPECT_THAT(plan(sql), HasSubstr("SEARCH T USING INDEX T.")) << sql;
                    }
                }
            }
        }
    }
}

TEST_F(KeyOrderTest, LeavesAnOutdatedIndexAlone) {
    table.indexes[0].outdated = true;
    EXPECT_THAT(KeyOrder(table, 0).query("*", {0, Relation::None}, Direction::Forward),
                HasSubstr("NOT INDEXED"));
}

} // namespace
} // namespace tol::test
