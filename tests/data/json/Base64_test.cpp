// SPDX-License-Identifier: MIT
#include "data/json/JsonText.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using data::json::appendBase64;
using data::json::fromBase64;

runtime::Bytes bytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

std::string encoded(std::string_view text) {
    std::string out;
    appendBase64(out, bytesOf(text));
    return out;
}

TEST(Base64, PadsTheLastGroup) {
    EXPECT_EQ(encoded(""), "");
    EXPECT_EQ(encoded("a"), "YQ==");
    EXPECT_EQ(encoded("ab"), "YWI=");
    EXPECT_EQ(encoded("abc"), "YWJj");
    EXPECT_EQ(encoded("abcd"), "YWJjZA==");
}

TEST(Base64, UsesPlusAndSlash) {
    EXPECT_EQ(encoded("\xFB\xEF\xBE\xFF"), "++++/w==");
}

TEST(Base64, ReadsBackEveryByteAtEveryPlace) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (std::size_t length = 0; length <= all.size(); ++length) {
        const std::string part = all.substr(all.size() - length);
        ASSERT_EQ(fromBase64(encoded(part)), bytesOf(part)) << length;
    }
}

TEST(Base64, TakesNothingButItsOwnSpelling) {
    for (const char* text : {"Y", "YQ", "YQ=", "=YQ=", "YQ==YQ==", "YQ==\n",
                             "Y Q=", "Y===", "====", "YR==", "YWJ=", "YQ-_", "YQ=a", "\xC3\xA4=="})
        EXPECT_FALSE(fromBase64(text)) << text;
}

} // namespace
} // namespace tol::test
