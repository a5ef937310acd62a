// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/RowWriter.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/rows/FieldStorage.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <algorithm>

namespace tol::data::sqlite {
namespace {

/// Callers write the same few sets of fields again and again; more sets than that come from none.
constexpr std::size_t statementLimit = 64;

/// The primary key of one of this program's own tables, null for none; in those of others it may fill
/// itself.
const IndexDef* ownPrimaryKey(const StoredTable& table) {
    for (std::size_t index = 0; index < table.indexes.size(); ++index) {
        if (table.definition.indexes[index].primary && table.indexes[index].kind == IndexKind::Own)
            return &table.definition.indexes[index];
    }
    return nullptr;
}

/// Key fields as SQLite tells of a duplicate: "table.column, table.column".
std::string keyText(const StoredTable& table, const IndexDef& index) {
    std::string text;
    for (const auto& name : index.fields) {
        const auto field = static_cast<std::size_t>(table.definition.findField(name));
        text += (text.empty() ? "" : ", ") + table.sqlName + "." + table.columns[field].name;
    }
    return text;
}

/// Runs a write; the error of a duplicate key tells which index it is about.
template <typename Step>
void namingDuplicates(const StoredTable& table, Step&& step) {
    try {
        step();
    } catch (const runtime::RuntimeError& error) {
        const auto& indexes = table.definition.indexes;
        const auto isMeant = [&](const IndexDef& index) {
            return index.unique && error.engineText().ends_with(": " + keyText(table, index));
        };
        if (error.number() != runtime::errDuplicateKey)
            throw;
        const auto meant = std::find_if(indexes.begin(), indexes.end(), isMeant);
        // One that is not told, such as a constraint's whose index was deleted, goes by its columns.
        const std::string& text = error.engineText();
        const std::string name =
            meant == indexes.end() ? text.substr(std::min(text.size(), text.rfind(": ") + 2)) : meant->name;
        runtime::raise(runtime::errDuplicateKey, {name}, text);
    }
}

bool hasTriggers(Connection& connection, const StoredTable& table) {
    auto query = connection.cached(
        "SELECT 1 FROM sqlite_schema WHERE type = 'trigger' AND tbl_name = ? COLLATE NOCASE");
    query->bind(1, table.sqlName);
    return query->step();
}

/// Triggers of other makers' tables may change more rows than the one that was written.
class SideEffects {
  public:
    SideEffects(Session& session, bool possible)
        : m_session(session), m_possible(possible), m_before(total()) {}
    void notice(std::int64_t expected) {
        if (m_possible && total() - m_before != expected)
            m_session.changedAnything();
    }

  private:
    [[nodiscard]] std::int64_t total() const {
        return m_possible ? sqlite3_total_changes64(m_session.connection().handle()) : 0;
    }

