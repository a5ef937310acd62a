// SPDX-License-Identifier: MIT
#include "screens/input/KeyCharacters.h"

#include <gtest/gtest.h>

#include <cctype>

namespace tol::screens {
namespace {

struct KeyCase {
    int key;
    std::string plain, shifted;
};

class TypedKey : public testing::TestWithParam<KeyCase> {};

TEST_P(TypedKey, HasACharacterWithoutAndWithShift) {
    const KeyCase& row = GetParam();
    EXPECT_EQ(vdKeyCodeChar(row.key, 0), row.plain);
    EXPECT_EQ(vdKeyCodeChar(row.key, 1), row.shifted);
}

INSTANTIATE_TEST_SUITE_P(NumericPad, TypedKey,
                         testing::Values(KeyCase{96, "0", "0"}, KeyCase{97, "1", "1"}, KeyCase{98, "2", "2"},
                                         KeyCase{99, "3", "3"}, KeyCase{100, "4", "4"},
                                         KeyCase{101, "5", "5"}, KeyCase{102, "6", "6"},
                                         KeyCase{103, "7", "7"}, KeyCase{104, "8", "8"},
                                         KeyCase{105, "9", "9"}, KeyCase{106, "*", "*"},
                                         KeyCase{107, "+", "+"}, KeyCase{108, "", ""}, KeyCase{109, "-", "-"},
                                         KeyCase{110, ".", "."}, KeyCase{111, "/", "/"}));

INSTANTIATE_TEST_SUITE_P(Digits, TypedKey,
                         testing::Values(KeyCase{48, "0", ")"}, KeyCase{49, "1", "!"}, KeyCase{50, "2", "@"},
                                         KeyCase{51, "3", "#"}, KeyCase{52, "4", "$"}, KeyCase{53, "5", "%"},
                                         KeyCase{54, "6", "^"}, KeyCase{55, "7", "&"}, KeyCase{56, "8", "*"},
                                         KeyCase{57, "9", "("}));

INSTANTIATE_TEST_SUITE_P(Punctuation, TypedKey,
                         testing::Values(KeyCase{188, ",", "<"}, KeyCase{190, ".", ">"},
                                         KeyCase{191, "/", "?"}, KeyCase{187, "=", "+"},
                                         KeyCase{189, "-", "_"}, KeyCase{219, "[", "{"},
                                         KeyCase{221, "]", "}"}, KeyCase{220, "\\", "|"},
                                         KeyCase{186, ";", ":"}, KeyCase{222, "'", "\""}));

INSTANTIATE_TEST_SUITE_P(Others, TypedKey,
                         testing::Values(KeyCase{32, " ", " "}, KeyCase{45, "-", "-"}, KeyCase{46, ".", "."},
                                         KeyCase{33, "!", "!"}, KeyCase{58, ":", ":"}, KeyCase{64, "@", "@"},
                                         KeyCase{91, "[", "["}, KeyCase{95, "_", "_"}));

INSTANTIATE_TEST_SUITE_P(TypingNothing, TypedKey,
                         testing::Values(KeyCase{0, "", ""}, KeyCase{-1, "", ""}, KeyCase{13, "", ""},
                                         KeyCase{31, "", ""}, KeyCase{112, "", ""}, KeyCase{185, "", ""},
                                         KeyCase{192, "", ""}, KeyCase{218, "", ""}, KeyCase{223, "", ""},
                                         KeyCase{255, "", ""}, KeyCase{32767, "", ""}));

TEST(KeyCharacters, ALetterIsUpperCaseWithShiftOnly) {
    for (int key = 'A'; key <= 'Z'; ++key) {
        EXPECT_EQ(vdKeyCodeChar(key, 0), std::string(1, static_cast<char>(std::tolower(key))));
        EXPECT_EQ(vdKeyCodeChar(key, 1), std::string(1, static_cast<char>(key)));
    }
}

TEST(KeyCharacters, WithOtherKeysHeldPunctuationIsNotTold) {
    for (const int shift : {2, 3, 4, 7}) {
        EXPECT_EQ(vdKeyCodeChar(48, shift), "0");
        EXPECT_EQ(vdKeyCodeChar(57, shift), "9");
        EXPECT_EQ(vdKeyCodeChar(188, shift), "");
        EXPECT_EQ(vdKeyCodeChar(222, shift), "");
        EXPECT_EQ(vdKeyCodeChar('A', shift), "a");
        EXPECT_EQ(vdKeyCodeChar(96, shift), "0");
    }
}

} // namespace
} // namespace tol::screens
