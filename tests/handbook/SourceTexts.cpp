// SPDX-License-Identifier: MIT
#include "SourceTexts.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <utility>

namespace tol::test {
namespace {

bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isPartOfName(char c) {
    return isLetter(c) || isDigit(c) || c == '_';
}

/// Walks through a source and collects its texts.
class Walk {
  public:
    explicit Walk(std::string_view source) : m_rest(source) {}

    std::vector<std::string> texts() {
        while (!m_rest.empty())
            step();
        endText();
        return m_texts;
    }

  private:
    void step() {
        if (skip("//", "\n") || skip("/*", "*/") || skip("#include", "\n"))
            return;
        if (const auto raw = rawStart(); raw > 0)
            return takeRaw(raw);
        const char c = take();
        if (c == '"')
            return takeLiteral();
        if (c == '\'' && !m_inNumber) // else it only parts the digits
            takeCharacter();
        if (std::isspace(static_cast<unsigned char>(c)) == 0)
            endText();
        noteNumber(c);
    }

    void noteNumber(char c) {
        m_inNumber = m_inNumber ? isPartOfName(c) || c == '\'' : !isPartOfName(m_before) && isDigit(c);
        m_before = c;
    }

    char take() {
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    void drop(std::size_t count) { m_rest.remove_prefix(std::min(count, m_rest.size())); }

    bool skip(std::string_view begin, std::string_view end) {
        if (!m_rest.starts_with(begin))
            return false;
        const auto at = m_rest.find(end, begin.size());
        drop(at == std::string_view::npos ? m_rest.size() : at + end.size());
        return true;
    }

    /// The length of `R"x(` at this place, 0 when there is none.
    [[nodiscard]] std::size_t rawStart() const {
        return m_rest.starts_with("R\"") && !isPartOfName(m_before) ? m_rest.find('(') + 1 : 0;
    }

    void takeRaw(std::size_t startLength) {
        const std::string end = ")" + std::string(m_rest.substr(2, startLength - 3)) + "\"";
        drop(startLength);
        const auto at = m_rest.find(end);
        add(m_rest.substr(0, at));
        drop(at + end.size());
    }

    void takeLiteral() {
        std::string text;
        for (char c = take(); c != '"'; c = take())
            text += c == '\\' ? escaped(take()) : c;
        add(text);
    }

    static char escaped(char c) { return c == 'n' || c == 't' || c == '0' ? '\n' : c; }

    void takeCharacter() {
        if (take() == '\\')
            take();
        skip("", "'");
    }

    void add(std::string_view text) {
        m_text += text;
        m_inText = true;
    }

    void endText() {
        if (m_inText)
            m_texts.push_back(std::exchange(m_text, {}));
        m_inText = false;
    }

    std::string_view m_rest;
    std::vector<std::string> m_texts;
    std::string m_text;
    bool m_inText = false;
    char m_before = ' ';
    bool m_inNumber = false;
};

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// Two words or more.
bool isSentence(std::string_view text) {
    const auto begin = std::find_if(text.begin(), text.end(), isLetter);
    const auto blank = std::find(begin, text.end(), ' ');
    return std::any_of(blank, text.end(), isLetter);
}

void addSentences(std::string_view text, std::vector<std::string>& sentences) {
    while (!text.empty()) {
        const auto at = std::min(text.find_first_of("\n{"), text.size());
        if (std::string piece = trimmed(text.substr(0, at)); isSentence(piece))
            sentences.push_back(std::move(piece));
        const bool atValue = at < text.size() && text[at] == '{';
        const auto end = atValue ? text.find('}', at) : at;
        text.remove_prefix(std::min(end == std::string_view::npos ? text.size() : end + 1, text.size()));
    }
}

} // namespace

std::vector<std::string> sentencesIn(std::string_view source) {
    std::vector<std::string> sentences;
    for (const std::string& text : Walk(source).texts())
        addSentences(text, sentences);
    return sentences;
}

} // namespace tol::test
