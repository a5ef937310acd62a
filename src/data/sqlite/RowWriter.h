// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/sqlite/RowKey.h"
#include "data/sqlite/Session.h"

#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

/// Writes rows of one table, with a prepared statement for each set of fields that is written. Keeps
/// what the table's users share up to date.
class RowWriter {
  public:
    RowWriter(Session& session, TableState& state);

    /// Adds a row and returns its bookmark.
    std::string insert(std::span<const Assignment> values);
    /// Each returns whether there (still) was such a row. `known` tells that it was seen since anybody
    /// changed the table.
    bool update(std::span<const StoredValue> key, std::span<const Assignment> values, bool known);
    bool remove(std::span<const StoredValue> key);

  private:
    using Fields = std::vector<std::size_t>;
    using Statements = std::map<Fields, Statement>;

    Statement& statementFor(Statements& statements, std::span<const Assignment> values,
                            std::string (RowWriter::*sql)(const Fields&) const);
    [[nodiscard]] std::string insertSql(const Fields& fields) const;
    [[nodiscard]] std::string updateSql(const Fields& fields) const;
    void bindValues(Statement& statement, std::span<const Assignment> values);
    std::string runInsert(Statement& statement);
    void requireKeys(std::span<const Assignment> values, bool all) const;
    /// Whether such a change may wait in the session's run of updates.
    [[nodiscard]] bool mayWait(std::span<const Assignment> values) const;
    bool runChange(Statement& statement);

    Session& m_session;
    TableState& m_state;
    std::shared_ptr<const PhysicalTable> m_table;
    std::string_view m_primaryName; ///< of m_table's own primary key
    std::vector<std::size_t> m_primaryFields;
    std::vector<bool> m_isIndexed; ///< by field
    bool m_hasTriggers = false;    ///< of another maker, on his own table
    Statements m_inserts;
    Statements m_updates;
    Statement m_remove;
    Fields m_fields;
    std::vector<std::string> m_buffers;
};

} // namespace tol::data::sqlite
