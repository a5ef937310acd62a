// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

enum class TokenKind {
    Word,       ///< a keyword or an unquoted name
    QuotedName, ///< "x", [x] or `x`
    Literal,    ///< 'x', x'00', 12.5
    Symbol,     ///< one character of anything else
};

/// A token of an SQL text, by place. Comments and blanks are none.
struct SqlToken {
    TokenKind kind = TokenKind::Symbol;
    std::size_t begin = 0;
    std::size_t end = 0; ///< behind the last character
};

/// Takes a text apart as SQLite does. Never fails: what has no end goes on to the end of the text.
std::vector<SqlToken> sqlTokens(std::string_view sql);

/// The name that a token stands for: quotes of all four styles taken off.
std::string unquotedName(std::string_view token);

/// Equality of names as SQLite has it: without regard to case for the 26 Latin letters alone.
bool sameSqlName(std::string_view left, std::string_view right);

/// Whether the name is one of them, compared so.
bool containsName(std::span<const std::string> names, std::string_view name);

/// Whether one of an expression's tokens names the column, quoted or not. A function's name, a
/// collation's, a type's and a string in single quotes do not; a keyword that is also the column's name does.
bool usesName(std::string_view sql, std::span<const SqlToken> tokens, std::string_view column);

} // namespace tol::data::sqlite
