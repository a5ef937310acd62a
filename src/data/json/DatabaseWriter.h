// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "data/json/RowProgress.h"

#include <ostream>
#include <string>
#include <utility>

namespace tol::data::json {

/// Writes the tables of a database as JSON, one row a line, tables by name, rows in stored order. It
/// holds one row at a time.
class DatabaseWriter {
  public:
    DatabaseWriter(Database& database, std::ostream& out, RowWatcher watcher = {})
        : m_database(database), m_out(out), m_watcher(std::move(watcher)) {}

    void write(bool schemaOnly);

  private:
    void writeTable(const TableDefinition& table, bool schemaOnly);
    void writeRows(const TableDefinition& table);
    void appendRow(const std::vector<Field>& fields);
    /// Passes the text that was put together on to the stream; 3043 when the stream fails.
    void flush();

    Database& m_database;
    std::ostream& m_out;
    RowWatcher m_watcher;
    std::string m_text;
};

} // namespace tol::data::json
