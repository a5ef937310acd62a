// SPDX-License-Identifier: MIT
#include "runtime/Text.h"

#include "support/Raises.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <utility>
#include <vector>

namespace tol::test {
namespace {

using namespace runtime;

TEST(Text, TrimsBlanksAndNothingElse) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\t a\n"), "\t a\n");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim("\u00A0x "), "\u00A0x");
}

TEST(Text, MapsLetterByLetter) {
    EXPECT_EQ(upperCase("abcxyz {19}"), "ABCXYZ {19}");
    EXPECT_EQ(upperCase("éñǆǅ µσς ſẛ"), "ÉÑǄǄ ΜΣΣ SṠ");
    EXPECT_EQ(upperCase("Straße ŉ ﬁ"), "STRAßE ŉ ﬁ") << "no single letter is the upper case of these";
    EXPECT_EQ(lowerCase("ABCXYZ [19]"), "abcxyz [19]");
    EXPECT_EQ(lowerCase("ÄÖÜ ẞ ΑΣ ǅ \u212A"), "äöü ß ασ ǆ k");
    EXPECT_EQ(upperCase("i"), "I"); // whatever the locale
    EXPECT_EQ(upperCase("ıi"), "ıI") << "that letter's upper case is the one of i";
    EXPECT_EQ(lowerCase("İI"), "İi");
    EXPECT_EQ(upperCase("\xC3x\xFF"), "\xC3X\xFF") << "bytes that are no UTF-8 stay";
    EXPECT_EQ(upperCase(std::string_view("a\0b", 3)), std::string_view("A\0B", 3));
    EXPECT_EQ(upperCase(""), "");
}

TEST(Text, CountsCharacters) {
    EXPECT_EQ(length(""), 0U);
    EXPECT_EQ(length("abc"), 3U);
    EXPECT_EQ(length("äöü"), 3U);
    EXPECT_EQ(length("😀x"), 2U);
    EXPECT_EQ(length(std::string_view("a\0b", 3)), 3U);
    EXPECT_EQ(length("\xFF\xFE"), 2U);
    EXPECT_EQ(length("\xE2\x82"), 2U) << "each byte of a character that breaks off";
    EXPECT_EQ(length("\xE2\x82x"), 3U);
}

TEST(Text, TakesCharactersFromTheLeft) {
    EXPECT_EQ(left("abc", 2), "ab");
    EXPECT_EQ(left("abc", 9), "abc");
    EXPECT_EQ(left("äöü", 2), "äö");
    EXPECT_EQ(left("😀x", 1), "😀");
    EXPECT_EQ(left("\xFFx", 1), "\xFF");
    EXPECT_EQ(left("abc", 0), "");
    EXPECT_EQ(errorOf([] { left("abc", -1); }), 5);
}

TEST(Text, MakesBlanks) {
    EXPECT_EQ(space(3), "   ");
    EXPECT_EQ(space(0), "");
    EXPECT_EQ(errorOf([] { space(-1); }), 5);
}

/// All characters of the Unicode tables below a limit.
std::vector<std::string> charactersBelow(UChar32 limit = UCHAR_MAX_VALUE + 1) {
    std::vector<std::string> characters;
    for (UChar32 c = 0; c < limit; ++c) {
        if (!U_IS_SURROGATE(c))
            icu::UnicodeString(c).toUTF8String(characters.emplace_back());
    }
    return characters;
}

/// A character that changes with the case of the text around it, by any of the tables' mappings.
bool hasCase(const std::string& character) {
    const UChar32 c = icu::UnicodeString::fromUTF8(character).char32At(0);
    return u_hasBinaryProperty(c, UCHAR_CHANGES_WHEN_UPPERCASED) ||
           u_hasBinaryProperty(c, UCHAR_CHANGES_WHEN_LOWERCASED);
}

// A site's own names must be found again in a wanted definition that was folded to upper case.
TEST(Text, StaysTheSameTextInUpperAndLowerCase) {
    int letters = 0;
    for (const std::string& letter : charactersBelow()) {
        if (!hasCase(letter))
            continue;
        ++letters;
        const std::string text = "a" + letter + "b";
        for (const std::string& other : {upperCase(text), lowerCase(text), foldCase(text)}) {
            EXPECT_TRUE(sameText(text, other)) << text << ' ' << other;
            EXPECT_EQ(compareText(text, other), 0) << text << ' ' << other;
            EXPECT_EQ(foldCase(text), foldCase(other));
            EXPECT_EQ(length(other), 3U) << text << ' ' << other;
        }
        EXPECT_EQ(upperCase(upperCase(text)), upperCase(text));
        EXPECT_EQ(lowerCase(lowerCase(text)), lowerCase(text));
    }
    EXPECT_GT(letters, 2'800);
}

// The letters that change by themselves all do, but for the one whose upper case is another letter's.
TEST(Text, UpperCaseLeavesOutOneLetter) {
    std::string left;
    for (const std::string& letter : charactersBelow()) {
        const UChar32 c = icu::UnicodeString::fromUTF8(letter).char32At(0);
        if (u_toupper(c) != c && upperCase(letter) == letter)
            left += letter;
    }
    EXPECT_EQ(left, "ı");
}

// What differs in more than case is never the same, whatever the collation thinks of it.
TEST(Text, TellsApartWhatDiffersInMoreThanCase) {
    std::map<std::string, std::string> seen;
    std::vector<std::string> folded;
    for (const std::string& character : charactersBelow(0x3000))
        if (seen.emplace(foldCase(character), character).second)
            folded.push_back("M" + character);
    std::ranges::sort(folded, [](const auto& a, const auto& b) { return compareText(a, b) < 0; });
    for (std::size_t i = 1; i < folded.size(); ++i)
        ASSERT_LT(compareText(folded[i - 1], folded[i]), 0) << folded[i - 1] << ' ' << folded[i];
    for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{{"M2", "M²"},
                                                                               {"ª", "a"},
                                                                               {"a\u00ADb", "ab"},
                                                                               {"a\x01", "a"},
                                                                               {"\u00E9", "e\u0301"},
                                                                               {"ß", "ss"}}) {
        EXPECT_FALSE(sameText(a, b)) << a << ' ' << b;
        EXPECT_NE(compareText(a, b), 0) << a << ' ' << b;
        EXPECT_EQ(compareText(a, b) < 0, compareText(b, a) > 0) << a << ' ' << b;
    }
}

TEST(Text, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(sameText("ZOVNET.mdb", "zovnet.MDB"));
    EXPECT_TRUE(sameText("Ärger ΣΟΦΌΣ", "äRGER σοφός"));
    EXPECT_FALSE(sameText("resume", "résumé")) << "accents count";
    EXPECT_FALSE(sameText("a", "a "));
    EXPECT_FALSE(sameText("a-b", "ab")) << "punctuation counts";
    EXPECT_TRUE(sameText("", ""));
    EXPECT_LT(compareText("", "a"), 0);
    EXPECT_LT(compareText("apple", "Banana"), 0);
    EXPECT_LT(compareText("a", "ä"), 0);
    EXPECT_LT(compareText("ä", "b"), 0);
    EXPECT_LT(compareText("_", "0"), 0);
    EXPECT_LT(compareText("9", "a"), 0);
    EXPECT_GT(compareText("Z", "a"), 0);
}

// Texts of printable ASCII take a shorter way, which must give what the collator gives. What it takes for
// alike is in some order; sorted texts stay sorted.
TEST(Text, OrdersAsTheCollatorDoes) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    ASSERT_TRUE(U_SUCCESS(status));
    collator->setStrength(icu::Collator::SECONDARY);

