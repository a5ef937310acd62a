// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tol::runtime {

/// Removes blanks (U+0020) from both ends, and nothing else.
std::string_view trim(std::string_view text);
/// The upper and lower case of each letter by itself (Unicode's simple mappings), independent of the
/// locale: a text never changes its number of characters, and always stays the same text for sameText().
/// "ß" has no single upper-case letter and stays; so do "ı" and "İ", whose other case belongs to "i" and "I".
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
/// The form that all spellings of a text have in common which differ in case alone (Unicode's simple
/// case folding): the one rule by which names, text keys and paths are the same.
std::string foldCase(std::string_view text);

/// Length in characters (code points). Bytes that are no UTF-8 count one each.
std::size_t length(std::string_view text);
/// The first `count` characters, the whole text when it is shorter. A negative count raises 5.
std::string_view left(std::string_view text, long count);
/// `count` blanks. A negative count raises 5.
std::string space(long count);

/// Whether two texts differ in nothing but case: their foldCase() is equal.
bool sameText(std::string_view left, std::string_view right);
/// Order of texts as index keys have it: without regard to case for all letters, accents counting
/// (ICU root collation, strength 2), and what the collation takes for alike ("2" and "²") by the order of
/// the folded texts. So zero means sameText() and nothing else. Negative, zero, positive.
int compareText(std::string_view left, std::string_view right);
/// Changes whenever an order built with compareText() may have changed.
std::string collationVersion();

} // namespace tol::runtime
