// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/DatabaseJson.h"
#include "data/json/JsonValue.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tol::data::json {

/// Makes one table after the other in a database from what is told piece by piece: its definition
/// first, then row by row. The table is made when its rows begin. Its indexes up to the last
/// unique one are made with it, so that a duplicate key is told with its row; those behind it are made
/// after the rows, which is quicker. Errors tell table, row (from 1) and field.
class TableLoader {
  public:
    TableLoader(Database& database, RowWatcher watcher)
        : m_database(database), m_watcher(std::move(watcher)) {}

    void beginTable();
    /// The definition of the table, to be filled.
    [[nodiscard]] TableDefinition& wanted() { return m_wanted; }

    void beginRows();
    void beginRow();
    /// The next value of the row.
    void addValue(JsonScalar scalar);
    /// The next value, a text that is no UTF-8.
    void addRawText(std::string text);
    void endRow();
    /// Makes what is still to be made of the table.
    void endTable();

  private:
    void makeTable();
    void makeRemainingIndexes();
    template <typename MakeValue>
    void store(MakeValue&& makeValue);
    [[nodiscard]] std::string place() const;

    Database& m_database;
    RowWatcher m_watcher;
    TableDefinition m_wanted; ///< fields in the order of the text, which the values of a row follow
    bool m_made = false;
    std::size_t m_indexesMade = 0;
    Recordset m_rows;
    std::vector<Field> m_targets; ///< beside m_wanted.fields
    std::int64_t m_row = 0;
    std::size_t m_value = 0; ///< values of the current row so far
};

} // namespace tol::data::json
