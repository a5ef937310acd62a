// SPDX-License-Identifier: MIT
#include "tolctl/ActivityRows.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

update::ActivityRow row(std::string site, std::string table, std::string action) {
    return {std::move(site),   "WORK",       std::move(table), " ", " ",
            std::move(action), "01/31/2003", "4:05:00 PM"};
}

TEST(ActivityTable, LeavesBlankColumnsBlank) {
    const ctl::ActivityTable table;
    EXPECT_EQ(table.line(row("NORTH", "CREW", "Added New Table.")),
              "NORTH             WORK        CREW                                                  Added New "
              "Table.                          01/31/2003  4:05:00 PM");
}

TEST(ActivityTable, WidensItsColumnsByCharacters) {
    ctl::ActivityTable table;
    const update::ActivityRow wide = row("ÄÖÜ 3456789 123456", "CREW", "x");
    table.widen(wide);
    const std::string line = table.line(row("NORTH", "CREW", "x"));
    EXPECT_EQ(line.find("WORK"), 20U);
    EXPECT_EQ(table.line(wide).find("WORK"), 23U); // three characters of two bytes
    EXPECT_EQ(table.heading().find("Database"), 20U);
}

TEST(ActivityTable, ALongTextPushesTheRestOfItsLine) {
    const ctl::ActivityTable table;
    const std::string line = table.line(row(std::string(30, 'N'), "CREW", "x"));
    EXPECT_EQ(line.find("WORK"), 32U);
}

} // namespace
} // namespace tol::test
