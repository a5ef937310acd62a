// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/definitions/PragmaSchema.h"
#include "data/sqlite/definitions/StoredTable.h"
#include "data/sqlite/definitions/SystemTables.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tol::data::sqlite {

/// What holds all numbers of a column exactly.
enum class NumberRange { Long, Double, Text };

/// Reads what tables a file has, its own and those of other makers alike, in a handful of statements
/// however many tables there are. Views, virtual tables with what lies behind them, SQLite's own tables
/// and the system tables are hidden. Columns of other makers' for whole numbers are Long, and Double or
/// text where they hold numbers that a Long can't.
class CatalogueReader {
  public:
    explicit CatalogueReader(Connection& connection) : m_connection(connection) {}

    /// All tables in the order of their names.
    std::vector<StoredTable> tables();
    /// One table by its name in the file; nothing when there is none or when it is hidden.
    std::optional<StoredTable> table(const std::string& sqlName);

  private:
    struct CatalogueRows {
        std::vector<FieldRow> fields;
        std::vector<IndexRow> indexes;
    };

    void read(const std::string& sqlName);
    void readCollations();
    void readCatalogueRows(const std::string& sqlName);
    void readFieldRows(const std::string& sqlName);
    void readIndexRows(const std::string& sqlName);
    [[nodiscard]] std::optional<StoredTable> build(const SchemaTable& table);
    void fitNumbers(StoredTable& table);
    void measureNumbers(const StoredTable& table, const std::vector<std::string>& columns);

    Connection& m_connection;
    PragmaSchema m_tables;
    std::map<std::string, CatalogueRows> m_rows;
    std::vector<std::string> m_collations;
    /// By table and column: how large its numbers are. Measured once, since it reads the whole table.
    std::map<std::pair<std::string, std::string>, NumberRange> m_ranges;
};

} // namespace tol::data::sqlite
