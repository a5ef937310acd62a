// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tol::data::sqlite {

/// A name as SQL wants it: in double quotes, with quotes inside doubled.
std::string quotedName(std::string_view name);
/// A text as an SQL literal. Texts with a NUL byte can't be literals and must be bound.
std::string quotedText(std::string_view text);

/// Equality of names as SQLite has it: without regard to case for the 26 Latin letters alone.
bool sameSqlName(std::string_view left, std::string_view right);
/// Whether the name is one of them, compared so.
bool containsName(std::span<const std::string> names, std::string_view name);
/// The items with commas between them.
std::string listed(std::span<const std::string> items);

} // namespace tol::data::sqlite
