// SPDX-License-Identifier: MIT
#include "data/rows/BatchSearch.h"

#include "runtime/Text.h"

namespace tol::data {
namespace {

/// Less than 0, 0, or more.
int compareKeys(const StoredValue& left, const StoredValue& right) {
    if (left.kind == StoredValue::Kind::Text && right.kind == StoredValue::Kind::Text)
        return runtime::compareText(left.text, right.text);
    const std::partial_ordering order = compareStored(left, right);
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

} // namespace

int BatchSearch::compare(std::size_t row, std::span<const StoredValue> keys) const {
    for (std::size_t key = 0; key < keys.size(); ++key) {
        const int result = compareKeys(m_batch.at(row, m_columns[key]), keys[key]);
        if (result != 0)
            return result;
    }
    return 0;
}

std::size_t BatchSearch::lowerBound(std::span<const StoredValue> keys) const {
    std::size_t low = 0, high = m_batch.rows();
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (compare(middle, keys) < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace tol::data
