// SPDX-License-Identifier: MIT
#include "runtime/NumberFormat.h"

#include <gtest/gtest.h>
#include <limits>

namespace tol::test {
namespace {

using namespace runtime;

struct Case {
    Value value;
    const char* pattern;
    const char* text;
};

TEST(NumberFormat, PlacesAndPoint) {
    const Case cases[] = {
        {12.5, "###.00", "12.50"},
        {0.5, "###.00", ".50"},
        {0.0, "###.00", ".00"},
        {1234.567, "###.00", "1234.57"},
        {-1.5, "###.00", "-1.50"},
        {std::int32_t{5}, "###.00", "5.00"},
        {std::int32_t{7}, "0", "7"},
        {0.0, "0", "0"},
        {0.0, "####", ""},
        {std::int16_t{42}, "####", "42"},
        {std::int16_t{42}, "0000", "0042"},
        {std::int16_t{42}, "#0##", "042"},
        {std::int32_t{123456}, "00", "123456"},
        {5.0, "#.##", "5."},
        {5.25, "0.0##", "5.25"},
        {5.0, "0.0##", "5.0"},
        {5.0, "0.##0", "5.000"},
        {12.5, ".00", "12.50"},
        {0.001, "0.00", "0.00"},
        {Currency{-123456}, "0.00", "-12.35"},
        {Currency{std::numeric_limits<std::int64_t>::max()}, "0.0000", "922337203685477.5807"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value, c.pattern), c.text) << c.pattern;
}

TEST(NumberFormat, RoundsHalfAwayFromZero) {
    const Case cases[] = {
        {0.5, "0", "1"},         {1.5, "0", "2"},          {2.5, "0", "3"},
        {-2.5, "0", "-3"},       {0.125, "0.00", "0.13"},  {2.675, "0.00", "2.68"},
        {1.005, "0.00", "1.01"}, {0.49999, "0", "0"},      {99.995, "0.00", "100.00"},
        {9.99, "#", "10"},       {-0.001, "0.00", "0.00"}, {2.675F, "0.00", "2.68"},
        {0.05, "0", "0"},        {0.95, "0.0", "1.0"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value, c.pattern), c.text) << c.pattern;
}

TEST(NumberFormat, ThousandsPercentAndLiterals) {
    const Case cases[] = {
        {1234567.891, "#,##0.00", "1,234,567.89"},
        {12.0, "#,##0.00", "12.00"},
        {0.0, "#,##0.00", "0.00"},
        {-1234.0, "#,##0", "-1,234"},
        {1234.0, "0000,000", "0,001,234"},
        {0.125, "0%", "13%"},
        {0.125, "0.0%", "12.5%"},
        {5.0, "$0.00", "$5.00"},
        {5.0, "0 \"m; 0\"", "5 m; 0"},
        {5.0, "\\#0\\%", "#5%"},
        {5.0, "0\\", "5\\"},
        {-5.0, "($0)", "-($5)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value, c.pattern), c.text) << c.pattern;
}

TEST(NumberFormat, Sections) {
    const Case cases[] = {
        {5.0, "0;(0);\"none\"", "5"},
        {-5.0, "0;(0);\"none\"", "(5)"},
        {0.0, "0;(0);\"none\"", "none"},
        {0.4, "0;(0);\"none\"", "none"},
        {0.0, "0.0;(0.0)", "0.0"},
        {-5.0, "0;;\"none\"", "-5"},
        {0.0, "0;(0);", "0"},
        {-0.125, "0.00;-0.00%", "-12.50%"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(format(c.value, c.pattern), c.text) << c.pattern;
}

TEST(NumberFormat, WhatIsNoNumberComesBackAsItsText) {
    EXPECT_EQ(format("abc", "0.00"), "abc");
    EXPECT_EQ(format("12", "0.00"), "12.00");
    EXPECT_EQ(format("", "0.00"), "");
    EXPECT_EQ(format(Date{37652}, "0.00"), "1/31/2003");
    EXPECT_EQ(format(Null{}, "0.00"), "");
    EXPECT_EQ(format(Null{}, ""), "");
    EXPECT_EQ(format(Value(), "0.00"), "");
    EXPECT_EQ(format(true, "0"), "-1");
    EXPECT_EQ(format(1.5, ""), "1.5");
    EXPECT_EQ(format(std::numeric_limits<double>::infinity(), "0"), "Infinity");
}

} // namespace
} // namespace tol::test
