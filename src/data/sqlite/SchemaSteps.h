// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/Physical.h"

#include <string>

namespace tol::data::sqlite {

/// The steps that change a table's definition, as SQL and rows of the catalogue tables. A step belongs
/// to the transaction that is open; locks and the transaction are the caller's business.
class SchemaSteps {
  public:
    explicit SchemaSteps(Connection& connection) : m_connection(connection), m_catalogue(connection) {}

    void createTable(const TableDefinition& table);
    void dropTable(const PhysicalTable& table);
    void renameTable(const PhysicalTable& table, const std::string& newName);

    void addField(const PhysicalTable& table, const FieldDef& field);
    /// Hides the column where it can: to drop it rewrites the table.
    void dropField(const PhysicalTable& table, std::size_t field);
    void renameField(const PhysicalTable& table, std::size_t field, const std::string& newName);

    void createIndex(const PhysicalTable& table, const IndexDef& index);
    void dropIndex(const PhysicalTable& table, std::size_t index);

    void setOrdinal(const PhysicalTable& table, std::size_t field, int ordinal);
    void setAllowZeroLength(const PhysicalTable& table, std::size_t field, bool allow);

    /// A text that differs after each setOrdinal() and setAllowZeroLength().
    [[nodiscard]] std::string entryChanges();

  private:
    void countEntryChange();
    void requireFreeName(const std::string& name);
    [[nodiscard]] bool isTaken(const std::string& name);
    std::string freeIndexName(const std::string& table, const std::string& index);
    void removeColumn(const PhysicalTable& table, const std::string& column);
    void requireNoNull(const PhysicalTable& table, const IndexDef& index);
    /// The row of the catalogue tables for a column that may have none yet.
    void putEntry(const PhysicalTable& table, std::size_t field);

    Connection& m_connection;
    CatalogueTables m_catalogue;
};

} // namespace tol::data::sqlite
