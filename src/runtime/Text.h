// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tol::runtime {

/// Removes blanks (U+0020) from both ends, and nothing else.
std::string_view trim(std::string_view text);
/// Full upper-case and lower-case mapping of all letters, independent of the locale.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

/// Length in characters (code points). Bytes that are no UTF-8 count one each.
std::size_t length(std::string_view text);
/// The first `count` characters, the whole text when it is shorter. A negative count raises 5.
std::string_view left(std::string_view text, long count);
/// `count` blanks. A negative count raises 5.
std::string space(long count);

/// Order of texts as index keys have it: without regard to case for all letters, accents counting
/// (ICU root collation, strength 2). Negative, zero, positive.
int compareText(std::string_view left, std::string_view right);
inline bool sameText(std::string_view left, std::string_view right) {
    return compareText(left, right) == 0;
}
/// A number that changes whenever an order built with compareText() may have changed.
int collationVersion();

} // namespace tol::runtime
