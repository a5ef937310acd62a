// SPDX-License-Identifier: MIT
#include "data/sqlite/KeyOrder.h"

#include "data/sqlite/RowKey.h"
#include "data/sqlite/Sql.h"

#include <algorithm>

namespace tol::data::sqlite {
namespace {

using Relation = Level::Relation;

const char* relationText(Relation relation) {
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
    case Relation::None:
        break;
    }
    return "";
}

/// A key that is one of the row key's columns has its value there.
KeySlot slotOf(const PhysicalTable& table, std::size_t field) {
    const auto& key = table.rowKey;
    const auto found = std::find(key.begin(), key.end(), table.columns[field].name);
    if (found != key.end())
        return {true, static_cast<std::size_t>(found - key.begin())};
    return {false, field};
}

} // namespace

KeyOrder::KeyOrder(const PhysicalTable& table, int index) : m_source(quotedName(table.sqlName)) {
    const auto position = static_cast<std::size_t>(index);
    const bool byIndex = index != storedOrder && table.indexes[position].kind != IndexKind::RowId &&
                         !table.indexes[position].outdated;
    if (byIndex)
        m_source += " INDEXED BY " + quotedName(table.indexes[position].sqlName);
    else if (!table.withoutRowId)
        m_source += " NOT INDEXED"; // else a covering index and a sort may look cheaper
    if (index != storedOrder)
        addKeys(table, table.indexes[position], table.definition.indexes[position]);
    addRowKey(table);
}

void KeyOrder::addKeys(const PhysicalTable& table, const PhysicalIndex& physical, const IndexDef& index) {
    for (std::size_t key = 0; key < index.fields.size(); ++key) {
        const auto field = static_cast<std::size_t>(table.definition.findField(index.fields[key]));
        Term term{quotedName(table.columns[field].name), slotOf(table, field), false};
        if (key < physical.collations.size() && !physical.collations[key].empty())
            term.expression += " COLLATE " + quotedName(physical.collations[key]);
        if (key < physical.descending.size())
            term.descending = physical.descending[key];
        m_terms.push_back(std::move(term));
    }
    m_keys = m_terms.size();
    m_unique = index.unique || index.primary;
    m_ownIndex = physical.kind == IndexKind::Own && !physical.outdated;
}

/// A primary key's text column that the index has under another collation must follow once more: that
/// one may take texts for equal which the primary key tells apart.
void KeyOrder::addRowKey(const PhysicalTable& table) {
    const auto& descending = table.rowKeyOrder.descending;
    for (std::size_t part = 0; part < table.rowKey.size(); ++part) {
        Term added{rowKeyExpression(table, part), {true, part}, part < descending.size() && descending[part]};
        const auto same = [&](const Term& term) {
            return term.slot == added.slot && (!table.withoutRowId || term.expression == added.expression);
        };
        if (std::none_of(m_terms.begin(), m_terms.end(), same))
            m_terms.push_back(std::move(added));
    }
}

bool KeyOrder::usesField(std::size_t field) const {
    const auto uses = [&](const Term& term) { return !term.slot.inRowKey && term.slot.position == field; };
    return std::any_of(m_terms.begin(), m_terms.end(), uses);
}

/// Nulls stand in front of all values where the order ascends, and behind them where it descends.
void KeyOrder::appendLevels(std::vector<Level>& levels, std::size_t term, bool isNull,
                            Direction direction) const {
    if (ascends(term, direction)) {
        levels.push_back({term, isNull ? Relation::IsNotNull : Relation::Greater});
    } else if (!isNull) {
        levels.push_back({term, Relation::Less});
        if (!m_terms[term].slot.inRowKey)
            levels.push_back({term, Relation::IsNull});
    }
}

std::vector<Level> KeyOrder::levelsBehind(const std::vector<bool>& isNull, Direction direction) const {
    std::vector<Level> levels;
    std::size_t term = m_terms.size();
    // Keys of a unique index without a Null belong to one row only.
    const bool anyNull = std::find(isNull.begin(), isNull.end(), true) != isNull.end();
    if (m_unique && !anyNull)
        term = m_keys;
    while (term-- > 0)
        appendLevels(levels, term, isNull[term], direction);
    return levels;
}

std::vector<Level> KeyOrder::levelsFrom(const std::vector<bool>& isNull) const {
    std::vector<Level> levels;
    std::size_t term = isNull.size() - 1;
    const bool ascending = ascends(term, Direction::Forward);
    if (isNull[term]) {
        levels.push_back({term, ascending ? Relation::None : Relation::IsNull});
    } else {
        levels.push_back({term, ascending ? Relation::GreaterOrEqual : Relation::LessOrEqual});
        if (!ascending)
            levels.push_back({term, Relation::IsNull});
    }
    while (term-- > 0)
        appendLevels(levels, term, isNull[term], Direction::Forward);
    return levels;
}

std::string KeyOrder::query(const std::string& columns, const Level& level, Direction direction) const {
    std::string sql = "SELECT " + columns + " FROM " + m_source;
    const char* separator = " WHERE ";
    for (std::size_t term = 0; term < level.equalTerms; ++term) {
        sql += separator + m_terms[term].expression + " IS ?";
        separator = " AND ";
    }
    if (level.relation != Relation::None)
        sql += separator + m_terms[level.equalTerms].expression + relationText(level.relation);
    // The equal terms are the same in all rows and would only hide the index's order from SQLite.
    separator = " ORDER BY ";
    for (std::size_t term = level.equalTerms; term < m_terms.size(); ++term) {
        sql += separator + m_terms[term].expression;
        if (!ascends(term, direction))
            sql += " DESC";
        separator = ", ";
    }
    return sql;
}

} // namespace tol::data::sqlite
