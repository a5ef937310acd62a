// SPDX-License-Identifier: MIT
#include "data/sqlite/Removals.h"

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/Sql.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <span>

namespace tol::data::sqlite {

namespace {

bool sameColumns(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    return std::ranges::equal(left, right, sameSqlName);
}

} // namespace

bool Removals::takesColumn(std::string_view column) const {
    return containsName(m_columns, column);
}

void Removals::applyTo(CreateTableSql& statement, const SchemaTable& table) const {
    for (const ColumnPart& column : statement.columns()) {
        if (takesColumn(column.name)) {
            statement.removeColumn(column.name);
            continue;
        }
        for (const ConstraintPart& part : column.constraints) {
            if (part.kind == ConstraintKind::Generated && areUsedBy(statement, part))
                runtime::raise(runtime::errFieldInIndex, {m_columns.front()},
                               "the generated column " + column.name + " uses it");
            if (takesPart(statement, part, table))
                statement.removeConstraint(part);
        }
    }
    for (const ConstraintPart& part : statement.constraints())
        if (takesPart(statement, part, table))
            statement.removeConstraint(part);
    if (m_primaryKey || takesAnyOf(table.primaryKey()))
        statement.removeWithoutRowId();
    if (takesAllColumns(table))
        statement.prependColumn(quotedName(rowKeyColumn) + " INTEGER PRIMARY KEY AUTOINCREMENT");
}

bool Removals::takesPart(const CreateTableSql& statement, const ConstraintPart& part,
                         const SchemaTable& table) const {
    switch (part.kind) {
    case ConstraintKind::PrimaryKey:
    case ConstraintKind::Unique:
        return takesAnyOf(part.columns) || takesKey(part, table);
    case ConstraintKind::ForeignKey:
        return takesAnyOf(part.columns) ||
               (sameSqlName(part.parentTable, table.name) && areUsedBy(statement, part));
    case ConstraintKind::Check:
        return areUsedBy(statement, part);
    default:
        return false;
    }
}

bool Removals::takesAnyOf(const std::vector<std::string>& columns) const {
    return std::ranges::any_of(columns, [this](const std::string& column) { return takesColumn(column); });
}

/// SQLite keeps one index for a primary key and a UNIQUE on the same columns, so both go with it; but a
/// row id has none.
bool Removals::takesKey(const ConstraintPart& part, const SchemaTable& table) const {
    if (part.kind == ConstraintKind::PrimaryKey)
        return m_primaryKey;
    if (m_primaryKey && table.rowIdAlias() == nullptr && sameColumns(part.columns, table.primaryKey()))
        return true;
    return std::ranges::any_of(m_uniques,
                               [&](const auto& columns) { return sameColumns(columns, part.columns); });
}

bool Removals::areUsedBy(const CreateTableSql& statement, const ConstraintPart& part) const {
    return std::ranges::any_of(m_columns,
                               [&](const std::string& column) { return statement.uses(part, column); });
}

bool Removals::takesAllColumns(const SchemaTable& table) const {
    return std::ranges::all_of(table.columns, [this](const SchemaColumn& column) {
        return column.generated || takesColumn(column.name);
    });
}

bool Removals::concernIndex(const SchemaIndex& index, const std::string& sql) const {
    if (std::ranges::any_of(index.keys, [this](const SchemaKey& key) { return takesColumn(key.column); }))
        return true;
    // What SQLite does not tell stands in the text: expressions in the brackets, a condition behind them.
    const std::vector<SqlToken> tokens = sqlTokens(sql);
    const bool hasExpression = std::ranges::any_of(index.keys, &SchemaKey::expression);
    const auto unknown = std::ranges::find_if(tokens, [&](const SqlToken& token) {
        const std::string_view text = std::string_view(sql).substr(token.begin, token.end - token.begin);
        return hasExpression ? text == "(" : token.kind == TokenKind::Word && sameSqlName(text, "WHERE");
    });
    const std::span expressions(unknown, tokens.end());
    return std::ranges::any_of(m_columns,
                               [&](const std::string& column) { return usesName(sql, expressions, column); });
}

bool Removals::areNamedIn(const std::string& sql) const {
    const std::vector<SqlToken> tokens = sqlTokens(sql);
    return std::ranges::any_of(m_columns,
                               [&](const std::string& column) { return usesName(sql, tokens, column); });
}

} // namespace tol::data::sqlite
