// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"
#include "data/sqlite/Physical.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// What becomes of a table's columns; "" for nothing.
struct ColumnChange {
    std::string added{}; ///< the column's definition
    std::string removed{};
    std::string renamed{}, newName{};
};

/// Writes a table of this program's own anew, with other columns. ALTER TABLE makes SQLite take the texts
/// of all tables and indexes of the file apart, up to five times for each statement; in a file of thousands
/// of tables that lasts longer than to drop a small table and to make and fill it again. All of it belongs
/// to the transaction that is open.
class TableRewrite {
  public:
    TableRewrite(Connection& connection, const PhysicalTable& table)
        : m_connection(connection), m_table(table) {}

    /// Whether the file has many tables, this one few rows, and nobody else has put anything on it.
    [[nodiscard]] bool pays();

    /// Each rewrites it with that change. The columns of deleted fields go as well.
    void addColumn(const std::string& definition) { run({.added = definition}); }
    void removeColumn(const std::string& column) { run({.removed = column}); }
    /// The column must not be an index's.
    void renameColumn(const std::string& column, const std::string& newName) {
        run({.renamed = column, .newName = newName});
    }

  private:
    void run(const ColumnChange& change);
    void readColumns(const ColumnChange& change);
    [[nodiscard]] std::vector<std::string> indexTexts();
    void keepRows();
    void makeAgain(const std::string& added);
    void fillAgain();

    Connection& m_connection;
    const PhysicalTable& m_table;
    std::string m_columns;     ///< that stay, quoted, with commas in front of them
    std::string m_newColumns;  ///< the same under their new names
    std::string m_definitions; ///< and with their types
};

} // namespace tol::data::sqlite
