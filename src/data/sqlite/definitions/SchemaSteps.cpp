// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/SchemaSteps.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/connection/TextCollation.h"
#include "data/sqlite/definitions/DeclaredTypes.h"
#include "data/sqlite/definitions/PragmaSchema.h"
#include "data/sqlite/definitions/SchemaObjects.h"
#include "data/sqlite/definitions/TableRebuild.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <sqlite3.h>

#include <algorithm>

namespace tol::data::sqlite {
namespace {

constexpr const char* entryChangesName = "EntryChanges";

/// Columns that are always kept free, so that a field can be added before it is known that another goes.
constexpr int margin = 50;
/// More columns of deleted fields make every change of the definition slow.
constexpr int hiddenLimit = 500;

bool isTextKey(FieldType type) {
    return type == dbText || type == dbMemo || type == dbGUID;
}

std::string columnDefinition(const FieldDef& field, bool strict) {
    return quotedName(field.name) + " " + declaredType(field.type, field.size, strict);
}

std::size_t positionOf(const TableDefinition& table, std::string_view field) {
    return static_cast<std::size_t>(table.findField(field));
}

FieldRow rowOf(const std::string& table, const FieldDef& field) {
    return {.table = table,
            .column = field.name,
            .field = field.name,
            .ordinal = field.ordinal,
            .type = field.type,
            .size = field.size,
            .allowZeroLength = field.allowZeroLength,
            .required = field.required};
}

bool isIndexed(const TableDefinition& table, const std::string& field) {
    return std::ranges::any_of(table.indexes, [&field](const IndexDef& index) {
        return std::ranges::find(index.fields, field) != index.fields.end();
    });
}

} // namespace

// ---------------------------------------------------------------- tables

void SchemaSteps::make(const StoredTable&, const TableDefinition& after, const CreateTable&) {
    requireFreeName(after.name);
    StoredTable made;
    made.definition = after;
    made.sqlName = after.name;
    std::string sql = "CREATE TABLE " + quotedName(after.name) + " (" + quotedName(rowKeyColumn) +
                      " INTEGER PRIMARY KEY AUTOINCREMENT";
    for (const FieldDef& field : after.fields) {
        sql += ", " + columnDefinition(field, false);
        m_tables.putField(rowOf(after.name, field));
        made.columns.push_back({field.name, ownStorage(field.type), true});
    }
    m_connection.execute(sql + ")");
    for (const IndexDef& index : after.indexes)
        createIndex(made, index);
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition&, const DropTable&) {
    m_connection.execute("DROP TABLE " + quotedName(table.sqlName));
    m_tables.removeTable(table.sqlName);
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition&, const RenameTable& change) {
    const std::vector<std::string> before = requireSchema(m_connection, table.sqlName).constraintNames();
    const std::string& newName = change.newName;
    if (sameSqlName(table.sqlName, newName)) {
        // SQLite takes the other spelling for a second table of that name.
        const std::string between = table.sqlName + "~";
        renameTable(m_connection, table.sqlName, between);
        renameTable(m_connection, between, newName);
    } else {
        requireFreeName(newName);
        renameTable(m_connection, table.sqlName, newName);
    }
    m_tables.renameTable(table.sqlName, newName);
    m_tables.renameDeletedIndexes(newName, before, requireSchema(m_connection, newName).constraintNames());
}

/// Tables share their names with views, triggers and indexes in SQLite.
void SchemaSteps::requireFreeName(const std::string& name) {
    if (name.empty() || sameSqlName(std::string_view(name).substr(0, 7), "sqlite_"))
        runtime::raise(runtime::errInvalidName, {name});
    if (isTaken(name))
        runtime::raise(runtime::errTableExists, {name});
}

bool SchemaSteps::isTaken(const std::string& name) {
    auto query = m_connection.cached("SELECT 1 FROM sqlite_schema WHERE name = ? COLLATE NOCASE");
    query->bind(1, name);
    return query->step();
}

// ---------------------------------------------------------------- fields

void SchemaSteps::make(const StoredTable& table, const TableDefinition& after, const AddField& change) {
    const FieldDef& added = after.fields[positionOf(after, change.field.name)];
    const std::string column = columnDefinition(added, table.strict);
    if (rebuildPays(m_connection, table)) {
        TableRebuild(m_connection, table).make({.added = column});
    } else {
        if (!hasRoom(table))
            removeHiddenColumns(table);
        m_connection.execute("ALTER TABLE " + quotedName(table.sqlName) + " ADD COLUMN " + column);
    }
    m_tables.putField(rowOf(table.sqlName, added));
    m_losses.restore(table.sqlName, added.name);
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition&, const DropField& change) {
    const std::size_t field = positionOf(table.definition, change.field);
    const std::string& column = table.columns[field].name;
    if (rebuildPays(m_connection, table)) {
        TableRebuild(m_connection, table).make({.removed = column});
        m_tables.removeField(table.sqlName, column);
    } else if (table.own) {
        const std::string hidden = freeHiddenName(table);
        ColumnRemoval(m_connection, table.sqlName, m_losses).hide(column, hidden);
        putEntry(table, table.definition.fields[field], field);
        m_tables.hideField(table.sqlName, column, hidden);
    } else {
        ColumnRemoval(m_connection, table.sqlName, m_losses).drop(column);
        m_tables.removeField(table.sqlName, column);
    }
}

std::vector<std::string> SchemaSteps::hiddenColumns(const StoredTable& table) {
    auto query = m_connection.cached("SELECT name FROM pragma_table_xinfo(?1) WHERE name GLOB ?2 || '*'");
    query->bindAll(table.sqlName, hiddenColumnPrefix);
    std::vector<std::string> names;
    while (query->step())
        names.emplace_back(query->text(0));
    return names;
}

std::string SchemaSteps::freeHiddenName(const StoredTable& table) {
    auto query =
        m_connection.cached("SELECT ?2 || (1 + ifnull(max(CAST(substr(name, 1 + length(?2)) AS INTEGER)), 0))"
                            " FROM pragma_table_xinfo(?1) WHERE name GLOB ?2 || '*'");
    query->bindAll(table.sqlName, hiddenColumnPrefix);
    query->step();
    return std::string(query->text(0));
}

bool SchemaSteps::hasRoom(const StoredTable& table) const {
    const int columns = static_cast<int>(table.columns.size()) + table.hiddenColumns;
    return table.hiddenColumns == 0 ||
           (table.hiddenColumns < hiddenLimit &&
            columns + margin < sqlite3_limit(m_connection.handle(), SQLITE_LIMIT_COLUMN, -1));
}

void SchemaSteps::removeHiddenColumns(const StoredTable& table) {
    if (table.own) {
        withoutViews(m_connection, {}, [&] { TableRebuild(m_connection, table.sqlName).make({}); });
        return;
    }
    ColumnRemoval removal(m_connection, table.sqlName, m_losses);
    for (const std::string& column : hiddenColumns(table))
        removal.drop(column);
    m_tables.removeDeletedFields(table.sqlName);
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition&, const RenameField& change) {
    const std::string& newName = change.newName;
    const std::size_t field = positionOf(table.definition, change.field);
    const std::string& column = table.columns[field].name;
    if (!isIndexed(table.definition, table.definition.fields[field].name) && rebuildPays(m_connection, table))
        TableRebuild(m_connection, table).make({.renamed = column, .newName = newName});
    else
        renameColumn(m_connection, table.sqlName, column, newName);
    m_tables.renameField(table.sqlName, column, newName, newName);
    m_losses.restore(table.sqlName, newName);
}

void SchemaSteps::putEntry(const StoredTable& table, const FieldDef& field, std::size_t column) {
    FieldRow row = rowOf(table.sqlName, field);
    row.column = table.columns[column].name;
    if (!table.columns[column].own)
        row.type = row.size = 0;
    m_tables.putField(row);
}

std::string SchemaSteps::entryChanges() {
    return m_tables.info(entryChangesName).value_or("0");
}

/// SQLite's own count of schema changes does not tell of these.
void SchemaSteps::countEntryChange() {
    m_tables.setInfo(entryChangesName, std::to_string(std::stoll(entryChanges()) + 1));
}

void SchemaSteps::changeEntry(const StoredTable& table, const TableDefinition& after,
                              const std::string& field) {
    putEntry(table, after.fields[positionOf(after, field)], positionOf(table.definition, field));
    countEntryChange();
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition& after, const SetOrdinal& change) {
    changeEntry(table, after, change.field);
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition& after,
                       const SetAllowZeroLength& change) {
    changeEntry(table, after, change.field);
}

// ---------------------------------------------------------------- indexes

void SchemaSteps::make(const StoredTable& table, const TableDefinition& after, const AddIndex&) {
    createIndex(table, after.indexes.back());
}

void SchemaSteps::createIndex(const StoredTable& table, const IndexDef& index) {
    if (index.primary)
        requireNoNull(table, index);
    const std::string name = freeIndexName(table.sqlName, index.name);
    std::string keys;
    for (const auto& fieldName : index.fields) {
        const std::size_t field = positionOf(table.definition, fieldName);
        keys += (keys.empty() ? "" : ", ") + quotedName(table.columns[field].name);
        if (isTextKey(table.definition.fields[field].type))
            keys += std::string(" COLLATE ") + textCollation;
    }
    const bool unique = index.unique || index.primary;
    try {
        m_connection.execute(std::string(unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                             quotedName(name) + " ON " + quotedName(table.sqlName) + " (" + keys + ")");
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errDuplicateKey)
            throw;
        runtime::raise(runtime::errDuplicateKey, {index.name}, error.engineText());
    }
    m_tables.putIndex({table.sqlName, index.name, name, index.primary, unique});
    if (!m_tables.info(collatorEntry))
        m_tables.setInfo(collatorEntry, runtime::collationVersion());
}

std::string SchemaSteps::freeIndexName(const std::string& table, const std::string& index) {
    const std::string wanted = table + "." + index;
    std::string name = wanted;
    for (int number = 2; isTaken(name); ++number)
        name = wanted + "~" + std::to_string(number);
    return name;
}

void SchemaSteps::requireNoNull(const StoredTable& table, const IndexDef& index) {
    std::string anyNull;
    for (const auto& fieldName : index.fields) {
        const std::size_t field = positionOf(table.definition, fieldName);
        anyNull += (anyNull.empty() ? "" : " OR ") + quotedName(table.columns[field].name) + " IS NULL";
    }
    if (m_connection.number("SELECT EXISTS (SELECT 1 FROM " + quotedName(table.sqlName) + " WHERE " +
                            anyNull + ")") != 0)
        runtime::raise(runtime::errNullInIndex, {index.name});
}

void SchemaSteps::make(const StoredTable& table, const TableDefinition&, const DropIndex& change) {
    const auto index = static_cast<std::size_t>(table.definition.findIndex(change.index));
    const StoredIndex& dropped = table.indexes[index];
    const std::string& name = table.definition.indexes[index].name;
    if (dropped.kind == IndexKind::Constraint || dropped.kind == IndexKind::RowId) {
        m_tables.putDeletedIndex(table.sqlName, dropped.sqlName);
        countEntryChange();
        m_losses.add({{SchemaNote::Kind::StillInForce, table.sqlName, name}, "", ""});
    } else {
        m_connection.execute("DROP INDEX " + quotedName(dropped.sqlName));
        m_tables.removeIndex(table.sqlName, name);
    }
}

} // namespace tol::data::sqlite
