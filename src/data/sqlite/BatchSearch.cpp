// SPDX-License-Identifier: MIT
#include "data/sqlite/BatchSearch.h"

#include "runtime/Text.h"

namespace tol::data::sqlite {
namespace {

using Kind = StoredValue::Kind;

template <typename T>
int order(const T& left, const T& right) {
    return left < right ? -1 : (right < left ? 1 : 0);
}

/// SQLite's order of storage classes: Null, numbers, texts, bytes.
int rank(Kind kind) {
    return kind == Kind::Null ? 0 : kind == Kind::Text ? 2 : kind == Kind::Blob ? 3 : 1;
}

long double number(const StoredValue& value) {
    return value.kind == Kind::Integer ? static_cast<long double>(value.integer)
                                       : static_cast<long double>(value.real);
}

int compareStored(const StoredValue& left, const StoredValue& right) {
    if (left.kind == Kind::Integer && right.kind == Kind::Integer)
        return order(left.integer, right.integer);
    if (rank(left.kind) != rank(right.kind))
        return order(rank(left.kind), rank(right.kind));
    switch (left.kind) {
    case Kind::Null:
        return 0;
    case Kind::Text:
        return runtime::compareText(left.text, right.text);
    case Kind::Blob:
        return left.text.compare(right.text);
    case Kind::Integer:
    case Kind::Real:
        break;
    }
    return order(number(left), number(right));
}

} // namespace

int BatchSearch::compare(std::size_t row, std::span<const StoredValue> keys) const {
    for (std::size_t key = 0; key < keys.size(); ++key) {
        const int result = compareStored(m_batch.at(row, m_columns[key]), keys[key]);
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

} // namespace tol::data::sqlite
