// SPDX-License-Identifier: MIT
#include "demo/Lines.h"

#include <fmt/format.h>

#include <stdexcept>

namespace tol::demo {

namespace {
constexpr std::string_view blanks = " \t\r";
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> found;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const std::string_view word = text.substr(0, text.find_first_of(blanks));
        found.emplace_back(word);
        text.remove_prefix(word.size());
    }
    return found;
}

std::vector<std::string> parts(std::string_view text, char separator) {
    std::vector<std::string> found;
    for (;;) {
        const std::size_t end = text.find(separator);
        found.emplace_back(trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return found;
        text.remove_prefix(end + 1);
    }
}

bool Lines::next() {
    while (m_position < m_text.content.size()) {
        const std::size_t end = std::min(m_text.content.find('\n', m_position), m_text.content.size());
        m_line = m_text.content.substr(m_position, end - m_position);
        m_position = end + 1;
        ++m_number;
        const std::string_view content = trimmed(m_line);
        if (!content.empty() && content.front() != '#')
            return true;
    }
    return false;
}

void Lines::fail(const std::string& what) const {
    throw std::logic_error(fmt::format("{}, line {}: {}", m_text.name, m_number, what));
}

} // namespace tol::demo
