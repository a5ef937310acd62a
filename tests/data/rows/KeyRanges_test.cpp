// SPDX-License-Identifier: MIT
#include "data/rows/KeyRanges.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using namespace data;

const StoredValue some = StoredValue::ofInteger(1);
const StoredValue none;

/// Two keys and the row key behind them.
RowOrder byTwo(bool firstDescends = false) {
    return {.terms = {{0, firstDescends}, {1}, {}}, .keys = 2};
}

/// One key that only one row has.
RowOrder byOne() {
    return {.terms = {{0}, {}}, .keys = 1, .unique = true};
}

std::string described(const std::vector<KeyRange>& ranges) {
    static const char* names[] = {"any", ">", ">=", "<", "<=", "null", "not null"};
    std::string text;
    for (const KeyRange& range : ranges)
        text += std::to_string(range.equalTerms) + " " + names[static_cast<int>(range.relation)] + "; ";
    return text;
}

std::string behind(const RowOrder& order, const std::vector<StoredValue>& position,
                   Direction direction = Direction::Forward) {
    return described(rangesBehind(order, position, direction));
}

std::string from(const RowOrder& order, const std::vector<StoredValue>& position,
                 Direction direction = Direction::Forward) {
    return described(rangesFrom(order, position, direction));
}

TEST(KeyRanges, AskForTheNearestRowsFirst) {
    EXPECT_EQ(behind(byTwo(), {some, some, some}), "2 >; 1 >; 0 >; ");
    EXPECT_EQ(behind(byTwo(), {some, none, some}), "2 >; 1 not null; 0 >; ");
    EXPECT_EQ(behind(byTwo(), {some, some, some}, Direction::Backward), "2 <; 1 <; 1 null; 0 <; 0 null; ");
    EXPECT_EQ(behind(byTwo(), {none, some, some}, Direction::Backward), "2 <; 1 <; 1 null; ");
}

TEST(KeyRanges, PassOverTheRowKeyBehindAUniqueKey) {
    EXPECT_EQ(behind(byOne(), {some, some}), "0 >; ");
    EXPECT_EQ(behind(byOne(), {none, some}), "1 >; 0 not null; ");
}

TEST(KeyRanges, FindTheFirstRowAtOrAfterFewerKeys) {
    EXPECT_EQ(from(byTwo(), {some}), "0 >=; ");
    EXPECT_EQ(from(byTwo(), {some, some}), "1 >=; 0 >; ");
    EXPECT_EQ(from(byTwo(), {none}), "0 any; ");
}

TEST(KeyRanges, FindTheLastRowAtOrBeforeFewerKeys) {
    EXPECT_EQ(from(byTwo(), {some}, Direction::Backward), "0 <=; 0 null; ");
    EXPECT_EQ(from(byTwo(), {some, some}, Direction::Backward), "1 <=; 1 null; 0 <; 0 null; ");
    EXPECT_EQ(from(byTwo(), {some, none}, Direction::Backward), "1 null; 0 <; 0 null; ");
    EXPECT_EQ(from(byTwo(), {none}, Direction::Backward), "0 null; ");
    EXPECT_EQ(from(byTwo(true), {some}, Direction::Backward), "0 >=; ");
}

TEST(KeyRanges, TurnRoundWhereAKeyDescends) {
    EXPECT_EQ(behind(byTwo(true), {some, some, some}), "2 >; 1 >; 0 <; 0 null; ");
    EXPECT_EQ(from(byTwo(true), {some}), "0 <=; 0 null; ");
    EXPECT_EQ(from(byTwo(true), {none}), "0 null; ");
}

} // namespace
} // namespace tol::test
