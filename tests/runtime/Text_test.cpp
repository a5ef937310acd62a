// SPDX-License-Identifier: MIT
#include "runtime/Text.h"

#include "support/Raises.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <unicode/coll.h>

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

TEST(Text, MapsAllLetters) {
    EXPECT_EQ(upperCase("abcxyz {19}"), "ABCXYZ {19}");
    EXPECT_EQ(upperCase("straße éñǆ"), "STRASSE ÉÑǄ");
    EXPECT_EQ(lowerCase("ABCXYZ [19]"), "abcxyz [19]");
    EXPECT_EQ(lowerCase("ÄÖÜ ΑΣ"), "äöü ας");
    EXPECT_EQ(upperCase("i"), "I"); // whatever the locale
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

// Texts of printable ASCII take a shorter way, which must give what the collator gives.
TEST(Text, ShorterWayAgreesWithTheCollator) {
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
        EXPECT_EQ(sign(compareText(a, b)), collator->compareUTF8(a, b, status))
            << '"' << a << "\" \"" << b << '"';
    }
}

TEST(Text, CollationHasAVersion) {
    EXPECT_GT(collationVersion(), 0);
    EXPECT_EQ(collationVersion(), collationVersion());
}

} // namespace
} // namespace tol::test
