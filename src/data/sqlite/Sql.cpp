// SPDX-License-Identifier: MIT
#include "data/sqlite/Sql.h"

namespace tol::data::sqlite {
namespace {

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

} // namespace tol::data::sqlite
