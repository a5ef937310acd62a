// SPDX-License-Identifier: MIT
#include "data/json/JsonText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tol::test {
namespace {

using data::json::appendQuoted;
using data::json::isUtf8;

std::string inQuotes(std::string_view text) {
    std::string out;
    appendQuoted(out, text);
    return out;
}

TEST(JsonText, LeavesCharactersBeyondAsciiAlone) {
    EXPECT_EQ(inQuotes("Größe 木 🙂"), "\"Größe 木 🙂\"");
}

TEST(JsonText, EscapesQuotesBackslashesAndControls) {
    EXPECT_EQ(inQuotes("\"C:\\X\"/"), R"("\"C:\\X\"/")");
    EXPECT_EQ(inQuotes("\b\f\n\r\t"), R"("\b\f\n\r\t")");
    EXPECT_EQ(inQuotes(std::string_view("\0\x01\x1F\x7F", 4)), "\"\\u0000\\u0001\\u001f\x7F\"");
}

TEST(JsonText, EveryAsciiCharacterReadsBack) {
    std::string all;
    for (char character = 0; character < 127; ++character)
        all += character;
    EXPECT_EQ(nlohmann::json::parse(inQuotes(all)).get<std::string>(), all);
}

TEST(JsonText, TellsUtf8FromOtherBytes) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8(std::string_view("a\0b", 3)));
    EXPECT_TRUE(isUtf8("ä€🙂\xF4\x8F\xBF\xBF"));
    for (const char* text :
         {"\xE4", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xE2\x82", "\xFF"})
        EXPECT_FALSE(isUtf8(text)) << text;
}

} // namespace
} // namespace tol::test
