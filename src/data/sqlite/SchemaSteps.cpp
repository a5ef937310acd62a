// SPDX-License-Identifier: MIT
#include "data/sqlite/SchemaSteps.h"

#include "data/sqlite/AlterTable.h"
#include "data/sqlite/DeclaredTypes.h"
#include "data/sqlite/FileSchema.h"
#include "data/sqlite/HiddenColumns.h"
#include "data/sqlite/Sql.h"
#include "data/sqlite/TableRewrite.h"
#include "data/sqlite/TextCollation.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tol::data::sqlite {
namespace {

constexpr const char* entryChangesName = "EntryChanges";

bool isTextKey(FieldType type) {
    return type == dbText || type == dbMemo || type == dbGUID;
}

std::string columnDefinition(const FieldDef& field, bool strict) {
    return quotedName(field.name) + " " + declaredType(field.type, field.size, strict);
}

/// The names that the engine keeps for itself.
void requireFieldName(const std::string& name) {
    if (sameSqlName(name, rowKeyColumn) || name.starts_with(hiddenColumnPrefix))
        runtime::raise(runtime::errInvalidName, {name});
}

int ordinalBehind(const TableDefinition& table) {
    int last = -1;
    for (const auto& field : table.fields)
        last = std::max(last, field.ordinal);
    return last + 1;
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

void SchemaSteps::createTable(const TableDefinition& table) {
    requireFreeName(table.name);
    PhysicalTable made;
    made.sqlName = table.name;
    made.definition.name = table.name;
    std::string sql = "CREATE TABLE " + quotedName(table.name) + " (" + quotedName(rowKeyColumn) +
                      " INTEGER PRIMARY KEY AUTOINCREMENT";
    for (FieldDef field : table.fields) {
        requireFieldName(field.name);
        if (field.ordinal < 0)
            field.ordinal = ordinalBehind(made.definition);
        sql += ", " + columnDefinition(field, false);
        m_catalogue.putField(rowOf(table.name, field));
        made.columns.push_back({field.name, ownStorage(field.type), true});
        made.definition.fields.push_back(std::move(field));
    }
    m_connection.execute(sql + ")");
    for (const auto& index : table.indexes)
        createIndex(made, index);
}

void SchemaSteps::dropTable(const PhysicalTable& table) {
    m_connection.execute("DROP TABLE " + quotedName(table.sqlName));
    m_catalogue.removeTable(table.sqlName);
}

void SchemaSteps::renameTable(const PhysicalTable& table, const std::string& newName) {
    const std::vector<std::string> before = requireSchema(m_connection, table.sqlName).constraintNames();
    if (sameSqlName(table.sqlName, newName)) {
        // SQLite takes the other spelling for a second table of that name.
        const std::string between = table.sqlName + "~";
        sqlite::renameTable(m_connection, table.sqlName, between);
        sqlite::renameTable(m_connection, between, newName);
    } else {
        requireFreeName(newName);
        sqlite::renameTable(m_connection, table.sqlName, newName);
    }
    m_catalogue.renameTable(table.sqlName, newName);
    m_catalogue.renameDeletedIndexes(newName, before, requireSchema(m_connection, newName).constraintNames());
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

void SchemaSteps::addField(const PhysicalTable& table, const FieldDef& field) {
    requireFieldName(field.name);
    FieldDef added = field;
    if (added.ordinal < 0)
        added.ordinal = ordinalBehind(table.definition);
    const std::string column = columnDefinition(added, table.strict);
    if (TableRewrite rewrite(m_connection, table); rewrite.pays()) {
        rewrite.addColumn(column);
    } else {
        HiddenColumns hidden(m_connection, table.sqlName);
        if (table.hiddenColumns > 0 && !hidden.leaveRoom(table))
            removeHiddenColumns(table);
        m_connection.execute("ALTER TABLE " + quotedName(table.sqlName) + " ADD COLUMN " + column);
    }
    m_catalogue.putField(rowOf(table.sqlName, added));
    restore(table.sqlName, added.name);
}

/// What had to go with a column of that name comes back.
void SchemaSteps::restore(const std::string& table, const std::string& column) {
    std::erase_if(m_losses, [&](const Loss& loss) {
        return loss.note.table == table && sameSqlName(loss.column, column) && comesBack(loss);
    });
}

bool SchemaSteps::comesBack(const Loss& loss) {
    const bool wasLeft =
        loss.note.kind == SchemaNote::Kind::View || loss.note.kind == SchemaNote::Kind::Reference;
    return wasLeft || (!loss.sql.empty() && m_connection.tryExecute(loss.sql));
}

void SchemaSteps::dropField(const PhysicalTable& table, std::size_t field) {
    const std::string& column = table.columns[field].name;
    if (TableRewrite rewrite(m_connection, table); rewrite.pays()) {
        rewrite.removeColumn(column);
        m_catalogue.removeField(table.sqlName, column);
        return;
    }
    ColumnRemoval removal(m_connection, table.sqlName);
    if (table.own) {
        const std::string hidden = HiddenColumns(m_connection, table.sqlName).freeName();
        removal.hide(column, hidden);
        putEntry(table, field);
        m_catalogue.hideField(table.sqlName, column, hidden);
    } else {
        removal.drop(column);
        m_catalogue.removeField(table.sqlName, column);
    }
    keepLosses(removal);
}

void SchemaSteps::removeHiddenColumns(const PhysicalTable& table) {
    HiddenColumns hidden(m_connection, table.sqlName);
    if (table.own) {
        hidden.sweep();
        return;
    }
    ColumnRemoval removal(m_connection, table.sqlName);
    for (const std::string& column : hidden.names())
        removal.drop(column);
    m_catalogue.removeDeletedFields(table.sqlName);
    keepLosses(removal);
}

void SchemaSteps::keepLosses(const ColumnRemoval& removal) {
    m_losses.insert(m_losses.end(), removal.losses().begin(), removal.losses().end());
}

std::vector<SchemaNote> SchemaSteps::takeNotes() {
    std::vector<SchemaNote> notes;
    for (const Loss& loss : m_losses)
        notes.push_back(loss.note);
    m_losses.clear();
    m_committed.clear();
    return notes;
}

void SchemaSteps::renameField(const PhysicalTable& table, std::size_t field, const std::string& newName) {
    requireFieldName(newName);
    const std::string& column = table.columns[field].name;
    TableRewrite rewrite(m_connection, table);
    if (!isIndexed(table.definition, table.definition.fields[field].name) && rewrite.pays())
        rewrite.renameColumn(column, newName);
    else
        renameColumn(m_connection, table.sqlName, column, newName);
    m_catalogue.renameField(table.sqlName, column, newName, newName);
    restore(table.sqlName, newName);
}

void SchemaSteps::putEntry(const PhysicalTable& table, std::size_t field) {
    const FieldDef& definition = table.definition.fields[field];
    FieldRow row = rowOf(table.sqlName, definition);
    row.column = table.columns[field].name;
    if (!table.columns[field].own)
        row.type = row.size = 0;
    m_catalogue.putField(row);
}

std::string SchemaSteps::entryChanges() {
    return m_catalogue.info(entryChangesName).value_or("0");
}

/// SQLite's own count of schema changes does not tell of these.
void SchemaSteps::countEntryChange() {
    m_catalogue.setInfo(entryChangesName, std::to_string(std::stoll(entryChanges()) + 1));
}

void SchemaSteps::setOrdinal(const PhysicalTable& table, std::size_t field, int ordinal) {
    putEntry(table, field);
    m_catalogue.setOrdinal(table.sqlName, table.columns[field].name, ordinal);
    countEntryChange();
}

void SchemaSteps::setAllowZeroLength(const PhysicalTable& table, std::size_t field, bool allow) {
    putEntry(table, field);
    m_catalogue.setAllowZeroLength(table.sqlName, table.columns[field].name, allow);
    countEntryChange();
}

// ---------------------------------------------------------------- indexes

void SchemaSteps::createIndex(const PhysicalTable& table, const IndexDef& index) {
    if (index.primary)
        requireNoNull(table, index);
    const std::string name = freeIndexName(table.sqlName, index.name);
    std::string keys;
    for (const auto& fieldName : index.fields) {
        const auto field = static_cast<std::size_t>(table.definition.findField(fieldName));
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
    m_catalogue.putIndex({table.sqlName, index.name, name, index.primary, unique});
    if (!m_catalogue.info(collatorEntry))
        m_catalogue.setInfo(collatorEntry, runtime::collationVersion());
}

std::string SchemaSteps::freeIndexName(const std::string& table, const std::string& index) {
    const std::string wanted = table + "." + index;
    std::string name = wanted;
    for (int number = 2; isTaken(name); ++number)
        name = wanted + "~" + std::to_string(number);
    return name;
}

void SchemaSteps::requireNoNull(const PhysicalTable& table, const IndexDef& index) {
    std::string anyNull;
    for (const auto& fieldName : index.fields) {
        const auto field = static_cast<std::size_t>(table.definition.findField(fieldName));
        anyNull += (anyNull.empty() ? "" : " OR ") + quotedName(table.columns[field].name) + " IS NULL";
    }
    if (m_connection.number("SELECT EXISTS (SELECT 1 FROM " + quotedName(table.sqlName) + " WHERE " +
                            anyNull + ")") != 0)
        runtime::raise(runtime::errNullInIndex, {index.name});
}

void SchemaSteps::dropIndex(const PhysicalTable& table, std::size_t index) {
    const PhysicalIndex& dropped = table.indexes[index];
    const std::string& name = table.definition.indexes[index].name;
    if (dropped.kind == IndexKind::Constraint || dropped.kind == IndexKind::RowId) {
        m_catalogue.putDeletedIndex(table.sqlName, dropped.sqlName);
        countEntryChange();
        m_losses.push_back({{SchemaNote::Kind::StillInForce, table.sqlName, name}, "", ""});
    } else {
        m_connection.execute("DROP INDEX " + quotedName(dropped.sqlName));
        m_catalogue.removeIndex(table.sqlName, name);
    }
}

} // namespace tol::data::sqlite
