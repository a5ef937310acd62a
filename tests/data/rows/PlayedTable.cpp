// SPDX-License-Identifier: MIT
#include "PlayedTable.h"

#include <algorithm>

namespace tol::test {

using namespace data;

PlayedTable::PlayedTable()
    : m_definition{"T",
                   {{.name = "A", .type = dbLong, .size = 4}, {.name = "B", .type = dbLong, .size = 4}},
                   {{.name = "ByA", .fields = {"A"}}}} {}

RowOrder PlayedTable::order(int index) const {
    return index < 0 ? RowOrder{.terms = {{}}} : RowOrder{.terms = {{0}, {}}, .keys = 1, .searchable = true};
}

void PlayedTable::choose(int index, std::span<const std::size_t> fields) {
    m_index = index;
    m_fields.assign(fields.begin(), fields.end());
}

PlayedTable::Place PlayedTable::place(std::int64_t key) const {
    return m_index < 0 ? Place{key} : Place{rows.at(key)[0], key};
}

void PlayedTable::append(std::int64_t key, RowBatch& batch) const {
    batch.addRow(key);
    for (std::size_t column = 0; column < m_fields.size(); ++column)
        batch.putInteger(column, rows.at(key)[m_fields[column]]);
}

void PlayedTable::read(std::span<const KeyRange> ranges, std::span<const StoredValue> values,
                       Direction direction, RowBatch& batch) {
    calls.emplace_back("read");
    std::vector<std::pair<Place, std::int64_t>> sorted;
    for (const auto& [key, row] : rows)
        sorted.emplace_back(place(key), key);
    std::ranges::sort(sorted);
    if (direction == Direction::Backward)
        std::ranges::reverse(sorted);
    const auto isIn = [&](const Place& place, const KeyRange& range) {
        for (std::size_t term = 0; term < range.equalTerms; ++term) {
            if (place[term] != values[term].integer)
                return false;
        }
        if (range.values() == range.equalTerms)
            return range.relation != KeyRange::Relation::IsNull;
        const auto order = place[range.equalTerms] <=> values[range.equalTerms].integer;
        return range.relation == KeyRange::Relation::Greater          ? order > 0
               : range.relation == KeyRange::Relation::GreaterOrEqual ? order >= 0
               : range.relation == KeyRange::Relation::Less           ? order < 0
                                                                      : order <= 0;
    };
    for (const KeyRange& range : ranges) {
        for (const auto& [place, key] : sorted) {
            if (!batch.isFull() && isIn(place, range))
                append(key, batch);
        }
    }
}

bool PlayedTable::readRow(std::int64_t key, RowBatch& batch) {
    calls.emplace_back("readRow");
    if (!rows.contains(key))
        return false;
    append(key, batch);
    return true;
}

std::int64_t PlayedTable::count(std::int64_t limit) {
    calls.emplace_back("count");
    const auto number = static_cast<std::int64_t>(rows.size());
    return limit == all ? number : std::min(limit, number);
}

StoredValue PlayedTable::stored(std::size_t, const runtime::Value& value, std::string&) const {
    return StoredValue::ofInteger(value.get<std::int32_t>());
}

runtime::Value PlayedTable::value(std::size_t, const StoredValue& stored) const {
    return static_cast<std::int32_t>(stored.integer);
}

std::int64_t PlayedTable::insert(std::span<const Assignment> values) {
    const std::int64_t key = rows.empty() ? 1 : rows.rbegin()->first + 1;
    rows[key] = {0, 0};
    update(key, values, true);
    return key;
}

std::optional<std::int64_t> PlayedTable::update(std::int64_t key, std::span<const Assignment> values, bool) {
    const auto row = rows.find(key);
    if (row == rows.end())
        return std::nullopt;
    for (const Assignment& value : values)
        row->second[value.field] = value.value.get<std::int32_t>();
    return key;
}

} // namespace tol::test
