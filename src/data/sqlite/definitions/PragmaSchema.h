// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

class Connection;

/// A column as SQLite tells it.
struct SchemaColumn {
    std::string name{};
    std::string type{}; ///< as it was declared
    bool notNull = false;
    std::optional<std::string> defaultValue{}; ///< as it was declared, without brackets
    int keyPosition = 0;                       ///< place in the primary key from 1, 0 outside of it
    bool generated = false;                    ///< computed from others, or hidden in another way
};

struct SchemaKey {
    std::string column; ///< "" for an expression
    std::string collation;
    bool descending = false;
    bool expression = false;
};

enum class IndexOrigin { Created, UniqueConstraint, PrimaryKey };

struct SchemaIndex {
    std::string name;
    IndexOrigin origin = IndexOrigin::Created;
    bool unique = false;
    bool partial = false;
    std::vector<SchemaKey> keys;
};

struct SchemaForeignKey {
    std::string parent;
    std::vector<std::string> columns;
    std::vector<std::string> parentColumns; ///< none: the parent's primary key
    std::string onUpdate, onDelete;
};

/// A table as SQLite tells it, before anything is read into it.
struct SchemaTable {
    std::string name;
    bool withoutRowId = false;
    bool strict = false;
    std::vector<SchemaColumn> columns;
    std::vector<SchemaIndex> indexes;          ///< in the order in which they were made
    std::vector<SchemaForeignKey> foreignKeys; ///< of a table that was asked for by requireSchema()

    [[nodiscard]] const SchemaColumn* findColumn(std::string_view column) const;
    /// The INTEGER PRIMARY KEY, which stands for the row id; null when there is none.
    [[nodiscard]] const SchemaColumn* rowIdAlias() const;
    /// What the row id can be called in SQL: by its alias, else by a name that no column has taken. Nothing
    /// where there is none, or no row id at all.
    [[nodiscard]] std::optional<std::string> rowIdName() const;
    /// The primary key's columns in key order; none where there is no primary key.
    [[nodiscard]] std::vector<std::string> primaryKey() const;
    /// The indexes behind its keys and UNIQUE constraints by their names, "" for that of the row id.
    [[nodiscard]] std::vector<std::string> constraintNames() const;
};

/// Tables by their names.
using PragmaSchema = std::map<std::string, SchemaTable>;

/// The ordinary tables of a file, or the one of that name, in two statements. SQLite's own tables, views and
/// virtual tables with what lies behind them are none.
PragmaSchema readSchema(Connection& connection, const std::string& table = {});
/// One table with all that SQLite tells of it; 3078 when there is none.
SchemaTable requireSchema(Connection& connection, const std::string& table);

} // namespace tol::data::sqlite
