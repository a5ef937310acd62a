// SPDX-License-Identifier: MIT
#include "EngineTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace data;
using runtime::Value;

using SqliteRowsTest = EngineTest;

TEST_F(SqliteRowsTest, WalksStoredOrderAndIndexesBothWays) {
    makeTable(*store);
    addRows(*store, "T", 1, 3000);
    EXPECT_EQ(column(*store, "T", 0).size(), 3000U);
    const auto cursor = openCursor(*store, "T");
    cursor->setIndex("ByName");
    std::vector<std::string> forward;
    for (bool row = cursor->first(); row; row = cursor->next())
        forward.push_back(cursor->value(1).get<std::string>());
    EXPECT_EQ(forward.size(), 3000U);
    EXPECT_TRUE(std::is_sorted(forward.begin(), forward.end()));
    std::vector<std::string> backward;
    for (bool row = cursor->last(); row; row = cursor->previous())
        backward.push_back(cursor->value(1).get<std::string>());
    std::reverse(backward.begin(), backward.end());
    EXPECT_EQ(forward, backward);
}

TEST_F(SqliteRowsTest, SeeksEqualAndGreater) {
    makeTable(*store);
    addRows(*store, "T", 1, 100);
    const auto cursor = openCursor(*store, "T");
    cursor->setIndex("ById");
    const Value key[] = {42};
    ASSERT_TRUE(cursor->seek(SeekOperator::Equal, key));
    EXPECT_EQ(cursor->value(1), Value("n42"));
    const Value beyond[] = {1000};
    EXPECT_FALSE(cursor->seek(SeekOperator::GreaterOrEqual, beyond));
    cursor->setIndex("ByName");
    const Value text[] = {"N42"};
    ASSERT_TRUE(cursor->seek(SeekOperator::Equal, text));
    EXPECT_EQ(cursor->value(0), Value(42));
}

TEST_F(SqliteRowsTest, UpdatesAndDeletesInAWalk) {
    makeTable(*store);
    addRows(*store, "T", 1, 500);
    const auto cursor = openCursor(*store, "T");
    cursor->setIndex("ById");
    int visited = 0;
    for (bool row = cursor->first(); row; row = cursor->next()) {
        ++visited;
        const int id = cursor->value(0).get<std::int32_t>();
        const Assignment change[] = {{0, id + 10000}};
        cursor->update(change);
        EXPECT_EQ(cursor->value(0), Value(id + 10000));
    }
    EXPECT_EQ(visited, 500);
    for (bool row = cursor->first(); row; row = cursor->next())
        cursor->remove();
    EXPECT_EQ(cursor->count(), 0);
}

} // namespace
} // namespace tol::test
