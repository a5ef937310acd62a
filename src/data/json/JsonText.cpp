// SPDX-License-Identifier: MIT
#include "data/json/JsonText.h"

#include <fmt/format.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace tol::data::json {
namespace {

constexpr std::string_view escaped = "\"\\\b\f\n\r\t";
constexpr std::string_view escapes = "\"\\bfnrt";
constexpr char firstPrintable = ' ';

void appendCharacter(std::string& out, char character) {
    const auto known = escaped.find(character);
    if (known != std::string_view::npos)
        out.append({'\\', escapes[known]});
    else if (static_cast<unsigned char>(character) < firstPrintable)
        fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(character));
    else
        out += character;
}

// Base64.

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char padding = '=';
constexpr std::size_t groupBytes = 3;
constexpr std::size_t groupLetters = 4;
constexpr std::uint8_t noDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> makeDigits() {
    std::array<std::uint8_t, 256> digits{};
    digits.fill(noDigit);
    for (std::size_t digit = 0; digit < alphabet.size(); ++digit)
        digits[static_cast<unsigned char>(alphabet[digit])] = static_cast<std::uint8_t>(digit);
    return digits;
}
constexpr auto digitOf = makeDigits();

/// One to three bytes as four letters.
void appendGroup(std::string& out, std::span<const std::byte> group) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < groupBytes; ++i)
        bits = bits << 8U | (i < group.size() ? std::to_integer<std::uint32_t>(group[i]) : 0U);
    for (std::size_t i = 0; i < groupLetters; ++i)
        out += i <= group.size() ? alphabet[bits >> (18U - 6U * i) & 63U] : padding;
}

/// Four letters, of which the last ones may be padding; false when they are no group.
bool readGroup(std::string_view group, std::size_t padded, runtime::Bytes& bytes) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < groupLetters; ++i) {
        const bool isPadding = i >= groupLetters - padded;
        const std::uint8_t digit = isPadding ? 0 : digitOf[static_cast<unsigned char>(group[i])];
        if (digit == noDigit)
            return false;
        bits = bits << 6U | digit;
    }
    const std::uint32_t unused = (1U << (8U * padded)) - 1U;
    if ((bits & unused) != 0)
        return false;
    for (std::size_t i = 0; i < groupBytes - padded; ++i)
        bytes.push_back(static_cast<std::byte>(bits >> (16U - 8U * i) & 255U));
    return true;
}

} // namespace

bool isUtf8(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t at = 0; at < length;) {
        UChar32 character = 0;
        U8_NEXT(bytes, at, length, character);
        if (character < 0)
            return false;
    }
    return true;
}

void appendQuoted(std::string& out, std::string_view text) {
    out.reserve(out.size() + text.size() + 2);
    out += '"';
    for (const char character : text)
        appendCharacter(out, character);
    out += '"';
}

void appendBase64(std::string& out, std::span<const std::byte> bytes) {
    out.reserve(out.size() + (bytes.size() / groupBytes + 1) * groupLetters);
    for (std::size_t at = 0; at < bytes.size(); at += groupBytes)
        appendGroup(out, bytes.subspan(at, std::min(groupBytes, bytes.size() - at)));
}

std::optional<runtime::Bytes> fromBase64(std::string_view text) {
    if (text.size() % groupLetters != 0)
        return std::nullopt;
    const std::size_t padded = text.ends_with("==") ? 2 : text.ends_with(padding) ? 1 : 0;
    runtime::Bytes bytes;
    bytes.reserve(text.size() / groupLetters * groupBytes);
    for (std::size_t at = 0; at < text.size(); at += groupLetters) {
        const bool last = at + groupLetters == text.size();
        if (!readGroup(text.substr(at, groupLetters), last ? padded : 0, bytes))
            return std::nullopt;
    }
    return bytes;
}

} // namespace tol::data::json
