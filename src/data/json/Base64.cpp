// SPDX-License-Identifier: MIT
#include "data/json/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tol::data::json {
namespace {

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
bool readGroup(std::string_view letters, std::size_t padded, runtime::Bytes& bytes) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < groupLetters; ++i) {
        const bool isPadding = i >= groupLetters - padded;
        const std::uint8_t digit = isPadding ? 0 : digitOf[static_cast<unsigned char>(letters[i])];
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
