// SPDX-License-Identifier: MIT
#include "data/Names.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tol::data {
namespace {

constexpr std::string_view reservedCharacters = ".!`[]";

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x80; });
}

char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameAscii(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowerAscii(a) == lowerAscii(b); });
}

bool isForbidden(unsigned char c) {
    return c < 0x20 || c == 0x7f || reservedCharacters.find(static_cast<char>(c)) != std::string_view::npos;
}

} // namespace

bool sameName(std::string_view left, std::string_view right) {
    // Names are compared at every look-up; the full comparison is only needed beyond ASCII.
    if (sameAscii(left, right))
        return true;
    return !(isAscii(left) && isAscii(right)) && runtime::sameText(left, right);
}

void requireNewName(std::string_view name) {
    const bool valid = !name.empty() && name.front() != ' ' && runtime::length(name) <= maxNameLength &&
                       std::none_of(name.begin(), name.end(), isForbidden);
    if (!valid)
        runtime::raise(runtime::errInvalidName, {name});
}

} // namespace tol::data
