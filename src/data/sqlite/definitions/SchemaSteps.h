// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/TableChange.h"
#include "data/sqlite/definitions/ColumnRemoval.h"
#include "data/sqlite/definitions/StoredTable.h"
#include "data/sqlite/definitions/SystemTables.h"

#include <string>
#include <variant>
#include <vector>

namespace tol::data::sqlite {

/// Changes tables' definitions, as SQL and rows of the system tables. A change belongs to the transaction
/// that is open; locks and the transaction are the caller's business.
class SchemaSteps {
  public:
    explicit SchemaSteps(Connection& connection)
        : m_connection(connection), m_tables(connection), m_losses(connection) {}

    /// Makes the change, which leads to the definition `after`. For a table that is created `table` is empty.
    void alter(const StoredTable& table, const TableDefinition& after, const TableChange& change) {
        std::visit([&](const auto& made) { make(table, after, made); }, change);
    }

    /// Takes the columns of deleted fields out of the file.
    void removeHiddenColumns(const StoredTable& table);

    /// A text that differs after each change of which SQLite's own count of schema changes does not tell.
    [[nodiscard]] std::string entryChanges();

    /// What the changes could not keep of what others had declared.
    [[nodiscard]] Losses& losses() { return m_losses; }

  private:
    void make(const StoredTable& table, const TableDefinition& after, const CreateTable& change);
    void make(const StoredTable& table, const TableDefinition& after, const DropTable& change);
    void make(const StoredTable& table, const TableDefinition& after, const RenameTable& change);
    void make(const StoredTable& table, const TableDefinition& after, const AddField& change);
    /// Hides the column of a table of this program's own, since to drop it rewrites the table. In one of
    /// another maker it is dropped: there `*` and inserts without names must meet what fields are shown.
    void make(const StoredTable& table, const TableDefinition& after, const DropField& change);
    void make(const StoredTable& table, const TableDefinition& after, const RenameField& change);
    void make(const StoredTable& table, const TableDefinition& after, const SetOrdinal& change);
    void make(const StoredTable& table, const TableDefinition& after, const SetAllowZeroLength& change);
    void make(const StoredTable& table, const TableDefinition& after, const AddIndex& change);
    /// A constraint stays in force when its index is deleted: SQLite can't take it out of a table, and with
    /// an INTEGER PRIMARY KEY other programs' rows would lose their numbers.
    void make(const StoredTable& table, const TableDefinition& after, const DropIndex& change);

    std::vector<std::string> hiddenColumns(const StoredTable& table);
    /// A name for one more.
    std::string freeHiddenName(const StoredTable& table);
    [[nodiscard]] bool hasRoom(const StoredTable& table) const;
    void createIndex(const StoredTable& table, const IndexDef& index);
    void countEntryChange();
    void requireFreeName(const std::string& name);
    [[nodiscard]] bool isTaken(const std::string& name);
    std::string freeIndexName(const std::string& table, const std::string& index);
    void requireNoNull(const StoredTable& table, const IndexDef& index);
    /// Writes the system tables' row for the field, whose column may have none yet.
    void putEntry(const StoredTable& table, const FieldDef& field, std::size_t column);
    void changeEntry(const StoredTable& table, const TableDefinition& after, const std::string& field);

    Connection& m_connection;
    SystemTables m_tables;
    Losses m_losses;
};

} // namespace tol::data::sqlite
