// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/ColumnRemoval.h"

#include "data/sqlite/connection/Connection.h"
#include "data/sqlite/definitions/PragmaSchema.h"
#include "data/sqlite/definitions/SchemaObjects.h"
#include "data/sqlite/definitions/TableRebuild.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tol::data::sqlite {
namespace {

using Kind = SchemaNote::Kind;

/// What a table has declared beside its columns, each part with the name that a note tells.
using Declarations = std::vector<std::pair<Kind, std::string>>;

std::string withCommas(const std::vector<SchemaKey>& keys) {
    std::vector<std::string> columns;
    for (const SchemaKey& key : keys)
        columns.push_back(key.column);
    return listed(columns);
}

void addKeys(const SchemaTable& table, Declarations& parts) {
    if (const SchemaColumn* alias = table.rowIdAlias())
        parts.emplace_back(Kind::PrimaryKey, alias->name);
    for (const SchemaIndex& index : table.indexes)
        if (index.origin == IndexOrigin::Created)
            parts.emplace_back(Kind::Index, index.name);
        else
            parts.emplace_back(index.origin == IndexOrigin::PrimaryKey ? Kind::PrimaryKey : Kind::Unique,
                               withCommas(index.keys));
}

void addColumns(const SchemaTable& table, Declarations& parts) {
    for (const SchemaColumn& column : table.columns) {
        if (column.generated)
            parts.emplace_back(Kind::Generated, column.name);
        if (column.defaultValue)
            parts.emplace_back(Kind::Default, column.name);
        if (column.notNull)
            parts.emplace_back(Kind::NotNull, column.name);
    }
}

void addForeignKeys(const SchemaTable& table, Declarations& parts) {
    for (const SchemaForeignKey& key : table.foreignKeys)
        parts.emplace_back(Kind::ForeignKey, listed(key.columns) + " to " + key.parent);
}

std::int64_t insertSteps(Connection& connection, const std::string& table) {
    Statement program(connection, "EXPLAIN INSERT INTO " + quotedName(table) + " DEFAULT VALUES");
    std::int64_t steps = 0;
    while (program.step())
        ++steps;
    return steps;
}

/// SQLite does not tell a table's checks; but its program for a new row is shorter where they are ignored.
void addChecks(Connection& connection, const std::string& table, Declarations& parts) {
    const std::int64_t all = insertSteps(connection, table);
    const PragmaFlag unchecked(connection, "ignore_check_constraints");
    if (const std::int64_t checks = all - insertSteps(connection, table); checks > 0)
        parts.emplace_back(Kind::Check, std::to_string(checks));
}

/// The file's triggers must be out of the way.
Declarations declarationsOf(Connection& connection, const std::string& name) {
    const SchemaTable table = requireSchema(connection, name);
    Declarations parts;
    addKeys(table, parts);
    addColumns(table, parts);
    addForeignKeys(table, parts);
    addChecks(connection, name, parts);
    return parts;
}

/// A unique index does not come back: the rows need not fit it any more when they have got their new values.
bool isUnique(Connection& connection, const SchemaObject& index) {
    auto query = connection.cached("SELECT \"unique\" FROM pragma_index_list(?1, 'main') WHERE name = ?2");
    query->bindAll(index.table, index.name);
    return query->step() && query->integer(0) != 0;
}

Loss lossOf(const SchemaObject& dependent, const std::string& table, const std::string& column) {
    static const std::map<std::string, Kind> kinds = {
        {"index", Kind::Index}, {"trigger", Kind::Trigger}, {"view", Kind::View}, {"table", Kind::Reference}};
    const bool isGone = dependent.type == "index" || dependent.type == "trigger";
    return {{kinds.at(dependent.type), table, dependent.name}, column, isGone ? dependent.sql : ""};
}

} // namespace

void Losses::restore(const std::string& table, const std::string& column) {
    std::erase_if(m_losses, [&](const Loss& loss) {
        return loss.note.table == table && sameSqlName(loss.column, column) && comesBack(loss);
    });
}

bool Losses::comesBack(const Loss& loss) {
    const bool wasLeft = loss.note.kind == Kind::View || loss.note.kind == Kind::Reference;
    return wasLeft || (!loss.sql.empty() && m_connection.tryExecute(loss.sql));
}

SchemaNotes Losses::takeNotes() {
    SchemaNotes notes;
    for (const Loss& loss : m_losses)
        notes.push_back(loss.note);
    m_losses.clear();
    m_committed.clear();
    return notes;
}

void ColumnRemoval::hide(const std::string& column, const std::string& hiddenName) {
    remove(column, [&] {
        m_connection.execute("ALTER TABLE " + quotedName(m_table) + " RENAME COLUMN " + quotedName(column) +
                             " TO " + quotedName(hiddenName));
    });
}

void ColumnRemoval::drop(const std::string& column) {
    remove(column, [&] {
        const Declarations before = declarationsOf(m_connection, m_table);
        if (!m_connection.tryExecute("ALTER TABLE " + quotedName(m_table) + " DROP COLUMN " +
                                     quotedName(column)))
            TableRebuild(m_connection, m_table).make({.removed = column});
        const Declarations after = declarationsOf(m_connection, m_table);
        for (const auto& part : before)
            if (std::ranges::find(after, part) == after.end())
                m_losses.add(
                    {{part.first, m_table, part.first == Kind::Check ? "" : part.second}, column, ""});
    });
}

void ColumnRemoval::remove(const std::string& column, const std::function<void()>& step) {
    std::vector<SchemaObject> dependents = dependentsOf(m_connection, m_table, column);
    for (SchemaObject& dependent : dependents)
        if (dependent.type == "index" && isUnique(m_connection, dependent))
            dependent.sql.clear();
    withoutViews(m_connection, dependents, [&] {
        for (const SchemaObject& dependent : dependents)
            if (dependent.type == "index")
                m_connection.execute("DROP INDEX " + quotedName(dependent.name));
        step();
    });
    for (const SchemaObject& dependent : dependents)
        m_losses.add(lossOf(dependent, m_table, column));
}

} // namespace tol::data::sqlite
