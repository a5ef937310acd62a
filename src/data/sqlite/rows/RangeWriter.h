// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"
#include "data/sqlite/connection/Connection.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

struct sqlite3_context;
struct sqlite3_value;

namespace tol::data::sqlite {

/// Changes of rows that follow each other in stored order, waiting to be written together: one UPDATE
/// over a range of row keys costs half of what an UPDATE for each row does. Belongs to the transaction
/// that is open. Only changes that can't fail for the row's own sake may wait here: of rows that are
/// known to be there, in columns that no index has. Whoever is about to read or to write the file
/// otherwise calls write() first.
class RangeWriter {
  public:
    explicit RangeWriter(Connection& connection);
    RangeWriter(const RangeWriter&) = delete;
    RangeWriter& operator=(const RangeWriter&) = delete;

    /// Takes the change of a row. Writes first what does not belong together with it.
    void add(const std::shared_ptr<const StoredTable>& table, std::int64_t key,
             std::span<const Assignment> values);
    [[nodiscard]] bool isEmpty() const { return m_rows.rows() == 0; }
    /// Writes what waits. When that fails, it is lost.
    void write();
    void discard();

  private:
    static void isWaiting(sqlite3_context* context, int count, sqlite3_value** arguments);
    static void waitingValue(sqlite3_context* context, int count, sqlite3_value** arguments);
    void registerFunction(const char* name, int arguments,
                          void (*function)(sqlite3_context*, int, sqlite3_value**));

    [[nodiscard]] bool continues(const StoredTable& table, std::int64_t key,
                                 std::span<const Assignment> values) const;
    void start(const std::shared_ptr<const StoredTable>& table, std::span<const Assignment> values);
    [[nodiscard]] std::string sql() const;
    /// Moves m_at to the key; false when its row is not among those that wait.
    bool find(std::int64_t key);

    Connection& m_connection;
    std::shared_ptr<const StoredTable> m_table;
    std::vector<std::size_t> m_fields;
    RowBatch m_rows; ///< with ascending keys, a column for each field
    std::size_t m_at = 0;
    std::string m_buffer;
};

} // namespace tol::data::sqlite
