// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdTexts.h"

#include <gtest/gtest.h>
#include <limits>

namespace tol::test {
namespace {

using namespace shell;

TEST(Texts, Blank) {
    for (const char* text : {"", " ", "      "}) {
        EXPECT_TRUE(vdIsBlank(text));
        EXPECT_FALSE(vdNotBlank(text));
    }
    for (const char* text : {"a", " a ", "\t", "\n"}) {
        EXPECT_FALSE(vdIsBlank(text));
        EXPECT_TRUE(vdNotBlank(text));
    }
}

TEST(Texts, Repeat) {
    EXPECT_EQ(vdRepeat("ab", 3), "ababab");
    EXPECT_EQ(vdRepeat("ab", 1), "ab");
    EXPECT_EQ(vdRepeat("ab", 0), "");
    EXPECT_EQ(vdRepeat("ab", -1), "");
    EXPECT_EQ(vdRepeat("", 5), "");
}

TEST(Texts, ZeroPad) {
    EXPECT_EQ(vdZeroPad("7", 3), "007");
    EXPECT_EQ(vdZeroPad(" 7 ", 3), "007");
    EXPECT_EQ(vdZeroPad("1234", 3), "1234");
    EXPECT_EQ(vdZeroPad("", 2), "00");
    EXPECT_EQ(vdZeroPad("ä", 3), "00ä") << "the width counts characters";
    EXPECT_EQ(vdZeroPad("7", 0), "7");
    EXPECT_EQ(vdZeroPad("7", -5), "7");
}

TEST(Texts, Numbers) {
    EXPECT_EQ(vdIntText(5, 3), "  5");
    EXPECT_EQ(vdIntText(12345, 3), "12345");
    EXPECT_EQ(vdIntText(-5, 3), " -5");
    EXPECT_EQ(vdLongText(1, 10), "         1");
    EXPECT_EQ(vdLongText(std::numeric_limits<std::int32_t>::min(), 10), "-2147483648");
    EXPECT_EQ(vdLongText(5, -1), "5");
}

TEST(Texts, FormatOrDash) {
    EXPECT_EQ(vdFormatOrDash(12.5, "###.00", true), "12.50");
    EXPECT_EQ(vdFormatOrDash(runtime::Currency{-50000}, "#,##0.00", false), "-5.00");
    EXPECT_EQ(vdFormatOrDash(std::int32_t{0}, "###.00", true), "-");
    EXPECT_EQ(vdFormatOrDash(0.0, "###.00", false), " ");
    EXPECT_EQ(vdFormatOrDash(runtime::Null{}, "###.00", true), "-");
    EXPECT_EQ(vdFormatOrDash(runtime::Value(), "###.00", false), " ");
    EXPECT_EQ(vdFormatOrDash(0.001, "0.00", true), "0.00") << "the value decides, not what is shown of it";
    EXPECT_EQ(vdFormatOrDash("abc", "0.00", true), "abc");
}

} // namespace
} // namespace tol::test
