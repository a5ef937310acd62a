// SPDX-License-Identifier: MIT
#include "data/sqlite/TableRebuild.h"

#include "data/sqlite/PragmaFlag.h"
#include "data/sqlite/Sql.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace tol::data::sqlite {

namespace {

/// A name that nothing in the file has.
std::string freeTableName(Connection& connection) {
    std::string name = "MSysRebuild";
    const auto isTaken = [&] {
        auto query = connection.cached("SELECT 1 FROM sqlite_schema WHERE name = ? COLLATE NOCASE");
        query->bind(1, name);
        return query->step();
    };
    while (isTaken())
        name += '_';
    return name;
}

/// The columns that a row is written to, quoted.
std::vector<std::string> writtenColumns(const SchemaTable& table) {
    std::vector<std::string> columns;
    for (const SchemaColumn& column : table.columns)
        if (!column.generated)
            columns.push_back(quotedName(column.name));
    return columns;
}

std::string listed(const std::vector<std::string>& items, std::string_view behindEach = {}) {
    std::string list;
    for (const std::string& item : items)
        list.append(list.empty() ? "" : ", ").append(item).append(behindEach);
    return list;
}

/// What makes SQLite read a table from front to end, and not by an index that happens to have all columns.
std::string inStoredOrder(const SchemaTable& table) {
    const auto key = std::ranges::find(table.indexes, IndexOrigin::PrimaryKey, &SchemaIndex::origin);
    if (!table.withoutRowId || key == table.indexes.end())
        return " NOT INDEXED";
    std::vector<std::string> terms;
    for (const SchemaKey& part : key->keys)
        terms.push_back(quotedName(part.column) + " COLLATE " + quotedName(part.collation) +
                        (part.descending ? " DESC" : ""));
    return " ORDER BY " + listed(terms);
}

std::string textOf(Connection& connection, const std::string& table) {
    auto query = connection.cached("SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?");
    query->bind(1, table);
    return query->step() ? std::string(query->text(0)) : std::string();
}

CreateTableSql parsedText(Connection& connection, const std::string& table) {
    auto statement = CreateTableSql::parse(textOf(connection, table));
    if (!statement)
        runtime::raise(runtime::errInvalidOperation, {},
                       "the text of table " + table + " can't be taken apart");
    return std::move(*statement);
}

bool numbersItsRows(const CreateTableSql& statement) {
    return std::ranges::any_of(statement.allConstraints(), [&](const ConstraintPart& part) {
        return part.kind == ConstraintKind::PrimaryKey && statement.uses(part, "AUTOINCREMENT");
    });
}

SchemaTable schemaOf(Connection& connection, const std::string& table) {
    FileSchema schema = readSchema(connection, table);
    if (schema.empty())
        runtime::raise(runtime::errTableNotFound, {table});
    return std::move(schema.begin()->second);
}

} // namespace

TableRebuild::TableRebuild(Connection& connection, std::string table) : m_connection(connection) {
    m_table.name = std::move(table);
}

void TableRebuild::removeKey(const PhysicalTable& table, std::size_t index) {
    const IndexDef& definition = table.definition.indexes[index];
    if (definition.primary) {
        m_removals.addPrimaryKey();
        return;
    }
    std::vector<std::string> columns;
    for (const std::string& field : definition.fields)
        columns.push_back(table.columns[static_cast<std::size_t>(table.definition.findField(field))].name);
    m_removals.addUnique(std::move(columns));
}

void TableRebuild::run() {
    m_connection.run("SAVEPOINT rebuild");
    try {
        rebuild();
    } catch (...) {
        if (m_connection.inTransaction()) // else SQLite has given up all of it
            m_connection.execute("ROLLBACK TO rebuild; RELEASE rebuild");
        throw;
    }
    m_connection.run("RELEASE rebuild");
}

void TableRebuild::rebuild() {
    m_table = schemaOf(m_connection, m_table.name);
    const std::vector<SchemaObject> indexes = objects("index");
    const std::vector<SchemaObject> triggers = objects("trigger");
    makeNewTable();
    copyRows();
    replaceTable();
    restoreIndexes(indexes);
    restoreTriggers(triggers);
}

/// What was made by hand, in the order in which it was made.
std::vector<TableRebuild::SchemaObject> TableRebuild::objects(const std::string& type) {
    auto query =
        m_connection.cached("SELECT name, sql FROM sqlite_schema "
                            "WHERE type = ? AND tbl_name = ? COLLATE NOCASE AND sql <> '' ORDER BY rowid");
    query->bindAll(type, m_table.name);
    std::vector<SchemaObject> found;
    while (query->step())
        found.push_back({std::string(query->text(0)), std::string(query->text(1))});
    return found;
}

