// SPDX-License-Identifier: MIT
#include "data/sqlite/CreateTableSql.h"

#include "data/sqlite/CreateTableParser.h"
#include "data/sqlite/Sql.h"

#include <algorithm>

namespace tol::data::sqlite {

std::optional<CreateTableSql> CreateTableSql::parse(std::string sql) {
    CreateTableSql statement;
    statement.m_tokens = sqlTokens(sql);
    statement.m_sql = std::move(sql);
    if (!CreateTableParser(statement).run())
        return std::nullopt;
    return statement;
}

std::vector<ConstraintPart> CreateTableSql::allConstraints() const {
    std::vector<ConstraintPart> all;
    for (const ColumnPart& column : m_columns)
        all.insert(all.end(), column.constraints.begin(), column.constraints.end());
    all.insert(all.end(), m_constraints.begin(), m_constraints.end());
    return all;
}

bool CreateTableSql::uses(const ConstraintPart& part, std::string_view column) const {
    return usesName(m_sql, std::span(m_tokens).subspan(part.begin, part.end - part.begin), column);
}

void CreateTableSql::removeColumn(std::string_view name) {
    for (const ColumnPart& column : m_columns)
        if (sameSqlName(column.name, name))
            removeElement(column.begin, column.end);
}

void CreateTableSql::removeConstraint(const ConstraintPart& part) {
    if (part.inColumn)
        m_removed.push_back({part.begin, part.end});
    else
        removeElement(part.begin, part.end);
}

void CreateTableSql::removeWithoutRowId() {
    if (m_withoutRowId)
        m_removed.push_back(*m_withoutRowId);
}

/// An item of the list goes with the comma behind it, if there is one.
void CreateTableSql::removeElement(std::size_t begin, std::size_t end) {
    m_removed.push_back({begin, isSymbol(end, ',') ? end + 1 : end});
}

std::string CreateTableSql::text(std::string_view tableName) const {
    const std::vector<bool> kept = keptTokens();
    std::string text;
    std::size_t copied = 0; // all of the text before this place is done with
    for (std::size_t token = 0; token < m_tokens.size(); ++token) {
        const SqlToken& place = m_tokens[token];
        const bool behindRemoved = token > 0 && !kept[token - 1];
        if (!behindRemoved || kept[token])
            text.append(m_sql, copied, place.begin - copied);
        copied = place.end;
        if (!kept[token])
            continue;
        // Words that lost what stood between them must not grow together.
        if (behindRemoved && place.kind != TokenKind::Symbol && place.begin == m_tokens[token - 1].end)
            text += ' ';
        text += token == m_name.begin ? quotedName(tableName) : std::string(tokenText(token));
        if (token == m_name.end && !m_prepended.empty())
            text += m_prepended + (isListEmpty(kept) ? "" : ", ");
    }
    return text + m_sql.substr(copied);
}

/// Marks what stays. Of the name's tokens only the first, in whose place the new name goes.
std::vector<bool> CreateTableSql::keptTokens() const {
    std::vector<bool> kept(m_tokens.size(), true);
    const auto drop = [&kept](TokenRange range) {
        for (std::size_t token = range.begin; token < std::min(range.end, kept.size()); ++token)
            kept[token] = false;
    };
    drop({m_name.begin + 1, m_name.end});
    std::ranges::for_each(m_removed, drop);

    // When the last item went, the comma before it has nothing to part any more.
    std::size_t last = m_close - 1;
    while (!kept[last])
        --last;
    if (isSymbol(last, ','))
        kept[last] = false;
    return kept;
}

bool CreateTableSql::isListEmpty(const std::vector<bool>& kept) const {
    return std::none_of(kept.begin() + static_cast<std::ptrdiff_t>(m_name.end) + 1,
                        kept.begin() + static_cast<std::ptrdiff_t>(m_close),
                        [](bool stays) { return stays; });
}

std::string_view CreateTableSql::tokenText(std::size_t token) const {
    const SqlToken& place = m_tokens[token];
    return std::string_view(m_sql).substr(place.begin, place.end - place.begin);
}

bool CreateTableSql::isSymbol(std::size_t token, char symbol) const {
    return token < m_tokens.size() && m_tokens[token].kind == TokenKind::Symbol &&
           tokenText(token).front() == symbol;
}

} // namespace tol::data::sqlite
