// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/SchemaNote.h"
#include "data/sqlite/connection/Connection.h"

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

/// What went with columns and may come back with them, as long as nobody has asked for it.
class Losses {
  public:
    explicit Losses(Connection& connection) : m_connection(connection) {}

    void add(Loss loss) { m_losses.push_back(std::move(loss)); }
    /// The table has a column of that name again: what can be made again is.
    void restore(const std::string& table, const std::string& column);
    /// For the next call nothing is left.
    [[nodiscard]] SchemaNotes takeNotes();
    /// The transaction has ended.
    void ended(bool committed) { committed ? void(m_committed = m_losses) : void(m_losses = m_committed); }

  private:
    bool comesBack(const Loss& loss);

    Connection& m_connection;
    std::vector<Loss> m_losses;
    std::vector<Loss> m_committed;
};

/// Takes columns out of a table. What names a column elsewhere (views, triggers, partial indexes, foreign
/// keys of other tables) never follows it to another name: views and foreign keys go on naming it, and the
/// triggers and indexes, with which no row could be changed any more, wait among the losses until a column of
/// that name comes back. A step belongs to the transaction that is open.
class ColumnRemoval {
  public:
    ColumnRemoval(Connection& connection, std::string table, Losses& losses)
        : m_connection(connection), m_table(std::move(table)), m_losses(losses) {}

    /// Takes a millisecond: the column stays under that name with its values.
    void hide(const std::string& column, const std::string& hiddenName);
    /// Writes the table anew: by SQLite's own DROP COLUMN, which leaves all else of the table as it is, and
    /// where that refuses by a rebuild.
    void drop(const std::string& column);

  private:
    void remove(const std::string& column, const std::function<void()>& step);

    Connection& m_connection;
    std::string m_table;
    Losses& m_losses;
};

} // namespace tol::data::sqlite
