// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tol::data::sqlite {

/// A name as SQL wants it: in double quotes, with quotes inside doubled.
std::string quotedName(std::string_view name);
/// A text as an SQL literal. Texts with a NUL byte can't be literals and must be bound.
std::string quotedText(std::string_view text);

} // namespace tol::data::sqlite
