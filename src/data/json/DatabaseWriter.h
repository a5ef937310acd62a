// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "data/json/WriteOptions.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace tol::data::json {

/// Writes the tables of a database as JSON, one row a line, tables by name, rows in stored order. It
/// holds one row at a time.
class DatabaseWriter {
  public:
    DatabaseWriter(Database& database, std::ostream& out, WriteOptions options)
        : m_database(database), m_out(out), m_options(std::move(options)) {}

    void write();

  private:
    void writeTables();
    void writeTable(const TableDefinition& table);
    void writeRows(const TableDefinition& table);
    void appendRow(const TableDefinition& table, const std::vector<Field>& fields);
    /// Runs a check of what a load would say, and complains of its error at that place.
    template <typename Place, typename Check>
    bool passes(const Place& place, Check&& check);
    /// Passes the text that was put together on to the stream; 3043 when the stream fails.
    void flush();

    Database& m_database;
    std::ostream& m_out;
    WriteOptions m_options;
    std::string m_text;
    std::int64_t m_row = 0;
    std::vector<bool> m_told; ///< of which fields a value was complained of
};

} // namespace tol::data::json