    Session& m_session;
    bool m_possible;
    std::int64_t m_before;
};

} // namespace

RowWriter::RowWriter(Session& session, std::shared_ptr<const StoredTable> table)
    : m_session(session),
      m_table(std::move(table)),
      m_isIndexed(m_table->columns.size()),
      m_hasTriggers(!m_table->own && hasTriggers(session.connection(), *m_table)) {
    for (const auto& index : m_table->definition.indexes) {
        for (const auto& name : index.fields)
            m_isIndexed[static_cast<std::size_t>(m_table->definition.findField(name))] = true;
    }
    const auto keyField = std::ranges::find(m_table->columns, m_table->rowKey, &Column::name);
    if (keyField != m_table->columns.end())
        m_keyField = static_cast<std::size_t>(keyField - m_table->columns.begin());
    const IndexDef* primary = ownPrimaryKey(*m_table);
    if (primary == nullptr)
        return;
    m_primaryName = primary->name;
    for (const auto& name : primary->fields)
        m_primaryFields.push_back(static_cast<std::size_t>(m_table->definition.findField(name)));
}

std::int64_t RowWriter::insert(std::span<const Assignment> values) {
    requireKeys(values, true);
    Statement& statement = statementFor(m_inserts, values, &RowWriter::insertSql);
    SideEffects effects(m_session, m_hasTriggers);
    namingDuplicates(*m_table, [&] {
        m_session.writes().write([&] {
            m_session.writeChangedRows();
            bindValues(statement, values);
            statement.run();
        });
    });
    effects.notice(1);
    return m_session.connection().lastInsertRowId();
}

std::optional<std::int64_t> RowWriter::update(std::int64_t key, std::span<const Assignment> values,
                                              bool seen) {
    requireKeys(values, false);
    seen = seen && mayWait(values);
    const std::uint64_t others = m_session.others();
    bool changed = true;
    SideEffects effects(m_session, m_hasTriggers);
    const auto write = [&] {
        if (seen && m_session.others() == others && m_session.connection().inTransaction()) {
            m_session.changedRows().add(m_table, key, values);
            return;
        }
        Statement& statement = statementFor(m_updates, values, &RowWriter::updateSql);
        statement.bind(static_cast<int>(values.size()) + 1, key);
        bindValues(statement, values);
        changed = runChange(statement);
    };
    namingDuplicates(*m_table, [&] { m_session.writes().write(write); });
    effects.notice(changed ? 1 : 0);
    return changed ? std::optional(keyAfter(key, values)) : std::nullopt;
}

/// The row key may be a field of another maker's table.
std::int64_t RowWriter::keyAfter(std::int64_t key, std::span<const Assignment> values) const {
    std::string buffer;
    const auto set = std::ranges::find(values, m_keyField, &Assignment::field);
    return set == values.end() ? key
                               : toStored(set->value, m_table->columns[set->field].storage, buffer).integer;
}

bool RowWriter::mayWait(std::span<const Assignment> values) const {
    // In a column that this program has made, a value of the field's type can break no other rule.
    const auto isFree = [&](const Assignment& value) {
        return m_table->columns[value.field].own && !m_isIndexed[value.field];
    };
    return !m_hasTriggers && !m_table->hasHiddenUnique && !values.empty() &&
           std::all_of(values.begin(), values.end(), isFree);
}

bool RowWriter::remove(std::int64_t key) {
    if (!m_remove.isPrepared())
        m_remove = Statement(m_session.connection(), "DELETE FROM " + quotedName(m_table->sqlName) +
                                                         " WHERE " + quotedName(m_table->rowKey) + " = ?");
    m_remove.bind(1, key);
    bool removed = false;
    SideEffects effects(m_session, m_hasTriggers);
    m_session.writes().write([&] { removed = runChange(m_remove); });
    if (removed)
        effects.notice(1);
    return removed;
}

bool RowWriter::runChange(Statement& statement) {
    m_session.writeChangedRows();
    statement.run();
    return m_session.connection().changes() > 0;
}

Statement& RowWriter::statementFor(Statements& statements, std::span<const Assignment> values,
                                   std::string (RowWriter::*sql)(const Fields&) const) {
    m_fields.clear();
    for (const auto& value : values)
        m_fields.push_back(value.field);
    const auto kept = statements.find(m_fields);
    if (kept != statements.end())
        return kept->second;
    if (statements.size() >= statementLimit)
        statements.clear();
    return statements.emplace(m_fields, Statement(m_session.connection(), (this->*sql)(m_fields)))
        .first->second;
}

std::string RowWriter::insertSql(const Fields& fields) const {
    std::string names;
    std::string places;
    for (const auto field : fields) {
        names += (names.empty() ? "" : ", ") + quotedName(m_table->columns[field].name);
        places += places.empty() ? "?" : ", ?";
    }
    return "INSERT INTO " + quotedName(m_table->sqlName) +
           (fields.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")");
}

std::string RowWriter::updateSql(const Fields& fields) const {
    std::string changes;
    for (const auto field : fields)
        changes += (changes.empty() ? "" : ", ") + quotedName(m_table->columns[field].name) + " = ?";
    // An update of no field still tells whether the row is there.
    if (fields.empty())
        changes = quotedName(m_table->rowKey) + " = " + quotedName(m_table->rowKey);
    return "UPDATE " + quotedName(m_table->sqlName) + " SET " + changes + " WHERE " +
           quotedName(m_table->rowKey) + " = ?";
}

void RowWriter::bindValues(Statement& statement, std::span<const Assignment> values) {
    if (m_buffers.size() < values.size())
        m_buffers.resize(values.size());
    for (std::size_t place = 0; place < values.size(); ++place) {
        const auto storage = m_table->columns[values[place].field].storage;
        bindStored(statement, static_cast<int>(place) + 1,
                   toStored(values[place].value, storage, m_buffers[place]));
    }
}

/// SQLite lets Nulls into unique indexes; a primary key must not have them.
void RowWriter::requireKeys(std::span<const Assignment> values, bool all) const {
    for (const auto field : m_primaryFields) {
        const auto sets = [&](const Assignment& value) { return value.field == field; };
        const auto set = std::find_if(values.begin(), values.end(), sets);
        if (set == values.end() ? all : set->value.isNull())
            runtime::raise(runtime::errNullInIndex, {m_primaryName});
    }
}

} // namespace tol::data::sqlite
