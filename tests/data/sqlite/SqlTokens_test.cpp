// SPDX-License-Identifier: MIT
#include "data/sqlite/SqlTokens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tol::test {

using namespace data::sqlite;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> texts(std::string_view sql) {
    std::vector<std::string> all;
    for (const SqlToken& token : sqlTokens(sql))
        all.emplace_back(sql.substr(token.begin, token.end - token.begin));
    return all;
}

bool uses(std::string_view sql, std::string_view column) {
    return usesName(sql, sqlTokens(sql), column);
}

} // namespace

TEST(SqlTokens, SkipBlanksAndComments) {
    EXPECT_THAT(texts("a -- b, c\n /* d */ e\t,\r\nf"), ElementsAre("a", "e", ",", "f"));
    EXPECT_THAT(texts(" -- only this"), IsEmpty());
    EXPECT_THAT(texts("/*/ a"), IsEmpty());
    EXPECT_THAT(texts("a-b/c"), ElementsAre("a", "-", "b", "/", "c"));
}

TEST(SqlTokens, KeepQuotedTextsWhole) {
    EXPECT_THAT(texts("\"a \"\"b\"\" --\"[c]]d]`e``f`'it''s'x'00ff'"),
                ElementsAre("\"a \"\"b\"\" --\"", "[c]", "]", "d", "]", "`e``f`", "'it''s'", "x'00ff'"));
}

TEST(SqlTokens, KeepNumbersWhole) {
    EXPECT_THAT(texts("1 2.5e-3+.5,0x1F-2 3e+4a"),
                ElementsAre("1", "2.5e-3", "+", ".5", ",", "0x1F", "-", "2", "3e+4a"));
    EXPECT_THAT(texts("0xE-1"), ElementsAre("0xE", "-", "1"));
}

TEST(SqlTokens, TakeLettersBeyondAsciiAsNames) {
    EXPECT_THAT(texts("Größe(10)"), ElementsAre("Größe", "(", "10", ")"));
}

TEST(SqlTokens, GoOnToTheEndWhereAnEndIsMissing) {
    EXPECT_THAT(texts("a 'b"), ElementsAre("a", "'b"));
    EXPECT_THAT(texts("a \"b"), ElementsAre("a", "\"b"));
    EXPECT_THAT(texts("a [b"), ElementsAre("a", "[b"));
    EXPECT_THAT(texts("a /* b"), ElementsAre("a"));
    EXPECT_THAT(texts("'"), ElementsAre("'"));
}

TEST(SqlTokens, TakeQuotesOffNames) {
    EXPECT_EQ(unquotedName("plain"), "plain");
    EXPECT_EQ(unquotedName("\"a \"\"b\"\"\""), "a \"b\"");
    EXPECT_EQ(unquotedName("[a \"b]"), "a \"b");
    EXPECT_EQ(unquotedName("`a``b`"), "a`b");
    EXPECT_EQ(unquotedName("'it''s'"), "it's");
    EXPECT_EQ(unquotedName(""), "");
    EXPECT_EQ(unquotedName("\""), "");
}

TEST(SqlTokens, CompareNamesAsSqliteDoes) {
    EXPECT_TRUE(sameSqlName("Name_1", "nAME_1"));
    EXPECT_FALSE(sameSqlName("Name", "Names"));
    EXPECT_FALSE(sameSqlName("ä", "Ä"));
    EXPECT_FALSE(sameSqlName("[", "{"));
}

TEST(SqlTokens, TellWhetherAColumnIsNamed) {
    EXPECT_TRUE(uses("price > 0", "PRICE"));
    EXPECT_TRUE(uses("\"price\" > 0", "price"));
    EXPECT_TRUE(uses("[price] > 0", "price"));
    EXPECT_FALSE(uses("'price' <> x", "price"));
    EXPECT_FALSE(uses("length(x) > 0", "length"));
    EXPECT_TRUE(uses("length > 0", "length"));
    EXPECT_FALSE(uses("prices > 0", "price"));
    EXPECT_FALSE(uses("x COLLATE nocase", "nocase"));
    EXPECT_FALSE(uses("CAST(x AS text) > ''", "text"));
    EXPECT_TRUE(uses("CAST(text AS text) > ''", "text"));
    EXPECT_TRUE(uses("text", "text"));
}

} // namespace tol::test
