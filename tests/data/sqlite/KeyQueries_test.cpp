// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/KeyQueries.h"

#include "EngineTest.h"
#include "data/rows/KeyRanges.h"
#include "data/sqlite/definitions/CatalogueReader.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace data;
using namespace data::sqlite;
using testing::HasSubstr;
using testing::Not;
using Relation = KeyRange::Relation;

class KeyQueriesTest : public EngineTest {
  protected:
    KeyQueriesTest() {
        createTable(*store, {.name = "T",
                             .fields = {{.name = "A", .type = dbText, .size = 10},
                                        {.name = "B", .type = dbLong},
                                        {.name = "C", .type = dbLong}},
                             .indexes = {{.name = "Both", .fields = {"A", "B"}},
                                         {.name = "One", .fields = {"B"}, .unique = true}}});
        table = *CatalogueReader(session().connection()).table("T");
    }

    std::string plan(const std::string& sql) {
        Statement statement(session().connection(), "EXPLAIN QUERY PLAN " + sql);
        std::string text;
        while (statement.step())
            text += std::string(statement.text(3)) + "\n";
        return text;
    }

    StoredTable table;
};

TEST_F(KeyQueriesTest, EndsInTheRowKey) {
    const RowOrder order = KeyQueries(table, 0).order();
    EXPECT_EQ(order.keys, 2U);
    ASSERT_EQ(order.terms.size(), 3U);
    EXPECT_EQ(order.terms[2].field, RowOrder::rowKey);
    EXPECT_TRUE(usesField(order, 0));
    EXPECT_EQ(KeyQueries(table, KeyQueries::storedOrder).order().terms.size(), 1U);
}

TEST_F(KeyQueriesTest, TurnsRoundWhereAKeyDescends) {
    table.indexes[0].descending = {true, false};
    const KeyQueries queries(table, 0);
    EXPECT_TRUE(queries.order().terms[0].descending);
    EXPECT_THAT(queries.query("*", {0, Relation::Any}, Direction::Forward),
                HasSubstr("\"A\" COLLATE \"TOLTEXT\" DESC"));
}

TEST_F(KeyQueriesTest, NeverSorts) {
    for (const int index : {0, 1, KeyQueries::storedOrder}) {
        const KeyQueries queries(table, index);
        for (std::size_t equal = 0; equal < queries.order().terms.size(); ++equal) {
            for (const auto relation :
                 {Relation::Any, Relation::Greater, Relation::GreaterOrEqual, Relation::Less,
                  Relation::LessOrEqual, Relation::IsNull, Relation::IsNotNull}) {
                for (const auto direction : {Direction::Forward, Direction::Backward}) {
                    const std::string sql = queries.query("*", {equal, relation}, direction);
                    EXPECT_THAT(plan(sql), Not(HasSubstr("TEMP B-TREE"))) << sql;
                    if (equal > 0 && index != KeyQueries::storedOrder) {
                        EXPECT_THAT(plan(sql), HasSubstr("SEARCH T USING INDEX T.")) << sql;
                    }
                }
            }
        }
    }
}

TEST_F(KeyQueriesTest, LeavesAnOutdatedIndexAlone) {
    table.indexes[0].outdated = true;
    EXPECT_THAT(KeyQueries(table, 0).query("*", {0, Relation::Any}, Direction::Forward),
                HasSubstr("NOT INDEXED"));
}

} // namespace
} // namespace tol::test
