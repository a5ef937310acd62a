// SPDX-License-Identifier: MIT
#include "data/sqlite/Sql.h"

#include <algorithm>

namespace tol::data::sqlite {
namespace {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string quoted(std::string_view text, char mark) {
    std::string result(1, mark);
    for (const char c : text) {
        result += c;
        if (c == mark)
            result += c;
    }
    return result += mark;
}

} // namespace

std::string quotedName(std::string_view name) {
    return quoted(name, '"');
}

std::string quotedText(std::string_view text) {
    return quoted(text, '\'');
}

bool sameSqlName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

bool containsName(std::span<const std::string> names, std::string_view name) {
    return std::ranges::any_of(names, [name](const std::string& other) { return sameSqlName(other, name); });
}

std::string listed(std::span<const std::string> items) {
    std::string list;
    for (const std::string& item : items)
        list.append(list.empty() ? "" : ", ").append(item);
    return list;
}

} // namespace tol::data::sqlite
