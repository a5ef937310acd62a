// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/definitions/PragmaSchema.h"
#include "data/sqlite/definitions/SchemaObjects.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <optional>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// What becomes of a table's columns; "" for nothing.
struct ColumnChange {
    std::string added{}; ///< the column's definition
    std::string removed{};
    std::string renamed{}, newName{}; ///< of a column that is in no index
};

/// Makes a table anew with other columns, where SQLite can't do it or would take longer; those of deleted
/// fields go as well. The new table has what SQLite tells of the old one: row ids and their numbering, the
/// other columns with type, NOT NULL, DEFAULT and collation, keys, UNIQUE constraints and foreign keys, as
/// far as no removed column is in them, and the indexes that still can be made. CHECKs and generated columns
/// go. A table without row ids becomes an ordinary one when its primary key goes; a table whose last column
/// goes is left with a row key of our own.
///
/// It belongs to the transaction that is open; nothing may be reading the table, and views and triggers must
/// be out of the way.
class TableRebuild {
  public:
    /// The table by its name in the file.
    TableRebuild(Connection& connection, const std::string& table);
    /// One of this program's own, of which SQLite needs to tell the columns only.
    TableRebuild(Connection& connection, const StoredTable& table);

    void make(const ColumnChange& change);

  private:
    [[nodiscard]] bool stays(const SchemaColumn& column) const;
    [[nodiscard]] bool stays(const SchemaIndex& index) const;
    [[nodiscard]] std::vector<std::string> stayingColumns() const;
    [[nodiscard]] std::string newTableSql();
    [[nodiscard]] std::string columnSql(const SchemaColumn& column);
    [[nodiscard]] std::string keySql(const SchemaIndex& index) const;
    [[nodiscard]] std::string foreignKeySql(const SchemaForeignKey& key) const;
    void keepRows();
    void replaceTable(const std::string& sql);
    void restoreRows();
    [[nodiscard]] std::optional<std::int64_t> lastNumber();
    void followDeletedIndexes();

    Connection& m_connection;
    SchemaTable m_table;
    ColumnChange m_change;
    bool m_autoincrement = false;
    bool m_keyKept = false; ///< the row id is kept beside the columns
};

/// Whether a rebuild of this program's own table is quicker than ALTER TABLE, which makes SQLite take the
/// texts of all tables and indexes of the file apart, up to five times for each statement: the file has many
/// tables, this one few rows, and nobody else has put anything on it.
bool rebuildPays(Connection& connection, const StoredTable& table);

} // namespace tol::data::sqlite
