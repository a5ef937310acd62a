// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/FileSchema.h"
#include "data/sqlite/SchemaObjects.h"

#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Makes a table anew without some of its columns, which SQLite itself can't take out of it. The new table
/// has what SQLite tells of the old one: row ids and their numbering, the other columns with type, NOT NULL,
/// DEFAULT and collation, keys, UNIQUE constraints and foreign keys, as far as no removed column is in them,
/// and the indexes that still can be made. CHECKs and generated columns go. A table without row ids becomes
/// an ordinary one when its primary key goes; a table whose last column goes is left with a row key of our
/// own.
///
/// It belongs to the transaction that is open; nothing may be reading the table, and views and triggers must
/// be out of the way.
class TableRebuild {
  public:
    /// The table by its name in the file.
    TableRebuild(Connection& connection, const std::string& table);

    void removeColumns(std::vector<std::string> columns);

  private:
    [[nodiscard]] bool stays(const SchemaColumn& column) const;
    [[nodiscard]] bool stays(const SchemaIndex& index) const;
    [[nodiscard]] std::string newTableSql();
    [[nodiscard]] std::string columnSql(const SchemaColumn& column);
    [[nodiscard]] std::string keySql(const SchemaIndex& index) const;
    [[nodiscard]] std::string foreignKeySql(const SchemaForeignKey& key) const;
    void copyRows();
    void replaceTable();
    void restoreIndexes(const std::vector<SchemaObject>& indexes);
    void followDeletedIndexes();

    Connection& m_connection;
    SchemaTable m_table;
    std::vector<std::string> m_removed;
    std::string m_newName; ///< while it is being filled
    bool m_autoincrement = false;
};

} // namespace tol::data::sqlite
