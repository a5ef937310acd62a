// SPDX-License-Identifier: MIT
#pragma once

#include "data/SchemaNote.h"
#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/ColumnRemoval.h"
#include "data/sqlite/Physical.h"

#include <string>
#include <string_view>
#include <vector>

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
    /// Hides the column of a table of this program's own, since to drop it rewrites the table. In one of
    /// another maker it is dropped: there `*` and inserts without names must meet what fields are shown.
    void dropField(const PhysicalTable& table, std::size_t field);
    void renameField(const PhysicalTable& table, std::size_t field, const std::string& newName);

    /// Takes the columns of deleted fields out of the file.
    void removeHiddenColumns(const PhysicalTable& table);

    void createIndex(const PhysicalTable& table, const IndexDef& index);
    /// A constraint stays in force when its index is deleted: SQLite can't take it out of a table, and with
    /// an INTEGER PRIMARY KEY other programs' rows would lose their numbers.
    void dropIndex(const PhysicalTable& table, std::size_t index);

    void setOrdinal(const PhysicalTable& table, std::size_t field, int ordinal);
    void setAllowZeroLength(const PhysicalTable& table, std::size_t field, bool allow);

    /// A text that differs after each setOrdinal() and setAllowZeroLength().
    [[nodiscard]] std::string entryChanges();

    /// What the steps could not keep of what others had declared; for the next call nothing is left.
    [[nodiscard]] std::vector<SchemaNote> takeNotes();
    /// The transaction has ended.
    void ended(bool committed) { committed ? void(m_committed = m_losses) : void(m_losses = m_committed); }

  private:
    void countEntryChange();
    void requireFreeName(const std::string& name);
    [[nodiscard]] bool isTaken(const std::string& name);
    std::string freeIndexName(const std::string& table, const std::string& index);
    void restore(const std::string& table, const std::string& column);
    bool comesBack(const Loss& loss);
    void keepLosses(const ColumnRemoval& removal);
    void requireNoNull(const PhysicalTable& table, const IndexDef& index);
    /// The row of the catalogue tables for a column that may have none yet.
    void putEntry(const PhysicalTable& table, std::size_t field);

    Connection& m_connection;
    CatalogueTables m_catalogue;
    std::vector<Loss> m_losses;
    std::vector<Loss> m_committed;
};

} // namespace tol::data::sqlite
