// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/FileSchema.h"
#include "data/sqlite/Physical.h"

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
/// and the catalogue tables are not told. Columns of other makers' for whole numbers are Long, and Double or
/// text where they hold numbers that a Long can't.
class Catalogue {
  public:
    explicit Catalogue(Connection& connection) : m_connection(connection) {}

    /// All tables in the order of their names.
    std::vector<PhysicalTable> tables();
    /// One table by its name in the file; nothing when there is none or when it is not told.
    std::optional<PhysicalTable> table(const std::string& sqlName);

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
    [[nodiscard]] std::optional<PhysicalTable> build(const SchemaTable& table);
    void fitNumbers(PhysicalTable& table);
    void measureNumbers(const PhysicalTable& table, const std::vector<std::string>& columns);

    Connection& m_connection;
    FileSchema m_tables;
    std::map<std::string, CatalogueRows> m_rows;
    std::vector<std::string> m_collations;
    /// By table and column: how large its numbers are. Measured once, since it reads the whole table.
    std::map<std::pair<std::string, std::string>, NumberRange> m_ranges;
};

} // namespace tol::data::sqlite
