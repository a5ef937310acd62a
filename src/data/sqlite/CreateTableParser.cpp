// SPDX-License-Identifier: MIT
#include "data/sqlite/CreateTableParser.h"

#include <algorithm>
#include <array>

namespace tol::data::sqlite {

bool CreateTableParser::run() {
    if (!parseHead())
        return false;
    parseElements();
    if (!isSymbol(m_at, ')') || m_statement.m_columns.empty())
        return false;
    m_statement.m_close = m_at++;
    parseTableOptions();
    return true;
}

bool CreateTableParser::parseHead() {
    if (!accept("CREATE"))
        return false;
    if (!accept("TEMP"))
        accept("TEMPORARY");
    if (!accept("TABLE"))
        return false;
    acceptAll({"IF", "NOT", "EXISTS"});
    return parseName() && acceptSymbol('(');
}

bool CreateTableParser::parseName() {
    m_statement.m_name.begin = m_at;
    skip();
    if (acceptSymbol('.'))
        skip();
    m_statement.m_name.end = m_at;
    return m_at < m_statement.m_tokens.size();
}

void CreateTableParser::parseElements() {
    do {
        if (startsTableConstraint()) {
            // SQLite lets the commas between table constraints be left out.
            while (!atElementEnd())
                m_statement.m_constraints.push_back(parseConstraint(nullptr));
        } else if (!atElementEnd()) {
            parseColumn();
        }
    } while (acceptSymbol(','));
}

void CreateTableParser::parseColumn() {
    ColumnPart column;
    column.begin = m_at;
    column.name = takeName();
    parseType();
    while (!atElementEnd())
        column.constraints.push_back(parseConstraint(&column.name));
    column.end = m_at;
    m_statement.m_columns.push_back(std::move(column));
}

void CreateTableParser::parseType() {
    while (!atElementEnd() && !startsColumnConstraint() && !isSymbol(m_at, '('))
        skip();
    skipGroup();
}

void CreateTableParser::parseTableOptions() {
    const std::size_t begin = m_at;
    while (m_at < m_statement.m_tokens.size()) {
        const std::size_t option = m_at;
        if (!acceptAll({"WITHOUT", "ROWID"})) {
            ++m_at;
            continue;
        }
        const bool commaBefore = option > begin && isSymbol(option - 1, ',');
        if (!commaBefore)
            acceptSymbol(',');
        m_statement.m_withoutRowId = {commaBefore ? option - 1 : option, m_at};
        return;
    }
}

ConstraintPart CreateTableParser::parseConstraint(const std::string* column) {
    ConstraintPart part;
    part.begin = m_at;
    part.inColumn = column != nullptr;
    if (accept("CONSTRAINT"))
        part.name = takeName();
    parseConstraintBody(part);
    const bool hasColumns = part.kind == ConstraintKind::PrimaryKey || part.kind == ConstraintKind::Unique ||
                            part.kind == ConstraintKind::ForeignKey;
    if (part.inColumn && hasColumns)
        part.columns = {*column};
    if (m_at == part.begin)
        skip();
    part.end = m_at;
    return part;
}

void CreateTableParser::parseConstraintBody(ConstraintPart& part) {
    if (acceptAll({"PRIMARY", "KEY"})) {
        parsePrimaryKey(part);
    } else if (accept("UNIQUE")) {
        parseUnique(part);
    } else if (accept("CHECK")) {
        part.kind = ConstraintKind::Check;
        skipGroup();
        parseConflict();
    } else if (acceptAll({"FOREIGN", "KEY"})) {
        part.columns = parseNames();
        if (accept("REFERENCES"))
            parseForeignKey(part);
    } else if (accept("REFERENCES")) {
        parseForeignKey(part);
    } else if (accept("NOT")) {
        parseNotNullOrDeferrable(part);
    } else if (accept("DEFERRABLE")) {
        parseDeferrable();
    } else if (accept("NULL")) {
        parseConflict();
    } else if (accept("DEFAULT")) {
        part.kind = ConstraintKind::Default;
        parseDefault();
    } else if (accept("COLLATE")) {
        part.kind = ConstraintKind::Collate;
        skip();
    } else if (acceptAll({"GENERATED", "ALWAYS", "AS"}) || accept("AS")) {
        part.kind = ConstraintKind::Generated;
        parseGenerated();
    }
}

void CreateTableParser::parsePrimaryKey(ConstraintPart& part) {
    part.kind = ConstraintKind::PrimaryKey;
    if (!part.inColumn)
        part.columns = parseNames();
    if (!accept("ASC"))
        accept("DESC");
    parseConflict();
    accept("AUTOINCREMENT");
}

void CreateTableParser::parseUnique(ConstraintPart& part) {
    part.kind = ConstraintKind::Unique;
    if (!part.inColumn)
        part.columns = parseNames();
    parseConflict();
}

/// From behind REFERENCES on; a table's own FOREIGN KEY has its columns already.
void CreateTableParser::parseForeignKey(ConstraintPart& part) {
    part.kind = ConstraintKind::ForeignKey;
    part.parentTable = takeName();
    skipGroup();
    parseReferenceActions();
}

void CreateTableParser::parseReferenceActions() {
    for (;;) {
        if (accept("ON")) {
            skip(); // DELETE or UPDATE
            if (!acceptAll({"SET", "NULL"}) && !acceptAll({"SET", "DEFAULT"}) && !acceptAll({"NO", "ACTION"}))
                skip();
        } else if (accept("MATCH")) {
            skip();
        } else if (acceptAll({"NOT", "DEFERRABLE"}) || accept("DEFERRABLE")) {
            parseDeferrable();
        } else {
            return;
        }
    }
}

void CreateTableParser::parseNotNullOrDeferrable(ConstraintPart& part) {
    if (accept("NULL")) {
        part.kind = ConstraintKind::NotNull;
        parseConflict();
    } else if (accept("DEFERRABLE")) {
        parseDeferrable();
    }
}

void CreateTableParser::parseDeferrable() {
    if (accept("INITIALLY"))
        skip();
}

void CreateTableParser::parseDefault() {
    if (isSymbol(m_at, '(')) {
        skipGroup();
        return;
    }
    if (!acceptSymbol('-'))
        acceptSymbol('+');
    skip();
}

void CreateTableParser::parseGenerated() {
    skipGroup();
    if (!accept("STORED"))
        accept("VIRTUAL");
}

void CreateTableParser::parseConflict() {
    if (acceptAll({"ON", "CONFLICT"}))
        skip();
}

/// The names at the front of each item of a list in brackets; what follows a name (COLLATE, ASC) is
/// passed over.
std::vector<std::string> CreateTableParser::parseNames() {
    std::vector<std::string> names;
    if (!acceptSymbol('('))
        return names;
    while (m_at < m_statement.m_tokens.size() && !isSymbol(m_at, ')')) {
        names.push_back(takeName());
        while (m_at < m_statement.m_tokens.size() && !isSymbol(m_at, ',') && !isSymbol(m_at, ')'))
            skip();
        acceptSymbol(',');
    }
    acceptSymbol(')');
    return names;
}

std::string_view CreateTableParser::text(std::size_t token) const {
    if (token >= m_statement.m_tokens.size())
        return {};
    const SqlToken& place = m_statement.m_tokens[token];
    return std::string_view(m_statement.m_sql).substr(place.begin, place.end - place.begin);
}

bool CreateTableParser::isWord(std::size_t token, std::string_view word) const {
    return token < m_statement.m_tokens.size() && m_statement.m_tokens[token].kind == TokenKind::Word &&
           sameSqlName(text(token), word);
}

bool CreateTableParser::isSymbol(std::size_t token, char symbol) const {
    return token < m_statement.m_tokens.size() && m_statement.m_tokens[token].kind == TokenKind::Symbol &&
           text(token).front() == symbol;
}

bool CreateTableParser::startsTableConstraint() const {
    static constexpr std::array<std::string_view, 5> words = {"CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK",
                                                              "FOREIGN"};
    return std::ranges::any_of(words, [this](std::string_view word) { return isWord(m_at, word); });
}

bool CreateTableParser::startsColumnConstraint() const {
    static constexpr std::array<std::string_view, 9> words = {
        "CONSTRAINT", "PRIMARY", "UNIQUE", "CHECK", "NOT", "NULL", "DEFAULT", "COLLATE", "REFERENCES"};
    return std::ranges::any_of(words, [this](std::string_view word) { return isWord(m_at, word); }) ||
           isWord(m_at, "AS") || (isWord(m_at, "GENERATED") && isWord(m_at + 1, "ALWAYS"));
}

bool CreateTableParser::atElementEnd() const {
    return m_at >= m_statement.m_tokens.size() || isSymbol(m_at, ',') || isSymbol(m_at, ')');
}

bool CreateTableParser::accept(std::string_view word) {
    if (!isWord(m_at, word))
        return false;
    ++m_at;
    return true;
}

bool CreateTableParser::acceptAll(std::initializer_list<std::string_view> words) {
    std::size_t at = m_at;
    for (const std::string_view word : words)
        if (!isWord(at++, word))
            return false;
    m_at = at;
    return true;
}

bool CreateTableParser::acceptSymbol(char symbol) {
    if (!isSymbol(m_at, symbol))
        return false;
    ++m_at;
    return true;
}

std::string CreateTableParser::takeName() {
    std::string name = unquotedName(text(m_at));
    skip();
    return name;
}

/// Never beyond the comma or bracket that ends an element, so that damage stays within it.
void CreateTableParser::skip() {
    if (isSymbol(m_at, '('))
        skipGroup();
    else if (!atElementEnd())
        ++m_at;
}

void CreateTableParser::skipGroup() {
    if (!isSymbol(m_at, '('))
        return;
    int depth = 0;
    do {
        depth += isSymbol(m_at, '(') ? 1 : isSymbol(m_at, ')') ? -1 : 0;
        ++m_at;
    } while (depth > 0 && m_at < m_statement.m_tokens.size());
}

} // namespace tol::data::sqlite
