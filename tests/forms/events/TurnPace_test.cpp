// SPDX-License-Identifier: MIT
#include "forms/events/TurnPace.h"

#include <gtest/gtest.h>

namespace tol::forms {
namespace {

using namespace std::chrono_literals;

constexpr TurnPace::time_point start{1h};

/// How long after a turn that took so long the next one is due, to the millisecond.
std::chrono::milliseconds waitAfter(TurnPace::duration taken) {
    TurnPace pace;
    pace.turned(start, taken);
    std::chrono::milliseconds wait{0};
    while (!pace.isDue(start + wait))
        ++wait;
    return wait;
}

TEST(TurnPace, TheFirstTurnIsDueAtOnce) {
    EXPECT_TRUE(TurnPace().isDue(start));
}

TEST(TurnPace, ShortTurnsComeSixtyTimesASecond) {
    EXPECT_EQ(waitAfter(0ns), 16ms);
    EXPECT_EQ(waitAfter(50us), 16ms);
}

TEST(TurnPace, LongTurnsComeLessOften) {
    EXPECT_EQ(waitAfter(1ms), 20ms);
    EXPECT_EQ(waitAfter(3ms), 60ms);
}

TEST(TurnPace, HoweverLongATurnTakesTheWindowStaysAlive) {
    EXPECT_EQ(waitAfter(5ms), 100ms);
    EXPECT_EQ(waitAfter(2s), 100ms);
}

} // namespace
} // namespace tol::forms
