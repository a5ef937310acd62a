// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowBatch.h"

#include <span>

namespace tol::data {

/// Rows read ahead in an ascending order whose texts are in runtime::compareText()'s order, looked at as a
/// sorted list.
class BatchSearch {
  public:
    /// `columns` are the batch's columns of the leading keys.
    BatchSearch(const RowBatch& batch, std::span<const std::size_t> columns)
        : m_batch(batch), m_columns(columns) {}

    /// The first row whose leading keys come at or after the given ones; rows() when all come before.
    [[nodiscard]] std::size_t lowerBound(std::span<const StoredValue> keys) const;
    [[nodiscard]] bool equals(std::size_t row, std::span<const StoredValue> keys) const {
        return compare(row, keys) == 0;
    }

  private:
    [[nodiscard]] int compare(std::size_t row, std::span<const StoredValue> keys) const;

    const RowBatch& m_batch;
    std::span<const std::size_t> m_columns;
};

} // namespace tol::data
