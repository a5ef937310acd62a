// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/Session.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

/// Writes rows of one table, with a prepared statement for each set of fields that is written.
class RowWriter {
  public:
    RowWriter(Session& session, std::shared_ptr<const StoredTable> table);

    /// Each as in RowSource.
    std::int64_t insert(std::span<const Assignment> values);
    std::optional<std::int64_t> update(std::int64_t key, std::span<const Assignment> values, bool seen);
    bool remove(std::int64_t key);

  private:
    using Fields = std::vector<std::size_t>;
    using Statements = std::map<Fields, Statement>;

    Statement& statementFor(Statements& statements, std::span<const Assignment> values,
                            std::string (RowWriter::*sql)(const Fields&) const);
    [[nodiscard]] std::string insertSql(const Fields& fields) const;
    [[nodiscard]] std::string updateSql(const Fields& fields) const;
    void bindValues(Statement& statement, std::span<const Assignment> values);
    void requireKeys(std::span<const Assignment> values, bool all) const;
    /// Whether such a change may wait to be written with others.
    [[nodiscard]] bool mayWait(std::span<const Assignment> values) const;
    [[nodiscard]] std::int64_t keyAfter(std::int64_t key, std::span<const Assignment> values) const;
    bool runChange(Statement& statement);

    Session& m_session;
    std::shared_ptr<const StoredTable> m_table;
    std::string_view m_primaryName; ///< of m_table's own primary key
    std::vector<std::size_t> m_primaryFields;
    std::vector<bool> m_isIndexed;         ///< by field
    std::optional<std::size_t> m_keyField; ///< the field that is the row key
    bool m_hasTriggers = false;            ///< of another maker, on his own table
    Statements m_inserts;
    Statements m_updates;
    Statement m_remove;
    Fields m_fields;
    std::vector<std::string> m_buffers;
};

} // namespace tol::data::sqlite