void TableRebuild::makeNewTable() {
    CreateTableSql statement = parsedText(m_connection, m_table.name);
    m_removals.applyTo(statement, m_table);
    m_newName = freeTableName(m_connection);
    const std::string sql = statement.text(m_newName);
    m_connection.execute(sql);
    m_autoincrement = numbersItsRows(CreateTableSql::parse(sql).value());
}

/// Rows that are there were let in once: checks don't look at them again. But none may be passed over
/// or replaced, whatever a constraint says about conflicts. They come in stored order.
void TableRebuild::copyRows() {
    const PragmaFlag unchecked(m_connection, "ignore_check_constraints");
    const SchemaTable made = schemaOf(m_connection, m_newName);
    std::vector<std::string> targets = writtenColumns(made);
    std::erase_if(targets, [this](const std::string& column) {
        return m_table.findColumn(unquotedName(column)) == nullptr;
    });
    std::vector<std::string> sources = targets;
    const auto from = m_table.rowIdName();
    const auto to = made.rowIdName();
    const bool copied = to && std::ranges::find(targets, quotedName(*to)) != targets.end();
    if (to && !copied && (from || targets.empty())) {
        sources.push_back(from ? quotedName(*from) : "NULL"); // Null lets SQLite number the rows
        targets.push_back(quotedName(*to));
    }
    m_connection.execute("INSERT OR ABORT INTO " + quotedName(m_newName) + " (" + listed(targets) +
                         ") SELECT " + listed(sources) + " FROM " + quotedName(m_table.name) +
                         inStoredOrder(m_table));
}

/// In the old way of renaming, what other tables, views and triggers say stays as it is: they mean the
/// table by that name, not the one that is dropped.
void TableRebuild::replaceTable() {
    std::optional<std::int64_t> lastNumber;
    if (m_autoincrement) {
        auto query = m_connection.cached("SELECT seq FROM sqlite_sequence WHERE name = ?");
        query->bind(1, m_table.name);
        if (query->step())
            lastNumber = query->integer(0);
    }
    const PragmaFlag oldWay(m_connection, "legacy_alter_table");
    m_connection.execute("DROP TABLE " + quotedName(m_table.name));
    m_connection.execute("ALTER TABLE " + quotedName(m_newName) + " RENAME TO " + quotedName(m_table.name));
    if (lastNumber) {
        m_connection.run("DELETE FROM sqlite_sequence WHERE name = ?", m_table.name);
        m_connection.run("INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)", m_table.name, *lastNumber);
    }
}

void TableRebuild::restoreIndexes(const std::vector<SchemaObject>& indexes) {
    for (const SchemaObject& index : indexes) {
        const auto schema = std::ranges::find(m_table.indexes, index.name, &SchemaIndex::name);
        if (schema == m_table.indexes.end() || !m_removals.concernIndex(*schema, index.sql))
            m_connection.execute(index.sql);
    }
}

void TableRebuild::restoreTriggers(const std::vector<SchemaObject>& triggers) {
    for (const SchemaObject& trigger : triggers) {
        m_connection.execute(trigger.sql);
        if (m_removals.areNamedIn(trigger.sql) && isBrokenByTrigger())
            m_connection.execute("DROP TRIGGER " + quotedName(trigger.name));
    }
}

/// SQLite looks up a trigger's columns when it prepares a statement that would set it off.
bool TableRebuild::isBrokenByTrigger() {
    const SchemaTable made = schemaOf(m_connection, m_table.name);
    const std::string table = quotedName(m_table.name);
    const std::array<std::string, 3> statements = {
        "INSERT INTO " + table + " DEFAULT VALUES",
        "UPDATE " + table + " SET " + listed(writtenColumns(made), " = NULL"),
        "DELETE FROM " + table,
    };
    return std::ranges::any_of(statements, [this](const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(m_connection.handle(), sql.c_str(), -1, &statement, nullptr);
        const std::string_view message = code == SQLITE_OK ? "" : sqlite3_errmsg(m_connection.handle());
        sqlite3_finalize(statement);
        return message.starts_with("no such column") || message.find("has no column named") != message.npos;
    });
}

bool TableRebuild::canStayHidden(Connection& connection, const std::string& table,
                                 const std::string& column) {
    const SchemaTable schema = schemaOf(connection, table);
    const SchemaColumn* found = schema.findColumn(column);
    if (found == nullptr || (found->notNull && !found->hasDefault) || found->keyPosition > 0)
        return false;
    const CreateTableSql statement = parsedText(connection, schema.name);
    return std::ranges::none_of(statement.allConstraints(), [&](const ConstraintPart& part) {
        const bool computes = part.kind == ConstraintKind::Check || part.kind == ConstraintKind::Generated;
        return (computes && statement.uses(part, column)) ||
               (part.kind == ConstraintKind::ForeignKey && containsName(part.columns, column));
    });
}

} // namespace tol::data::sqlite
