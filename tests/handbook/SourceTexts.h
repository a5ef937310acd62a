// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tol::test {

/// The sentences among a C++ source's string literals, in their order. Literals that stand side by side are
/// one text, as for the compiler; a text is cut at its line ends and at the places of its values (`{}`), and
/// the pieces are trimmed. Pieces of one word, and what stands in comments and #include lines, are no
/// sentences.
std::vector<std::string> sentencesIn(std::string_view source);

} // namespace tol::test
