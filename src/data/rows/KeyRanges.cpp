// SPDX-License-Identifier: MIT
#include "data/rows/KeyRanges.h"

#include <algorithm>

namespace tol::data {
namespace {

using Relation = KeyRange::Relation;

/// Those that equal the position up to a term and are behind it in this one.
void appendBehind(std::vector<KeyRange>& ranges, const RowOrder& order, std::size_t term,
                  const StoredValue& value, Direction direction) {
    if (ascends(order.terms[term], direction)) {
        ranges.push_back({term, value.isNull() ? Relation::IsNotNull : Relation::Greater});
    } else if (!value.isNull()) {
        ranges.push_back({term, Relation::Less});
        if (order.terms[term].field != RowOrder::rowKey)
            ranges.push_back({term, Relation::IsNull});
    }
}

} // namespace

std::vector<KeyRange> rangesBehind(const RowOrder& order, std::span<const StoredValue> position,
                                   Direction direction) {
    std::vector<KeyRange> ranges;
    std::size_t term = order.terms.size();
    if (order.unique && std::ranges::none_of(position, &StoredValue::isNull))
        term = order.keys;
    while (term-- > 0)
        appendBehind(ranges, order, term, position[term], direction);
    return ranges;
}

std::vector<KeyRange> rangesFrom(const RowOrder& order, std::span<const StoredValue> position,
                                 Direction direction) {
    std::vector<KeyRange> ranges;
    std::size_t term = position.size() - 1;
    const bool ascending = ascends(order.terms[term], direction);
    if (position[term].isNull()) {
        ranges.push_back({term, ascending ? Relation::Any : Relation::IsNull});
    } else {
        ranges.push_back({term, ascending ? Relation::GreaterOrEqual : Relation::LessOrEqual});
        if (!ascending)
            ranges.push_back({term, Relation::IsNull});
    }
    while (term-- > 0)
        appendBehind(ranges, order, term, position[term], direction);
    return ranges;
}

bool usesField(const RowOrder& order, std::size_t field) {
    return std::ranges::find(order.terms, field, &RowOrder::Term::field) != order.terms.end();
}

} // namespace tol::data
