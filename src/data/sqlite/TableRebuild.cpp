// SPDX-License-Identifier: MIT
#include "data/sqlite/TableRebuild.h"

#include "data/sqlite/Sql.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
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

std::string quotedList(const std::vector<std::string>& names) {
    std::vector<std::string> quoted;
    for (const std::string& name : names)
        quoted.push_back(quotedName(name));
    return listed(quoted);
}

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Any text can be a type in quotes; STRICT tables want theirs without.
std::string typeSql(const std::string& type) {
    return type.empty() ? "" : " " + (std::ranges::all_of(type, isWordCharacter) ? type : quotedName(type));
}

/// An expression must stand in brackets, and a word or a name, which SQLite takes for a text, must not.
std::string defaultSql(const std::string& value) {
    const bool isWord = value.starts_with('"') || std::ranges::all_of(value, isWordCharacter);
    return " DEFAULT " + (isWord ? value : "(" + value + ")");
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

std::vector<const SchemaIndex*> constraintIndexes(const SchemaTable& table) {
    std::vector<const SchemaIndex*> indexes;
    for (const SchemaIndex& index : table.indexes)
        if (index.origin != IndexOrigin::Created)
            indexes.push_back(&index);
    return indexes;
}

} // namespace

TableRebuild::TableRebuild(Connection& connection, const std::string& table)
    : m_connection(connection), m_table(requireSchema(connection, table)) {}

void TableRebuild::removeColumns(std::vector<std::string> columns) {
    m_removed = std::move(columns);
    const std::vector<SchemaObject> indexes = createdIndexes(m_connection, m_table.name);
    m_newName = freeTableName(m_connection);
    m_connection.execute(newTableSql());
    copyRows();
    replaceTable();
    restoreIndexes(indexes);
    followDeletedIndexes();
}

// ---------------------------------------------------------------- the new table

bool TableRebuild::stays(const SchemaColumn& column) const {
    return !column.generated && !containsName(m_removed, column.name);
}

/// A key on an expression or on a generated column is none of a constraint.
bool TableRebuild::stays(const SchemaIndex& index) const {
    return std::ranges::all_of(index.keys, [this](const SchemaKey& key) {
        const SchemaColumn* column = m_table.findColumn(key.column);
        return column != nullptr && stays(*column);
    });
}

std::string TableRebuild::newTableSql() {
    std::vector<std::string> parts;
    bool keyed = false; // a table without row ids needs its primary key
    for (const SchemaColumn& column : m_table.columns)
        if (stays(column))
            parts.push_back(columnSql(column));
    if (parts.empty())
        parts.push_back(quotedName(rowKeyColumn) + " INTEGER PRIMARY KEY AUTOINCREMENT");
    for (const SchemaIndex* index : constraintIndexes(m_table)) {
        if (!stays(*index))
            continue;
        keyed = keyed || index->origin == IndexOrigin::PrimaryKey;
        parts.push_back(keySql(*index));
    }
    for (const SchemaForeignKey& key : m_table.foreignKeys)
        if (std::string sql = foreignKeySql(key); !sql.empty())
            parts.push_back(std::move(sql));
    std::vector<std::string> options;
    if (m_table.withoutRowId && keyed)
        options.emplace_back("WITHOUT ROWID");
    if (m_table.strict)
        options.emplace_back("STRICT");
    return "CREATE TABLE " + quotedName(m_newName) + " (" + listed(parts) + ")" +
           (options.empty() ? "" : " " + listed(options));
}

std::string TableRebuild::columnSql(const SchemaColumn& column) {
    const char* collation = "";
    int autoincrement = 0;
    sqlite3_table_column_metadata(m_connection.handle(), "main", m_table.name.c_str(), column.name.c_str(),
                                  nullptr, &collation, nullptr, nullptr, &autoincrement);
    std::string sql = quotedName(column.name) + typeSql(column.type);
    if (&column == m_table.rowIdAlias()) {
        m_autoincrement = autoincrement != 0;
        sql += std::string(" PRIMARY KEY") + (m_autoincrement ? " AUTOINCREMENT" : "");
    }
    if (!sameSqlName(collation, "BINARY"))
        sql += " COLLATE " + quotedName(collation);
    if (column.notNull)
        sql += " NOT NULL";
    if (column.defaultValue)
        sql += defaultSql(*column.defaultValue);
    return sql;
}

std::string TableRebuild::keySql(const SchemaIndex& index) const {
    std::vector<std::string> keys;
    for (const SchemaKey& key : index.keys)
        keys.push_back(quotedName(key.column) + " COLLATE " + quotedName(key.collation) +
                       (key.descending ? " DESC" : ""));
    return (index.origin == IndexOrigin::PrimaryKey ? "PRIMARY KEY (" : "UNIQUE (") + listed(keys) + ")";
}

/// "" for one that a removed column is in, on either side of a table's reference to itself.
std::string TableRebuild::foreignKeySql(const SchemaForeignKey& key) const {
    const auto isRemoved = [this](const std::string& column) { return containsName(m_removed, column); };
    const bool toItself = sameSqlName(key.parent, m_table.name);
    if (std::ranges::any_of(key.columns, isRemoved) ||
        (toItself && std::ranges::any_of(key.parentColumns, isRemoved)))
        return "";
    std::string sql = "FOREIGN KEY (" + quotedList(key.columns) + ") REFERENCES " + quotedName(key.parent);
    if (!key.parentColumns.empty())
        sql += " (" + quotedList(key.parentColumns) + ")";
    return sql + " ON UPDATE " + key.onUpdate + " ON DELETE " + key.onDelete;
}

// ---------------------------------------------------------------- rows and what hangs on the table

/// In stored order. None may be passed over or replaced.
void TableRebuild::copyRows() {
    const SchemaTable made = requireSchema(m_connection, m_newName);
    std::vector<std::string> targets;
    for (const SchemaColumn& column : m_table.columns)
        if (stays(column))
            targets.push_back(quotedName(column.name));
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

/// The table's place is taken under its own name, so that what other tables say about it stays as it is.
/// Numbers that were given to rows since deleted are not given again.
void TableRebuild::replaceTable() {
    std::optional<std::int64_t> lastNumber;
    if (m_autoincrement) {
        auto query = m_connection.cached("SELECT seq FROM sqlite_sequence WHERE name = ?");
        query->bind(1, m_table.name);
        if (query->step())
            lastNumber = query->integer(0);
    }
    m_connection.execute("DROP TABLE " + quotedName(m_table.name));
    m_connection.execute("ALTER TABLE " + quotedName(m_newName) + " RENAME TO " + quotedName(m_table.name));
    if (lastNumber) {
        m_connection.run("DELETE FROM sqlite_sequence WHERE name = ?", m_table.name);
        m_connection.run("INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)", m_table.name, *lastNumber);
    }
}

/// One that uses a generated column can't be made any more.
void TableRebuild::restoreIndexes(const std::vector<SchemaObject>& indexes) {
    for (const SchemaObject& index : indexes)
        static_cast<void>(m_connection.tryExecute(index.sql));
}

/// SQLite numbers the indexes of constraints anew.
void TableRebuild::followDeletedIndexes() {
    std::vector<std::string> left;
    if (const SchemaColumn* alias = m_table.rowIdAlias(); alias != nullptr && stays(*alias))
        left.emplace_back();
    for (const SchemaIndex* index : constraintIndexes(m_table))
        if (stays(*index))
            left.push_back(index->name);
    CatalogueTables(m_connection)
        .renameDeletedIndexes(m_table.name, left,
                              requireSchema(m_connection, m_table.name).constraintNames());
}

} // namespace tol::data::sqlite
