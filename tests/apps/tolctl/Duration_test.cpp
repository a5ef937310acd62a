// SPDX-License-Identifier: MIT
#include "tolctl/locks/Duration.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using ctl::durationText;
using ctl::secondsIn;

TEST(SecondsIn, AddsUpNumbersOfUnits) {
    EXPECT_EQ(secondsIn("0s"), 0);
    EXPECT_EQ(secondsIn("45s"), 45);
    EXPECT_EQ(secondsIn("90m"), 5400);
    EXPECT_EQ(secondsIn("2h"), 7200);
    EXPECT_EQ(secondsIn("1d12h"), 129'600);
    EXPECT_EQ(secondsIn("2w"), 1'209'600);
    EXPECT_EQ(secondsIn("1000000w"), 604'800'000'000);
}

TEST(SecondsIn, IsNothingForAnyOtherText) {
    for (const char* text : {"", "2", "h", "2x", "2H", " 2h", "2h ", "-2h", "2.5h", "1000001w", "2h3"})
        EXPECT_FALSE(secondsIn(text)) << text;
}

TEST(DurationText, HasTheTwoLargestUnits) {
    EXPECT_EQ(durationText(0), "0m");
    EXPECT_EQ(durationText(59), "0m");
    EXPECT_EQ(durationText(3599), "59m");
    EXPECT_EQ(durationText(3600), "1h 0m");
    EXPECT_EQ(durationText(86'399), "23h 59m");
    EXPECT_EQ(durationText(273'599), "3d 3h");
    EXPECT_EQ(durationText(-300), "-5m");
}

} // namespace
} // namespace tol::test
