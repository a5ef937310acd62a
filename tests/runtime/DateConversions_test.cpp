// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"

#include "support/Raises.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using namespace runtime;

TEST(DateConversions, ReadsMonthFirstTexts) {
    struct Case {
        const char* text;
        const char* iso;
    };
    const Case cases[] = {
        {"1/31/2003", "2003-01-31 00:00:00"},
        {" 01/02/03 ", "2003-01-02 00:00:00"},
        {"1-31-03 4:05 PM", "2003-01-31 16:05:00"},
        {"1.2.2003", "2003-01-02 00:00:00"},
        {"1 / 2 /2003 1:00", "2003-01-02 01:00:00"},
        {"2003-01-31 16:05:00", "2003-01-31 16:05:00"},
        {"2003/1/5", "2003-01-05 00:00:00"},
        {"1/1/0", "2000-01-01 00:00:00"},
        {"1/1/29", "2029-01-01 00:00:00"},
        {"1/1/30", "1930-01-01 00:00:00"},
        {"1/1/99", "1999-01-01 00:00:00"},
        {"1/1/100", "0100-01-01 00:00:00"},
        {"12/31/9999 23:59:59", "9999-12-31 23:59:59"},
        {"2/29/2004", "2004-02-29 00:00:00"},
        {"1/31/2003 12:00 am", "2003-01-31 00:00:00"},
        {"1/31/2003 12:00 PM", "2003-01-31 12:00:00"},
        {"1/31/2003   7 pm", "2003-01-31 19:00:00"},
        {"4:05:06 PM", "1899-12-30 16:05:06"},
        {"0:00", "1899-12-30 00:00:00"},
        {"4:05pm", "1899-12-30 16:05:00"},
        {"37652", "2003-01-31 00:00:00"},
        {"-1.25", "1899-12-29 06:00:00"},
        {"010203", "1927-12-07 00:00:00"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(isoText(toDate(c.text)), c.iso) << c.text;
}

TEST(DateConversions, RefusesWhatIsNoDate) {
    for (const char* text : {"",
                             " ",
                             "abc",
                             "13/1/2003",
                             "0/1/2003",
                             "1/0/2003",
                             "1/32/2003",
                             "2/29/2001",
                             "2/30/2004",
                             "4/31/2003",
                             "1/1/00100",
                             "1/1/099",
                             "1/2",
                             "1/2/",
                             "1//2",
                             "1/2-2003",
                             "1/2/2003/4",
                             "1/2/2003x",
                             "1/2/2003 x",
                             "1/2/2003 24:00",
                             "1/2/2003 1:60",
                             "1/2/2003 1:00:60",
                             "1/2/2003 13:00 PM",
                             "1/2/2003 7",
                             "1/2/2003 7 XM",
                             "1/2/2003 1:",
                             "1/2/2003 1:2:",
                             "111/2/2003",
                             "2003-13-01",
                             "2003-1-2003",
                             "20030131",
                             "1e9",
                             "1e400",
                             "  /  /  ",
                             "99999/1/1"}) {
        EXPECT_EQ(errorOf([&] { toDate(text); }), 13) << text;
    }
}

TEST(DateConversions, NumbersAreSerials) {
    EXPECT_EQ(toDate(37652.5), (Date{37652.5}));
    EXPECT_EQ(toDate(std::int32_t{-657434}), makeDate({.year = 100, .month = 1, .day = 1}));
    EXPECT_EQ(toDate(std::int32_t{2958465}), makeDate({.year = 9999, .month = 12, .day = 31}));
    EXPECT_EQ(toDate(Value()), Date{});
    EXPECT_EQ(errorOf([] { toDate(std::int32_t{-657435}); }), 6);
    EXPECT_EQ(errorOf([] { toDate(2958466.0); }), 6);
    EXPECT_EQ(errorOf([] { toDate(1e300); }), 6);
    EXPECT_EQ(toDouble(Date{-1.25}), -1.25);
    EXPECT_EQ(toText(toDate(true)), "12/29/1899");
}

TEST(DateConversions, PartsAndBack) {
    EXPECT_EQ(makeDate({}).serial, 0);
    EXPECT_EQ(makeDate({.year = 1900, .month = 1, .day = 1}).serial, 2);
    EXPECT_EQ(makeDate({.hour = 18}).serial, 0.75);
    EXPECT_EQ(makeDate({.year = 1899, .month = 12, .day = 29, .hour = 6}).serial, -1.25)
        << "the time counts forward before day 0 too";
    const DateParts moments[] = {
        {.year = 100, .month = 1, .day = 1},
        {.year = 100, .month = 1, .day = 1, .hour = 23, .minute = 59, .second = 59},
        {.year = 1899, .month = 12, .day = 29, .hour = 23, .minute = 59, .second = 59},
        {.year = 1899, .month = 12, .day = 30, .hour = 0, .minute = 0, .second = 1},
        {.year = 2000, .month = 2, .day = 29, .hour = 12},
        {.year = 9999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59},
    };
    for (const DateParts& parts : moments) {
        EXPECT_EQ(dateParts(makeDate(parts)), parts);
        EXPECT_EQ(dateParts(dateFromIso(isoText(makeDate(parts)))), parts);
        EXPECT_EQ(dateParts(toDate(toText(makeDate(parts)))), parts);
    }
}

TEST(DateConversions, EverySecondOfADaySurvives) {
    for (const int day : {29, 30, 31})
        for (int second = 0; second < 86'400; second += 7) {
            const DateParts parts{.year = 1899,
                                  .month = 12,
                                  .day = day,
                                  .hour = second / 3600,
                                  .minute = second / 60 % 60,
                                  .second = second % 60};
            ASSERT_EQ(dateParts(makeDate(parts)), parts) << day << ' ' << second;
        }
}

TEST(DateConversions, PartsRoundToTheSecond) {
    EXPECT_EQ(isoText(Date{37652.9999999}), "2003-02-01 00:00:00");
    EXPECT_EQ(isoText(Date{-1.9999999}), "1899-12-30 00:00:00");
    EXPECT_EQ(isoText(Date{2958465.9999999}), "9999-12-31 23:59:59") << "there is no later day";
    EXPECT_EQ(errorOf([] { dateParts(Date{1e300}); }), 6);
}

TEST(DateConversions, RefusesPartsThatNameNoDate) {
    const DateParts wrong[] = {
        {.year = 99, .month = 1, .day = 1},
        {.year = 10000, .month = 1, .day = 1},
        {.year = 2003, .month = 0, .day = 1},
        {.year = 2003, .month = 13, .day = 1},
        {.year = 2003, .month = 2, .day = 29},
        {.year = 2003, .month = 1, .day = 0},
        {.year = 2003, .month = 1, .day = -1},
        {.year = 2003, .month = 1, .day = 257},
        {.year = 2003, .month = 257, .day = 1},
        {.hour = 24},
        {.hour = -1},
        {.minute = 60},
        {.minute = -1},
        {.second = 60},
        {.second = -1},
        {.year = 65536 + 2003, .month = 1, .day = 1},
    };
    for (const DateParts& parts : wrong)
        EXPECT_EQ(errorOf([&] { makeDate(parts); }), 5)
            << parts.year << '-' << parts.month << '-' << parts.day << ' ' << parts.hour;
}

TEST(DateConversions, OrdinaryText) {
    EXPECT_EQ(toText(makeDate({.year = 2003, .month = 1, .day = 31})), "1/31/2003");
    EXPECT_EQ(toText(makeDate({.year = 2003, .month = 1, .day = 31, .hour = 16, .minute = 5})),
              "1/31/2003 4:05:00 PM");
    EXPECT_EQ(toText(makeDate({.year = 2003, .month = 12, .day = 1, .hour = 0, .minute = 0, .second = 1})),
              "12/1/2003 12:00:01 AM");
    EXPECT_EQ(toText(makeDate({.hour = 12})), "12:00:00 PM");
    EXPECT_EQ(toText(Date{}), "12:00:00 AM");
    EXPECT_EQ(toText(Date{-1}), "12/29/1899");
    EXPECT_EQ(toText(makeDate({.year = 100, .month = 1, .day = 1})), "1/1/0100");
}

TEST(DateConversions, StoredForm) {
    EXPECT_EQ(isoText(makeDate({.year = 100, .month = 2, .day = 3, .hour = 4, .minute = 5, .second = 6})),
              "0100-02-03 04:05:06");
    EXPECT_EQ(dateFromIso("2003-01-31").serial, 37652);
    EXPECT_EQ(dateFromIso("2003-01-31T12:00:00").serial, 37652.5);
    EXPECT_EQ(dateFromIso("2003-01-31 12:00:00.987654").serial, 37652.5);
    for (const char* text :
         {"", "2003", "2003-1-31", "2003-02-29", "2003-01-31 ", "2003-01-31 12", "2003-01-31 12:00",
          "2003-01-31 24:00:00", "2003-01-31 12:00:00.", "2003-01-31 12:00:00x", "2003-01-31 12:00:00.1x",
          "2003/01/31", "12003-01-31", "0099-01-01", "2003-01-31  12:00:00", " 2003-01-31"})
        EXPECT_EQ(errorOf([&] { dateFromIso(text); }), 13) << text;
}

} // namespace
} // namespace tol::test
