// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/FileSchema.h"
#include "data/sqlite/Physical.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Reads what tables a file has, its own and those of other makers alike, in a handful of statements
/// however many tables there are. Views, virtual tables with what lies behind them, SQLite's own tables
/// and the catalogue tables are not told.
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
    [[nodiscard]] std::optional<PhysicalTable> build(const SchemaTable& table) const;

    Connection& m_connection;
    FileSchema m_tables;
    std::map<std::string, CatalogueRows> m_rows;
    std::vector<std::string> m_collations;
};

} // namespace tol::data::sqlite
