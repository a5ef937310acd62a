// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Texts.h"

#include <string>
#include <string_view>
#include <vector>

namespace tol::demo {

std::string_view trimmed(std::string_view text);
std::vector<std::string> words(std::string_view text);
/// The parts between the separators, trimmed; an empty text is one empty part.
std::vector<std::string> parts(std::string_view text, char separator);

/// The lines of a text that say something (neither blank nor a comment), one after the other.
class Lines {
  public:
    explicit Lines(const Text& text) : m_text(text) {}

    /// Goes to the next line; false behind the last one.
    bool next();
    [[nodiscard]] std::string_view line() const { return m_line; }
    /// A mistake in the current line. The texts are part of the program, so it is one of the
    /// program's own and no run-time error of the user's.
    [[noreturn]] void fail(const std::string& what) const;

  private:
    Text m_text;
    std::size_t m_position = 0;
    int m_number = 0;
    std::string_view m_line;
};

} // namespace tol::demo
