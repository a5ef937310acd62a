// SPDX-License-Identifier: MIT
#include "data/sqlite/SqlTokens.h"

#include <algorithm>

namespace tol::data::sqlite {

namespace {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Bytes of letters beyond ASCII count as letters.
constexpr bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c) || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// One pass over a text, token by token.
class Scanner {
  public:
    explicit Scanner(std::string_view sql) : m_sql(sql) {}

    std::vector<SqlToken> run() {
        std::vector<SqlToken> tokens;
        while (m_at < m_sql.size())
            if (!skipBlank() && !skipComment())
                tokens.push_back(next());
        return tokens;
    }

  private:
    [[nodiscard]] char peek(std::size_t ahead = 0) const {
        return m_at + ahead < m_sql.size() ? m_sql[m_at + ahead] : '\0';
    }

    void moveBehind(std::string_view mark, std::size_t from) {
        const std::size_t found = m_sql.find(mark, from);
        m_at = found == std::string_view::npos ? m_sql.size() : found + mark.size();
    }

    bool skipBlank() {
        if (!isBlank(peek()))
            return false;
        ++m_at;
        return true;
    }

    bool skipComment() {
        if (peek() == '-' && peek(1) == '-')
            moveBehind("\n", m_at);
        else if (peek() == '/' && peek(1) == '*')
            moveBehind("*/", m_at + 2);
        else
            return false;
        return true;
    }

    SqlToken next() {
        const std::size_t begin = m_at;
        const TokenKind kind = take();
        return {kind, begin, m_at};
    }

    TokenKind take() {
        const char c = peek();
        if (c == '\'' || c == '"' || c == '`') {
            takeQuoted(c);
            return c == '\'' ? TokenKind::Literal : TokenKind::QuotedName;
        }
        if (c == '[') {
            moveBehind("]", m_at);
            return TokenKind::QuotedName;
        }
        if (lower(c) == 'x' && peek(1) == '\'') {
            ++m_at;
            takeQuoted('\'');
            return TokenKind::Literal;
        }
        if (isDigit(c) || (c == '.' && isDigit(peek(1)))) {
            takeNumber();
            return TokenKind::Literal;
        }
        ++m_at;
        if (!isNameCharacter(c))
            return TokenKind::Symbol;
        while (isNameCharacter(peek()))
            ++m_at;
        return TokenKind::Word;
    }

    /// A quote written twice stands for itself.
    void takeQuoted(char quote) {
        for (++m_at; m_at < m_sql.size(); ++m_at) {
            if (m_sql[m_at] != quote)
                continue;
            if (peek(1) != quote) {
                ++m_at;
                return;
            }
            ++m_at;
        }
    }

    /// 12, 1.5, .5e-3, 0x1F: letters that hang on a number belong to it.
    void takeNumber() {
        bool hex = false;
        for (; m_at < m_sql.size(); ++m_at) {
            const char c = peek();
            const bool signOfExponent = (c == '+' || c == '-') && lower(m_sql[m_at - 1]) == 'e' && !hex;
            if (!isNameCharacter(c) && c != '.' && !signOfExponent)
                break;
            hex = hex || lower(c) == 'x';
        }
    }

    std::string_view m_sql;
    std::size_t m_at = 0;
};

} // namespace

std::vector<SqlToken> sqlTokens(std::string_view sql) {
    return Scanner(sql).run();
}

std::string unquotedName(std::string_view token) {
    if (token.empty())
        return {};
    const char open = token.front();
    if (open != '"' && open != '`' && open != '\'' && open != '[')
        return std::string(token);
    const char close = open == '[' ? ']' : open;
    token.remove_prefix(1);
    if (!token.empty() && token.back() == close)
        token.remove_suffix(1);
    std::string name;
    for (std::size_t at = 0; at < token.size(); ++at) {
        name += token[at];
        if (open != '[' && token[at] == close && at + 1 < token.size() && token[at + 1] == close)
            ++at;
    }
    return name;
}

bool sameSqlName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

bool containsName(std::span<const std::string> names, std::string_view name) {
    return std::ranges::any_of(names, [name](const std::string& other) { return sameSqlName(other, name); });
}

bool usesName(std::string_view sql, std::span<const SqlToken> tokens, std::string_view column) {
    const auto text = [&](std::size_t token) {
        return token < tokens.size()
                   ? sql.substr(tokens[token].begin, tokens[token].end - tokens[token].begin)
                   : std::string_view();
    };
    for (std::size_t token = 0; token < tokens.size(); ++token) {
        const std::string_view before = token == 0 ? std::string_view() : text(token - 1);
        const bool isFunction = tokens[token].kind == TokenKind::Word && text(token + 1) == "(";
        // COLLATE name, CAST(... AS type)
        const bool isOtherName = sameSqlName(before, "COLLATE") || sameSqlName(before, "AS");
        const bool isName =
            tokens[token].kind == TokenKind::Word || tokens[token].kind == TokenKind::QuotedName;
        if (isName && !isFunction && !isOtherName && sameSqlName(unquotedName(text(token)), column))
            return true;
    }
    return false;
}

} // namespace tol::data::sqlite
