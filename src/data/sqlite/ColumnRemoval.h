// SPDX-License-Identifier: MIT
#pragma once

#include "data/SchemaNote.h"
#include "data/sqlite/Connection.h"

#include <functional>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Something that went with a column.
struct Loss {
    SchemaNote note;
    std::string column;
    std::string sql; ///< makes it again when there is a column of that name once more; "" for what can't be
};

/// Takes columns out of a table. What names a column elsewhere (views, triggers, partial indexes, foreign
/// keys of other tables) never follows it to another name: views and foreign keys go on naming it, and the
/// triggers and indexes, with which no row could be changed any more, wait among the losses until a column of
/// that name comes back. A step belongs to the transaction that is open.
class ColumnRemoval {
  public:
    ColumnRemoval(Connection& connection, std::string table)
        : m_connection(connection), m_table(std::move(table)) {}

    /// Takes a millisecond: the column stays under that name with its values.
    void hide(const std::string& column, const std::string& hiddenName);
    /// Writes the table anew: by SQLite's own DROP COLUMN, which leaves all else of the table as it is, and
    /// where that refuses by a rebuild.
    void drop(const std::string& column);

    /// What went with the columns so far.
    [[nodiscard]] const std::vector<Loss>& losses() const { return m_losses; }

  private:
    void remove(const std::string& column, const std::function<void()>& step);

    Connection& m_connection;
    std::string m_table;
    std::vector<Loss> m_losses;
};

} // namespace tol::data::sqlite
