// SPDX-License-Identifier: MIT
#include "tolctl/MessageLog.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

TEST(MessageLog, KeepsTheOrderOfBoxesThatComeBack) {
    const ctl::Message first{"Data Will Be Lost", "PAY", "Yes"};
    const ctl::Message second{"Continue Warning?", "?", "Yes"};
    const ctl::Message third{"Continue Warning?", "?", "No"};
    ctl::MessageLog log;
    for (int row = 0; row < 1000; ++row) {
        log.add(first);
        log.add(second);
    }
    log.add(first);
    log.add(third);
    ASSERT_EQ(log.size(), 2002U);
    EXPECT_EQ(log[0], first);
    EXPECT_EQ(log[1], second);
    EXPECT_EQ(log[1998], first);
    EXPECT_EQ(log[1999], second);
    EXPECT_EQ(log[2001], third);
}

} // namespace
} // namespace tol::test
