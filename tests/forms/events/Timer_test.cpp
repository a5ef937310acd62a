// SPDX-License-Identifier: MIT
#include "forms/events/Timer.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

namespace tol::forms {
namespace {

TEST(Timer, TicksOnlyWhileEnabledAndWithAnInterval) {
    QWidget form;
    int ticks = 0;
    Timer timer(form, "tmrTest", [&] { ++ticks; });
    const auto* clock = form.findChild<QTimer*>("tmrTest");
    ASSERT_NE(clock, nullptr);
    timer.setEnabled(true);
    EXPECT_FALSE(clock->isActive());
    timer.setInterval(1);
    EXPECT_TRUE(clock->isActive());
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 3; }));
    timer.setEnabled(false);
    const int before = ticks;
    QTest::qWait(20);
    EXPECT_EQ(ticks, before);
}

TEST(Timer, AnIntervalOfZeroStopsIt) {
    QWidget form;
    Timer timer(form, "tmrTest", [] {});
    timer.setInterval(500);
    timer.setEnabled(true);
    timer.setInterval(0);
    EXPECT_FALSE(form.findChild<QTimer*>("tmrTest")->isActive());
}

} // namespace
} // namespace tol::forms
