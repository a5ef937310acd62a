// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/SystemTables.h"

#include <sqlite3.h>

#include <algorithm>

namespace tol::data::sqlite {
namespace {

constexpr const char* definitions = R"(
CREATE TABLE IF NOT EXISTS "MSysFields" (
    TableName TEXT NOT NULL, ColumnName TEXT NOT NULL, FieldName TEXT NOT NULL, Ordinal INTEGER NOT NULL,
    Type INTEGER NOT NULL, Size INTEGER NOT NULL, AllowZeroLength INTEGER NOT NULL,
    Required INTEGER NOT NULL, Deleted INTEGER NOT NULL,
    PRIMARY KEY (TableName, ColumnName)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS "MSysIndexes" (
    TableName TEXT NOT NULL, IndexName TEXT NOT NULL, SqlName TEXT NOT NULL,
    IsPrimary INTEGER NOT NULL, IsUnique INTEGER NOT NULL,
    PRIMARY KEY (TableName, IndexName)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS "MSysInfo" (Name TEXT NOT NULL PRIMARY KEY, Value TEXT NOT NULL) WITHOUT ROWID;
)";

} // namespace

/// SQLite looks them up by their names, which the table of its schema has no index for.
bool SystemTables::exist() {
    const auto exists = [this](const char* table) {
        return sqlite3_table_column_metadata(m_connection.handle(), "main", table, nullptr, nullptr, nullptr,
                                             nullptr, nullptr, nullptr) == SQLITE_OK;
    };
    return exists("MSysFields") && exists("MSysIndexes") && exists("MSysInfo");
}

void SystemTables::create() {
    m_connection.execute(definitions);
}

template <typename... Values>
void SystemTables::change(std::string sql, const Values&... values) {
    if (exist())
        m_connection.run(std::move(sql), values...);
}

void SystemTables::putField(const FieldRow& row) {
    create();
    m_connection.run("INSERT OR REPLACE INTO MSysFields VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)", row.table,
                     row.column, row.field, row.ordinal, row.type, row.size, row.allowZeroLength,
                     row.required, row.deleted);
}

void SystemTables::renameField(const std::string& table, const std::string& column,
                               const std::string& newColumn, const std::string& newField) {
    change("UPDATE MSysFields SET ColumnName = ?3, FieldName = ?4 WHERE TableName = ?1 AND ColumnName = ?2",
           table, column, newColumn, newField);
}

void SystemTables::hideField(const std::string& table, const std::string& column,
                             const std::string& newColumn) {
    change("UPDATE MSysFields SET ColumnName = ?3, Deleted = 1 WHERE TableName = ?1 AND ColumnName = ?2",
           table, column, newColumn);
}

void SystemTables::removeField(const std::string& table, const std::string& column) {
    change("DELETE FROM MSysFields WHERE TableName = ? AND ColumnName = ?", table, column);
}

void SystemTables::removeDeletedFields(const std::string& table) {
    change("DELETE FROM MSysFields WHERE TableName = ? AND Deleted", table);
}

void SystemTables::putIndex(const IndexRow& row) {
    create();
    m_connection.run("INSERT OR REPLACE INTO MSysIndexes VALUES (?, ?, ?, ?, ?)", row.table, row.index,
                     row.sqlName, row.primary, row.unique);
}

void SystemTables::removeIndex(const std::string& table, const std::string& index) {
    change("DELETE FROM MSysIndexes WHERE TableName = ? AND IndexName = ?", table, index);
}

void SystemTables::putDeletedIndex(const std::string& table, const std::string& sqlName) {
    putIndex({.table = table, .index = deletedIndexPrefix + sqlName, .sqlName = sqlName});
}

void SystemTables::renameDeletedIndexes(const std::string& table, const std::vector<std::string>& oldNames,
                                        const std::vector<std::string>& newNames) {
    if (!exist())
        return;
    std::vector<std::string> deleted;
    for (std::size_t at = 0; at < std::min(oldNames.size(), newNames.size()); ++at) {
        auto query = m_connection.cached("SELECT 1 FROM MSysIndexes WHERE TableName = ? AND IndexName = ?");
        query->bindAll(table, deletedIndexPrefix + oldNames[at]);
        if (query->step())
            deleted.push_back(newNames[at]);
    }
    m_connection.run("DELETE FROM MSysIndexes WHERE TableName = ? AND IndexName LIKE ? || '%'", table,
                     deletedIndexPrefix);
    for (const std::string& name : deleted)
        putDeletedIndex(table, name);
}

void SystemTables::renameTable(const std::string& table, const std::string& newName) {
    change("UPDATE MSysFields SET TableName = ?2 WHERE TableName = ?1", table, newName);
    change("UPDATE MSysIndexes SET TableName = ?2 WHERE TableName = ?1", table, newName);
}

void SystemTables::removeTable(const std::string& table) {
    change("DELETE FROM MSysFields WHERE TableName = ?", table);
    change("DELETE FROM MSysIndexes WHERE TableName = ?", table);
}

std::optional<std::string> SystemTables::info(const std::string& name) {
    if (!exist())
        return std::nullopt;
    auto query = m_connection.cached("SELECT Value FROM MSysInfo WHERE Name = ?");
    query->bind(1, name);
    if (!query->step())
        return std::nullopt;
    return std::string(query->text(0));
}

void SystemTables::setInfo(const std::string& name, const std::string& value) {
    create();
    m_connection.run("INSERT OR REPLACE INTO MSysInfo VALUES (?, ?)", name, value);
}

} // namespace tol::data::sqlite
