// SPDX-License-Identifier: MIT
#include "platform/System.h"

#include "runtime/Conversions.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using namespace platform;

TEST(System, UserNameIsThatOfTheLogin) {
    const Environment login("LOGNAME", "ann");
    std::string buffer(200, ' ');
    std::size_t size = 199;
    EXPECT_TRUE(getUserName(buffer, size));
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(buffer.size(), 200U);
    EXPECT_EQ(buffer.substr(0, 5), std::string("ann\0 ", 5));
}

TEST(System, UserNameIsElseThatOfTheAccount) {
    for (const char* none : {static_cast<const char*>(nullptr), ""}) {
        const Environment login("LOGNAME", none);
        std::string buffer(200, ' ');
        std::size_t size = 199;
        EXPECT_TRUE(getUserName(buffer, size));
        EXPECT_GT(size, 1U);
    }
}

TEST(System, ANameThatDoesNotFitLeavesTheBufferAlone) {
    const Environment login("LOGNAME", "anna");
    std::string buffer(10, ' ');
    std::size_t size = 4;
    EXPECT_FALSE(getUserName(buffer, size));
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(buffer, std::string(10, ' '));
    size = 5;
    EXPECT_TRUE(getUserName(buffer, size)) << "its NUL just fits";
}

TEST(System, ClockTellsWholeSecondsAndCanBeReplaced) {
    const runtime::Date before = now();
    EXPECT_GT(before.serial, 45'000);
    EXPECT_EQ(before, runtime::makeDate(runtime::dateParts(before)));
    const runtime::Date played = runtime::makeDate({.year = 2003, .month = 1, .day = 31});
    setClock([played] { return played; });
    EXPECT_EQ(now(), played);
    setClock({});
    EXPECT_GE(now(), before);
}

} // namespace
} // namespace tol::test
