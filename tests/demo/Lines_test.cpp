// SPDX-License-Identifier: MIT
#include "demo/Lines.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace tol::demo {
namespace {

using testing::ElementsAre;

TEST(Lines, PassesOverBlankLinesAndComments) {
    Lines lines({"some.txt", "# first\n\n one two\n\t# more\nthree"});
    ASSERT_TRUE(lines.next());
    EXPECT_EQ(lines.line(), " one two");
    ASSERT_TRUE(lines.next());
    EXPECT_EQ(lines.line(), "three");
    EXPECT_FALSE(lines.next());
}

TEST(Lines, AMistakeNamesTextAndLine) {
    Lines lines({"some.txt", "# first\n\nbad\n"});
    lines.next();
    try {
        lines.fail("no such thing");
        FAIL();
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "some.txt, line 3: no such thing");
    }
}

TEST(Lines, WordsAndPartsAreTrimmed) {
    EXPECT_THAT(words("  a\tbc  d "), ElementsAre("a", "bc", "d"));
    EXPECT_THAT(words("   "), ElementsAre());
    EXPECT_THAT(parts(" a b | c||d ", '|'), ElementsAre("a b", "c", "", "d"));
    EXPECT_THAT(parts("", '|'), ElementsAre(""));
}

} // namespace
} // namespace tol::demo
