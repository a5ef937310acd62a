// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"

#include <span>
#include <vector>

namespace tol::data {

/// The rows behind a position in an order, as key ranges, nearest rows first: those with all terms but
/// the last one equal and a greater last one, ..., at the end those whose first term is greater. (No engine's
/// comparison of whole rows does it in one, where keys may be Null or descend.)
std::vector<KeyRange> rangesBehind(const RowOrder& order, std::span<const StoredValue> position,
                                   Direction direction);
/// The rows whose leading keys come at a position of fewer terms, which are not none, or after it; backward,
/// at or before it.
std::vector<KeyRange> rangesFrom(const RowOrder& order, std::span<const StoredValue> position,
                                 Direction direction);

/// Whether the field is a term of the order.
bool usesField(const RowOrder& order, std::size_t field);

inline bool ascends(const RowOrder::Term& term, Direction direction) {
    return term.descending == (direction == Direction::Backward);
}

/// Whether a row may come next to another in that direction; both are functions that give a row's terms.
/// Texts that differ count as being in order.
template <typename Before, typename Next>
bool mayFollow(const RowOrder& order, const Before& before, const Next& next, Direction direction) {
    for (std::size_t term = 0; term < order.terms.size(); ++term) {
        const std::partial_ordering result = compareStored(before(term), next(term));
        if (result == std::partial_ordering::unordered)
            return true;
        if (result != 0)
            return (result < 0) == ascends(order.terms[term], direction);
    }
    return false;
}

} // namespace tol::data
