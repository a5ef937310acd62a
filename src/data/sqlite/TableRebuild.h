// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"
#include "data/sqlite/Physical.h"
#include "data/sqlite/Removals.h"

#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Makes a table anew without some of its columns or keys, which SQLite itself can't take out of a
/// table. All else stays as its maker wrote it: rows with their row ids, the other columns with what was
/// declared for them, indexes, triggers, and what other tables and views say about the table. What can't
/// be without a removed column goes with it: checks, foreign keys, keys, indexes, and triggers that would
/// make every change of the table fail. A table without row ids becomes an ordinary one when its primary
/// key goes; a table whose last column goes is left with a row key of our own.
class TableRebuild {
  public:
    /// The table by its name in the file.
    TableRebuild(Connection& connection, std::string table);

    void removeColumn(const std::string& column) { m_removals.addColumn(column); }
    /// The key behind an index of kind Constraint or RowId.
    void removeKey(const PhysicalTable& table, std::size_t index);

    /// Does it, wholly or not at all, as part of the transaction that is open. Nothing may be reading the
    /// table. Raises 3280 when a generated column uses a removed one.
    void run();

    /// Whether nobody is hindered by a column that stays under another name and gets no values any more:
    /// it may be Null or has a default, and no check, key or generated column looks at it.
    static bool canStayHidden(Connection& connection, const std::string& table, const std::string& column);

  private:
    struct SchemaObject {
        std::string name, sql;
    };

    void rebuild();
    void makeNewTable();
    void copyRows();
    void replaceTable();
    void restoreIndexes(const std::vector<SchemaObject>& indexes);
    void restoreTriggers(const std::vector<SchemaObject>& triggers);
    [[nodiscard]] bool isBrokenByTrigger();
    [[nodiscard]] std::vector<SchemaObject> objects(const std::string& type);

    Connection& m_connection;
    Removals m_removals;
    SchemaTable m_table;
    std::string m_newName; ///< while it is being filled
    bool m_autoincrement = false;
};

} // namespace tol::data::sqlite
