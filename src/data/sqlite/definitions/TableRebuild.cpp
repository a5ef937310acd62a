// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/TableRebuild.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/definitions/SystemTables.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string_view>

namespace tol::data::sqlite {
namespace {

/// In a file of fewer entries in its schema ALTER TABLE takes some milliseconds at most.
constexpr std::int64_t manyEntries = 500;

constexpr const char* keptRows = "temp.\"MSysRebuild\"";

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

TableRebuild::TableRebuild(Connection& connection, const StoredTable& table) : m_connection(connection) {
    m_table.name = table.sqlName;
    auto query = connection.cached("SELECT name, type, pk FROM pragma_table_info(?)");
    query->bind(1, table.sqlName);
    while (query->step()) {
        m_table.columns.push_back({.name = std::string(query->text(0)),
                                   .type = std::string(query->text(1)),
                                   .keyPosition = static_cast<int>(query->integer(2))});
    }
}

/// A row costs about as much to write twice as an entry to take apart once.
bool rebuildPays(Connection& connection, const StoredTable& table) {
    if (!table.own || !std::ranges::all_of(table.columns, &Column::own))
        return false;
    auto entries =
        connection.cached("SELECT count(*), total(tbl_name = ? COLLATE NOCASE) FROM sqlite_schema");
    entries->bind(1, table.sqlName);
    entries->step();
    const std::int64_t all = entries->integer(0);
    const std::int64_t ofTable = entries->integer(1);
    if (all < manyEntries || ofTable != 1 + static_cast<std::int64_t>(table.indexes.size()))
        return false;
    const std::string rows = "SELECT 1 FROM " + quotedName(table.sqlName);
    return connection.number("SELECT count(*) FROM (" + rows + " LIMIT " + std::to_string(all) + ")") < all;
}

/// An index that uses a generated column can't be made any more.
void TableRebuild::make(const ColumnChange& change) {
    m_change = change;
    const std::vector<SchemaObject> indexes = createdIndexes(m_connection, m_table.name);
    keepRows();
    replaceTable(newTableSql());
    for (const SchemaObject& index : indexes)
        static_cast<void>(m_connection.tryExecute(index.sql));
    SystemTables(m_connection).removeDeletedFields(m_table.name);
    followDeletedIndexes();
}

// ---------------------------------------------------------------- the new table

bool TableRebuild::stays(const SchemaColumn& column) const {
    return !column.generated && !column.name.starts_with(hiddenColumnPrefix) &&
           !sameSqlName(column.name, m_change.removed);
}

/// A key on an expression or on a generated column is none of a constraint.
bool TableRebuild::stays(const SchemaIndex& index) const {
    return std::ranges::all_of(index.keys, [this](const SchemaKey& key) {
        const SchemaColumn* column = m_table.findColumn(key.column);
        return column != nullptr && stays(*column);
    });
}

std::vector<std::string> TableRebuild::stayingColumns() const {
    std::vector<std::string> names;
    for (const SchemaColumn& column : m_table.columns)
        if (stays(column))
            names.push_back(quotedName(column.name));
    return names;
}

std::string TableRebuild::newTableSql() {
    std::vector<std::string> parts;
    bool keyed = false; // a table without row ids needs its primary key
    for (const SchemaColumn& column : m_table.columns)
        if (stays(column))
            parts.push_back(columnSql(column));
    if (!m_change.added.empty())
        parts.push_back(m_change.added);
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
    return "CREATE TABLE " + quotedName(m_table.name) + " (" + listed(parts) + ")" +
           (options.empty() ? "" : " " + listed(options));
}

std::string TableRebuild::columnSql(const SchemaColumn& column) {
    const char* collation = "";
    int autoincrement = 0;
    sqlite3_table_column_metadata(m_connection.handle(), "main", m_table.name.c_str(), column.name.c_str(),
                                  nullptr, &collation, nullptr, nullptr, &autoincrement);
    const std::string& name = column.name == m_change.renamed ? m_change.newName : column.name;
    std::string sql = quotedName(name) + typeSql(column.type);
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
    const auto isRemoved = [this](const std::string& name) {
        const SchemaColumn* column = m_table.findColumn(name);
        return column != nullptr && !stays(*column);
    };
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

/// In stored order. A row id that is no column comes last.
void TableRebuild::keepRows() {
    std::vector<std::string> columns = stayingColumns();
    const auto key = m_table.rowIdName();
    m_keyKept = key && std::ranges::find(columns, quotedName(*key)) == columns.end();
    if (m_keyKept || columns.empty())
        columns.push_back(key ? quotedName(*key) : "NULL"); // Null lets SQLite number the rows
    m_connection.execute(std::string("CREATE TABLE ") + keptRows + " AS SELECT " + listed(columns) +
                         " FROM " + quotedName(m_table.name) + inStoredOrder(m_table));
}

/// Under its own name at once, so that what other tables say about it stays as it is. Numbers that were given
/// to rows since deleted are not given again.
void TableRebuild::replaceTable(const std::string& sql) {
    const auto last = m_autoincrement ? lastNumber() : std::nullopt;
    m_connection.execute("DROP TABLE " + quotedName(m_table.name));
    m_connection.execute(sql);
    restoreRows();
    m_connection.execute(std::string("DROP TABLE ") + keptRows);
    if (last) {
        m_connection.run("DELETE FROM sqlite_sequence WHERE name = ?", m_table.name);
        m_connection.run("INSERT INTO sqlite_sequence (name, seq) VALUES (?, ?)", m_table.name, *last);
    }
}

/// None may be passed over or replaced.
void TableRebuild::restoreRows() {
    std::vector<std::string> targets = stayingColumns();
    if (!m_change.renamed.empty())
        std::ranges::replace(targets, quotedName(m_change.renamed), quotedName(m_change.newName));
    if (m_keyKept || targets.empty())
        targets.push_back(quotedName(*requireSchema(m_connection, m_table.name).rowIdName()));
    m_connection.execute("INSERT OR ABORT INTO " + quotedName(m_table.name) + " (" + listed(targets) +
                         ") SELECT * FROM " + keptRows);
}

std::optional<std::int64_t> TableRebuild::lastNumber() {
    auto query = m_connection.cached("SELECT seq FROM sqlite_sequence WHERE name = ?");
    query->bind(1, m_table.name);
    return query->step() ? std::optional(query->integer(0)) : std::nullopt;
}

/// SQLite numbers the indexes of constraints anew.
void TableRebuild::followDeletedIndexes() {
    std::vector<std::string> left;
    if (const SchemaColumn* alias = m_table.rowIdAlias(); alias != nullptr && stays(*alias))
        left.emplace_back();
    for (const SchemaIndex* index : constraintIndexes(m_table))
        if (stays(*index))
            left.push_back(index->name);
    if (left == m_table.constraintNames())
        return;
    SystemTables(m_connection)
        .renameDeletedIndexes(m_table.name, left,
                              requireSchema(m_connection, m_table.name).constraintNames());
}

} // namespace tol::data::sqlite
