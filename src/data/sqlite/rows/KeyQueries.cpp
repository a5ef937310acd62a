// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/KeyQueries.h"

#include "data/sqlite/connection/Statement.h"

#include <algorithm>

namespace tol::data::sqlite {
namespace {

const char* relationText(KeyRange::Relation relation) {
    using Relation = KeyRange::Relation;
    switch (relation) {
    case Relation::Greater:
        return " > ?";
    case Relation::GreaterOrEqual:
        return " >= ?";
    case Relation::Less:
        return " < ?";
    case Relation::LessOrEqual:
        return " <= ?";
    case Relation::IsNull:
        return " IS NULL";
    case Relation::IsNotNull:
        return " IS NOT NULL";
    case Relation::Any:
        break;
    }
    return "";
}

} // namespace

KeyQueries::KeyQueries(const StoredTable& table, int index) : m_source(quotedName(table.sqlName)) {
    const auto position = static_cast<std::size_t>(index);
    const bool byIndex = index != storedOrder && table.indexes[position].kind != IndexKind::RowId &&
                         !table.indexes[position].outdated;
    if (byIndex)
        m_source += " INDEXED BY " + quotedName(table.indexes[position].sqlName);
    else
        m_source += " NOT INDEXED"; // else a covering index and a sort may look cheaper
    if (index != storedOrder)
        addKeys(table, position);
    const auto isRowKey = [&](const RowOrder::Term& term) {
        return table.columns[term.field].name == table.rowKey;
    };
    if (std::ranges::any_of(m_order.terms, isRowKey))
        return;
    m_order.terms.emplace_back();
    m_expressions.push_back(quotedName(table.rowKey));
}

void KeyQueries::addKeys(const StoredTable& table, std::size_t index) {
    const StoredIndex& stored = table.indexes[index];
    const IndexDef& definition = table.definition.indexes[index];
    for (std::size_t key = 0; key < definition.fields.size(); ++key) {
        const auto field = static_cast<std::size_t>(table.definition.findField(definition.fields[key]));
        m_order.terms.push_back({field, key < stored.descending.size() && stored.descending[key]});
        m_expressions.push_back(quotedName(table.columns[field].name));
        if (key < stored.collations.size() && !stored.collations[key].empty())
            m_expressions.back() += " COLLATE " + quotedName(stored.collations[key]);
    }
    m_order.keys = m_order.terms.size();
    m_order.unique = definition.unique || definition.primary;
    m_order.searchable = stored.kind == IndexKind::Own && !stored.outdated;
}

std::string KeyQueries::query(const std::string& columns, const KeyRange& range, Direction direction) const {
    std::string sql = "SELECT " + columns + " FROM " + m_source;
    const char* separator = " WHERE ";
    for (std::size_t term = 0; term < range.equalTerms; ++term) {
        sql += separator + m_expressions[term] + " IS ?";
        separator = " AND ";
    }
    if (range.relation != KeyRange::Relation::Any)
        sql += separator + m_expressions[range.equalTerms] + relationText(range.relation);
    // The equal terms are the same in all rows and would only hide the index's order from SQLite.
    separator = " ORDER BY ";
    for (std::size_t term = range.equalTerms; term < m_expressions.size(); ++term) {
        sql += separator + m_expressions[term];
        if (m_order.terms[term].descending != (direction == Direction::Backward))
            sql += " DESC";
        separator = ", ";
    }
    return sql;
}

} // namespace tol::data::sqlite