    std::mt19937 random(20030102);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    const auto piece = [&]() -> std::string {
        static const std::string others[] = {"ä", "A\u0308", "\u0301", "ß", "\t", std::string(1, '\0'), "😀"};
        if (below(12) == 0)
            return others[below(std::size(others))];
        return std::string(
            1, static_cast<char>(below(4) == 0 ? ' ' + below(95) : 'A' + below(2) + below(2) * 32));
    };
    for (int round = 0; round < 20'000; ++round) {
        std::string a, b;
        for (auto i = below(6); i > 0; --i)
            a += piece();
        b = a.substr(0, below(2) * a.size());
        for (auto i = below(6); i > 0; --i)
            b += piece();
        const auto sign = [](int value) { return (value > 0) - (value < 0); };
        const int expected = collator->compareUTF8(a, b, status);
        if (expected != 0 || sameText(a, b)) {
            EXPECT_EQ(sign(compareText(a, b)), expected) << '"' << a << "\" \"" << b << '"';
        }
        EXPECT_EQ(compareText(a, b) == 0, sameText(a, b)) << '"' << a << "\" \"" << b << '"';
        EXPECT_EQ(sign(compareText(a, b)), -sign(compareText(b, a))) << '"' << a << "\" \"" << b << '"';
    }
}

TEST(Text, CollationHasAVersion) {
    EXPECT_THAT(collationVersion(), testing::StartsWith("2/")) << "sorted by more than the collator";
    EXPECT_EQ(collationVersion(), collationVersion());
}

} // namespace
} // namespace tol::test
