// SPDX-License-Identifier: MIT
#include "SourceTexts.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SourceTexts, AreWhatStandsBetweenQuotes) {
    EXPECT_THAT(sentencesIn(R"x(box("Printer Problem Detected", "Printer Error");)x"),
                ElementsAre("Printer Problem Detected", "Printer Error"));
}

TEST(SourceTexts, LiteralsSideBySideAreOneText) {
    EXPECT_THAT(sentencesIn("\"Cannot \"\n    \"Find \" \"it\" + \"on the disk\""),
                ElementsAre("Cannot Find it", "on the disk"));
}

TEST(SourceTexts, AreCutAtLineEndsAndValues) {
    EXPECT_THAT(
        sentencesIn(R"("Could not use '{}'; file already in use.\nTry again\n\nlater {0:>5} or never")"),
        ElementsAre("Could not use '", "'; file already in use.", "Try again", "or never"));
}

TEST(SourceTexts, RawLiteralsAreTaken) {
    EXPECT_THAT(sentencesIn("R\"(under C:\\ZOVUSER)\" R\"x( or \"there\")x\""),
                ElementsAre("under C:\\ZOVUSER or \"there\""));
}

TEST(SourceTexts, EscapesAreWhatTheyStandFor) {
    EXPECT_THAT(sentencesIn(R"("press \"T\" under C:\\JOBS")"), ElementsAre(R"(press "T" under C:\JOBS)"));
}

TEST(SourceTexts, OneWordIsNone) {
    EXPECT_THAT(sentencesIn(R"x("DBPATHS", "E&xit", "", " ", "; ", "&1 - ", "3051 ")x"), IsEmpty());
}

TEST(SourceTexts, CommentsIncludesAndCharactersAreNone) {
    EXPECT_THAT(sentencesIn("#include \"a file.h\"\n// \"a comment\" isn't one\n/* \"nor this\" */\n"
                            "f('\"', u'\"', '\\'', 10'000, 0xFF'FF, u8'\\\\', \"a text\")"),
                ElementsAre("a text"));
}

} // namespace
} // namespace tol::test
