// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Writes the queries that walk a table in one of its orders. SQLite can't use a comparison of whole rows
/// where keys may be Null or descend, and uses only the first column of one that ends in the row key; so
/// the rows behind a position are asked for range by range.
class KeyQueries {
  public:
    static constexpr int storedOrder = -1;

    /// `index` is the index's position in the definition, or storedOrder.
    KeyQueries(const StoredTable& table, int index);

    [[nodiscard]] const RowOrder& order() const { return m_order; }
    /// Parameters: the range's values. There is no limit in it; who has read enough resets it.
    [[nodiscard]] std::string query(const std::string& columns, const KeyRange& range,
                                    Direction direction) const;

  private:
    void addKeys(const StoredTable& table, std::size_t index);

    std::string m_source; ///< table and index, as they stand behind FROM
    RowOrder m_order;
    std::vector<std::string> m_expressions; ///< beside the order's terms
};

} // namespace tol::data::sqlite
