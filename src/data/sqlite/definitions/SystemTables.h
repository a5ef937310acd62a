// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Names.h"
#include "data/sqlite/connection/Connection.h"

#include <optional>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// The index of a constraint that was deleted from the definition, while the constraint itself stays in force
/// in the file, has a row in MSysIndexes under this and its name in the file.
inline constexpr const char* deletedIndexPrefix = "MSysDeleted:";

/// A row of MSysFields: what SQLite can't declare about a column.
struct FieldRow {
    std::string table;  ///< the table's name in the file
    std::string column; ///< the column's name in the file
    std::string field;  ///< the field's name; of a deleted field the one that it had
    int ordinal = 0;
    /// The field's type, or 0 for a column that another program made: its declared type and size hold,
    /// and the row tells the ordinal and the zero-length rule only.
    int type = 0;
    int size = 0;
    bool allowZeroLength = false;
    bool required = false;
    bool deleted = false;
};

/// A row of MSysIndexes: index names count per table here, but for the whole file in SQLite.
struct IndexRow {
    std::string table;
    std::string index;
    std::string sqlName; ///< the index's name in the file
    bool primary = false;
    bool unique = false;
};

/// The tables "MSysFields", "MSysIndexes" and "MSysInfo". A file that another program made gets them
/// with the first change that needs them. Changes belong to the transaction that is open.
class SystemTables {
  public:
    explicit SystemTables(Connection& connection) : m_connection(connection) {}

    /// Whether the file has them.
    bool exist();
    void create();

    void putField(const FieldRow& row); ///< adds or replaces
    void renameField(const std::string& table, const std::string& column, const std::string& newColumn,
                     const std::string& newField);
    /// The column now holds a deleted field and is called newColumn.
    void hideField(const std::string& table, const std::string& column, const std::string& newColumn);
    void removeField(const std::string& table, const std::string& column);
    void removeDeletedFields(const std::string& table);

    void putIndex(const IndexRow& row);
    void removeIndex(const std::string& table, const std::string& index);
    /// The constraint's index is no part of the definition any more; "" stands for the row id.
    void putDeletedIndex(const std::string& table, const std::string& sqlName);
    /// The table's constraints have been made anew: of those that are left the old names and the new ones.
    void renameDeletedIndexes(const std::string& table, const std::vector<std::string>& oldNames,
                              const std::vector<std::string>& newNames);

    void renameTable(const std::string& table, const std::string& newName);
    void removeTable(const std::string& table);

    [[nodiscard]] std::optional<std::string> info(const std::string& name);
    void setInfo(const std::string& name, const std::string& value);

  private:
    /// Runs a change; a file without the catalogue tables has nothing to change.
    template <typename... Values>
    void change(std::string sql, const Values&... values);

    Connection& m_connection;
};

} // namespace tol::data::sqlite
