// SPDX-License-Identifier: MIT
#include "screens/input/Dates.h"

#include <gtest/gtest.h>
#include <limits>

namespace tol::test {
namespace {

using screens::vdDateCheck;
using screens::vdDateKey;

std::string key(std::string_view text, int pivot = 0) {
    return vdDateKey(text, pivot);
}
std::string check(std::string_view text, int width = 10, int pivot = 0) {
    return vdDateCheck(text, width, pivot);
}

TEST(DateKey, BringsYearMonthAndDayIntoOrder) {
    EXPECT_EQ(key("1/2/03"), "20030102");
    EXPECT_EQ(key("1/2/99"), "19990102");
    EXPECT_EQ(key("  12-31-2003 "), "20031231");
    EXPECT_EQ(key("1-2/3"), "20030102");
}

TEST(DateKey, CenturyTurnsAtThePivot) {
    EXPECT_EQ(key("1/1/70"), "20700101");
    EXPECT_EQ(key("1/1/71"), "19710101");
    EXPECT_EQ(key("1/1/51", 50), "19510101");
    EXPECT_EQ(key("1/1/50", 50), "20500101");
}

TEST(DateKey, NeedsExactlyTwoSeparators) {
    for (const char* text : {"1-2", "", " ", "010203", "1.2.2003", "1/2/03/4", "1/2/03/"})
        EXPECT_EQ(key(text), "        ") << text;
}

TEST(DateKey, ChecksNoRange) {
    EXPECT_EQ(key("13/45/99"), "19991345");
    EXPECT_EQ(key("a/b/c"), "200c0a0b");
}

TEST(DateKey, LeavesLongYearsAndEmptyPartsAsTheyAre) {
    EXPECT_EQ(key("1/2/003"), "0030102");
    EXPECT_EQ(key("1/2/12003"), "120030102");
    EXPECT_EQ(key("//"), "20");
    EXPECT_EQ(key("1/2/"), "200102");
}

TEST(DateCheck, AcceptsAllFormsOfADate) {
    EXPECT_EQ(check("010203"), "01/02/2003");
    EXPECT_EQ(check("1.2.2003", 8), "01/02/03");
    EXPECT_EQ(check(" 1/2/3 "), "01/02/2003");
    EXPECT_EQ(check("1-2-99"), "01/02/1999");
    EXPECT_EQ(check("12/31/1999"), "12/31/1999");
    EXPECT_EQ(check("1/2/03/4"), "01/02/2003") << "what stands behind a third separator is dropped";
    EXPECT_EQ(check("1/ 2/03"), "01/ 2/2003") << "a blank counts as a character";
}

TEST(DateCheck, FormsByWidth) {
    for (const int width : {10, 0, -1, 7, 9})
        EXPECT_EQ(check("1/2/03", width), "01/02/2003") << width;
    EXPECT_EQ(check("1/2/2003", 8), "01/02/03");
    EXPECT_EQ(check("1/2/2003", 6), "010203");
    EXPECT_EQ(check("1/2/3", 6), "010203");
}

TEST(DateCheck, CenturyTurnsAtThePivot) {
    EXPECT_EQ(check("1/1/70"), "01/01/2070");
    EXPECT_EQ(check("1/1/71"), "01/01/1971");
    EXPECT_EQ(check("1/1/51", 10, 50), "01/01/1951");
    EXPECT_EQ(check("1/1/50", 10, -50), "01/01/2050");
}

TEST(DateCheck, RefusesWhatIsNoDate) {
    for (const char* text : {"",           " ",         "  /  /  ",     "1/2",       "1//3",
                             "/2/3",       "1/2/",      "13/01/2003",   "0/1/2003",  "1/0/2003",
                             "1/32/2003",  "2/30/2004", "4/31/2003",    "6/31/2003", "9/31/2003",
                             "11/31/2003", "1/1/12003", "abcdef",       "131303",    "0102033",
                             "1/1/99x",    "1x/1/2003", "1e400/1/2003", "1/1/003",   "ä/ö/ü"})
        EXPECT_EQ(check(text), " ") << text;
}

TEST(DateCheck, TheCalendarKnowsLeapYears) {
    EXPECT_EQ(check("02/29/2001"), " ");
    EXPECT_EQ(check("02/29/2004"), "02/29/2004");
    EXPECT_EQ(check("02/29/2100"), " ");
    EXPECT_EQ(check("02/29/01", 8), " ");
    EXPECT_EQ(check("022901"), " ");
}

TEST(DateCheck, SixDigitsAreTheNumberOfADay) {
    EXPECT_EQ(check("02/29/2001", 6), "022901");
    EXPECT_EQ(check("12/31/99", 6), "123199");
    EXPECT_EQ(check("1 2 03", 6), " ") << "blanks make it neither number nor date";
}

TEST(DateCheck, YearsBeyondTheCommonOnesStayAsTyped) {
    EXPECT_EQ(check("1/2/3000"), "01/02/3000");
    EXPECT_EQ(check("1/2/9999"), "01/02/9999");
    EXPECT_EQ(check("1/2/100"), "01/02/100");
}

TEST(Pivot, IsCleanedInPlaceByBothRoutines) {
    struct Case {
        int before, after;
    };
    const Case cases[] = {{0, 70},   {-50, 50}, {50, 50},   {99, 99}, {-99, 99},
                          {100, 70}, {120, 70}, {-120, 70}, {1, 1},   {std::numeric_limits<int>::min(), 70}};
    for (const Case& c : cases) {
        int pivot = c.before;
        vdDateKey("1/2/03", pivot);
        EXPECT_EQ(pivot, c.after);
        pivot = c.before;
        vdDateCheck("no date", 10, pivot);
        EXPECT_EQ(pivot, c.after);
    }
}

} // namespace
} // namespace tol::test
