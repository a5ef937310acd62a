// SPDX-License-Identifier: MIT
#include "data/sqlite/RowKey.h"

#include "EngineTest.h"

namespace tol::test {
namespace {

using namespace data::sqlite;

PhysicalTable tableWithRowIds() {
    PhysicalTable table;
    table.rowKey = {"MSysKey"};
    return table;
}

PhysicalTable tableWithoutRowIds() {
    PhysicalTable table;
    table.rowKey = {"a", "b \"c\""};
    table.withoutRowId = true;
    return table;
}

std::string back(const PhysicalTable& table, const std::string& bookmark) {
    return bookmarkOf(valuesOf(keyOfBookmark(table, bookmark)));
}

TEST(RowKey, IsItsDigitsInTablesWithRowIds) {
    const StoredValue key = StoredValue::ofInteger(-12);
    EXPECT_EQ(bookmarkOf({&key, 1}), "-12");
    EXPECT_EQ(back(tableWithRowIds(), "9223372036854775807"), "9223372036854775807");
}

TEST(RowKey, KeepsEveryPartInTablesWithoutRowIds) {
    const StoredValue key[] = {StoredValue::ofText("a:1t"), StoredValue::ofReal(0.1)};
    const std::string bookmark = bookmarkOf(key);
    EXPECT_EQ(back(tableWithoutRowIds(), bookmark), bookmark);
    const auto parts = valuesOf(keyOfBookmark(tableWithoutRowIds(), bookmark));
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[1].real, 0.1);
    const StoredValue blob[] = {StoredValue::ofBlob(std::string_view("\0x", 2)), StoredValue::ofText("")};
    EXPECT_EQ(back(tableWithoutRowIds(), bookmarkOf(blob)), bookmarkOf(blob));
}

TEST(RowKey, RefusesTextsThatAreNoBookmark) {
    for (const char* text : {"", " ", "x", "1 ", "1.5", "99999999999999999999", "i1:1"})
        EXPECT_EQ(errorOf([&] { keyOfBookmark(tableWithRowIds(), text); }).number(), 3159) << text;
    for (const char* text : {"", "12", "i1:1", "i1:1t9:x", "n0:i1:1", "z1:1i1:1", "i1:xi1:1", "i1:1i1:1i1:1"})
        EXPECT_EQ(errorOf([&] { keyOfBookmark(tableWithoutRowIds(), text); }).number(), 3159) << text;
}

TEST(RowKey, NamesItsColumns) {
    EXPECT_EQ(rowKeyColumns(tableWithoutRowIds()), "\"a\", \"b \"\"c\"\"\"");
    EXPECT_EQ(rowKeyCondition(tableWithoutRowIds()), "\"a\" = ? AND \"b \"\"c\"\"\" = ?");
}

} // namespace
} // namespace tol::test
