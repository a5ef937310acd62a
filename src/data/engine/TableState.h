// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tol::data {

/// What all users of a table in this process share about it.
struct TableState {
    std::uint64_t changes = 0;         ///< grows with each change of a row through a cursor
    std::optional<std::int64_t> count; ///< of its rows, while RowSource::changes() is countedAt
    std::uint64_t countedAt = 0;
    int uses = 0; ///< open recordsets
};

/// A hold on a table, given up when it is destroyed.
class TableUse {
  public:
    /// `lastEnds` is called when no use of the table is left.
    TableUse(std::shared_ptr<TableState> table, std::function<void()> lastEnds)
        : m_table(std::move(table)), m_lastEnds(std::move(lastEnds)) {
        ++m_table->uses;
    }
    TableUse(const TableUse&) = delete;
    TableUse& operator=(const TableUse&) = delete;
    ~TableUse() {
        if (--m_table->uses == 0)
            m_lastEnds();
    }

  private:
    std::shared_ptr<TableState> m_table;
    std::function<void()> m_lastEnds;
};

} // namespace tol::data
