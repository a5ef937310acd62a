// SPDX-License-Identifier: MIT
#include "data/rows/ReadAhead.h"

#include "data/engine/FileError.h"
#include "data/rows/BatchSearch.h"
#include "data/rows/KeyRanges.h"

#include <algorithm>
#include <limits>

namespace tol::data {
namespace {

constexpr std::size_t growth = 4;
constexpr std::size_t patchedTextBytes = std::size_t{4} << 20;
/// After so many batches it is known which fields the caller reads.
constexpr int loadsOfAllFields = 8;
/// After so many reads without a change in between, a small table is worth reading as a whole.
constexpr int loadsOfParts = 4;
/// Far below loadsOfParts, until the table is changed.
constexpr int tooLarge = std::numeric_limits<int>::min();

} // namespace

ReadAhead::ReadAhead(RowSource& source)
    : m_source(source), m_state(source.state()), m_used(source.definition().fields.size()) {
    chooseFields(true);
}

void ReadAhead::setIndex(int index) {
    if (index == m_index)
        return;
    m_index = index;
    chooseFields(m_loads <= loadsOfAllFields);
}

/// The order's keys, and all fields or those that were read before.
void ReadAhead::chooseFields(bool all) {
    m_live = false;
    std::vector<std::size_t> fields;
    m_columnOf.assign(m_used.size(), notLoaded);
    const auto add = [&](std::size_t field) {
        if (field == RowOrder::rowKey || m_columnOf[field] != notLoaded)
            return;
        m_columnOf[field] = fields.size();
        fields.push_back(field);
    };
    m_order = m_source.order(m_index);
    for (const RowOrder::Term& term : m_order.terms)
        add(term.field);
    for (std::size_t field = 0; field < m_used.size(); ++field) {
        if (all || m_used[field])
            add(field);
    }
    m_columns = fields.size();
    m_source.choose(m_index, fields);
}

// ---------------------------------------------------------------- while others change the table

bool ReadAhead::isOutdated() {
    if (m_seen == changes())
        return false;
    m_limit = firstLimit;
    m_quietLoads = 0;
    m_seen = changes();
    return true;
}

/// In stored order it can't lie within the batch when its key is greater than all there.
void ReadAhead::passOverAdded(std::int64_t key) {
    if (m_order.keys == 0 && m_live && key > m_batch.key(0) && key > m_batch.key(m_batch.rows() - 1))
        passOver();
}

bool ReadAhead::patch(std::size_t row, std::span<const Assignment> values) {
    if (m_batch.textBytes() > patchedTextBytes)
        return false;
    std::string buffer;
    for (const Assignment& value : values) {
        if (m_columnOf[value.field] != notLoaded)
            m_batch.replace(row, m_columnOf[value.field], m_source.stored(value.field, value.value, buffer));
    }
    return true;
}

// ---------------------------------------------------------------- reading

bool ReadAhead::load(std::span<const KeyRange> ranges, std::span<const StoredValue> position,
                     Direction direction, bool behind) {
    if (++m_loads == loadsOfAllFields)
        chooseFields(false);
    m_live = false; // should reading fail, nothing is known
    m_seen = changes();
    m_direction = direction;
    m_batch.clear(m_columns, m_limit);
    m_source.read(ranges, position, direction, m_batch);
    requireOrder(position, behind);
    m_fromStart = ranges.front() == KeyRange{};
    m_toEnd = m_fromStart && !m_batch.isFull();
    ++m_quietLoads;
    m_limit = std::min(m_limit * growth, lastLimit);
    return m_live = m_batch.rows() > 0;
}

/// A walk that does not get ahead would never end.
void ReadAhead::requireOrder(std::span<const StoredValue> position, bool behind) const {
    for (std::size_t row = behind ? 0 : 1; row < m_batch.rows(); ++row) {
        const bool getsAhead = mayFollow(
            m_order, [&](std::size_t at) { return row == 0 ? position[at] : term(row - 1, at); },
            [&](std::size_t at) { return term(row, at); }, m_direction);
        if (!getsAhead)
            throw damage();
    }
}

runtime::RuntimeError ReadAhead::damage() const {
    return fileError(runtime::errCannotOpen, m_source.file(),
                     "the rows of table " + m_source.definition().name + " do not lie in their order");
}

bool ReadAhead::loadRow(std::int64_t key) {
    m_fromStart = m_toEnd = false;
    m_direction = Direction::Forward;
    m_seen = changes();
    m_batch.clear(m_columns, 1);
    return m_live = m_source.readRow(key, m_batch);
}

bool ReadAhead::loadAgain(std::size_t row, std::int64_t key) {
    m_again.clear(m_columns, 1);
    m_live = m_source.readRow(key, m_again);
    if (m_live)
        m_batch.replaceRow(row, m_again, 0);
    return m_live;
}

bool ReadAhead::readsWhole() {
    if (m_quietLoads < loadsOfParts)
        return false;
    if (m_seen != changes()) {
        m_quietLoads = 0;
        return false;
    }
    const bool isSmall = m_source.count(lastLimit) < static_cast<std::int64_t>(lastLimit);
    if (!isSmall)
        m_quietLoads = tooLarge; // the question costs more than a search, so it is asked but once
    return isSmall;
}

std::optional<std::size_t> ReadAhead::find(std::span<const StoredValue> keys, bool equal) const {
    std::vector<std::size_t> columns;
    for (std::size_t key = 0; key < keys.size(); ++key)
        columns.push_back(m_columnOf[m_order.terms[key].field]);
    const BatchSearch search(m_batch, columns);
    const std::size_t row = search.lowerBound(keys);
    if ((row == 0 && !m_fromStart) || (row == m_batch.rows() && !m_toEnd))
        return std::nullopt;
    return row < m_batch.rows() && equal && !search.equals(row, keys) ? m_batch.rows() : row;
}

} // namespace tol::data
