// SPDX-License-Identifier: MIT
#include "data/json/JsonText.h"

#include <fmt/format.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <iterator>

namespace tol::data::json {
namespace {

constexpr std::string_view escaped = "\"\\\b\f\n\r\t";
constexpr std::string_view letters = "\"\\bfnrt";
constexpr char firstPrintable = ' ';

void appendCharacter(std::string& out, char character) {
    const auto known = escaped.find(character);
    if (known != std::string_view::npos)
        out.append({'\\', letters[known]});
    else if (static_cast<unsigned char>(character) < firstPrintable)
        fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(character));
    else
        out += character;
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

} // namespace tol::data::json
