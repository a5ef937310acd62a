// SPDX-License-Identifier: MIT
#include "data/rows/Cursor.h"

#include "data/rows/KeyRanges.h"
#include "runtime/RuntimeError.h"

#include <charconv>

namespace tol::data {
namespace {

constexpr KeyRange everyRow[] = {KeyRange{}};

std::int64_t keyOf(std::string_view bookmark) {
    std::int64_t key = 0;
    const char* end = bookmark.data() + bookmark.size();
    const auto [stop, error] = std::from_chars(bookmark.data(), end, key);
    if (error != std::errc() || stop != end)
        runtime::raise(runtime::errInvalidBookmark);
    return key;
}

} // namespace

Cursor::Cursor(std::unique_ptr<RowSource> rows) : m_rows(std::move(rows)), m_ahead(*m_rows) {}

// ---------------------------------------------------------------- where it stands

/// Does what is due, and drops what was read if somebody has changed the table.
void Cursor::enter() {
    m_rows->enter();
    if (!m_ahead.isOutdated())
        return;
    keepPosition();
    m_ahead.drop();
}

/// Remembers position and key of the current row apart from the batch.
void Cursor::keepPosition() {
    if (!m_onRow || m_positionKept || !m_ahead.isLive())
        return;
    m_position.resize(m_ahead.order().terms.size());
    for (std::size_t term = 0; term < m_position.size(); ++term)
        m_position[term] = m_ahead.term(m_row, term);
    m_key = m_ahead.key(m_row);
    m_positionKept = true;
}

void Cursor::requireRow() const {
    if (!m_onRow)
        runtime::raise(runtime::errNoCurrentRecord);
    if (m_gone)
        runtime::raise(runtime::errRecordDeleted);
}

/// The current row's values, read again if the batch was dropped.
void Cursor::needValues() {
    requireRow();
    if (m_ahead.isLive() && !m_rowIsOld)
        return;
    keepPosition();
    if (m_ahead.isLive()) {
        m_gone = !m_ahead.loadAgain(m_row, m_key);
    } else {
        m_gone = !m_ahead.loadRow(m_key);
        m_row = 0;
    }
    m_rowIsOld = false;
    if (m_gone)
        runtime::raise(runtime::errRecordDeleted);
}

std::string Cursor::bookmark() const {
    if (!m_onRow)
        runtime::raise(runtime::errNoCurrentRecord);
    return std::to_string(key());
}

runtime::Value Cursor::value(std::size_t field) {
    enter();
    needValues();
    if (!m_ahead.use(field)) {
        keepPosition();
        m_ahead.fetchUsed();
        needValues();
    }
    return m_rows->value(field, m_ahead.stored(m_row, field));
}

std::int64_t Cursor::count() {
    m_rows->enter(RowSource::Look::AtOnce); // who counts wants to know it now
    TableState& state = m_rows->state();
    if (!state.count || state.countedAt != m_rows->changes()) {
        state.countedAt = m_rows->changes();
        state.count = m_rows->count(RowSource::all);
    }
    return *state.count;
}

/// Where the current row is known to be there, nobody else is asked.
bool Cursor::isEmpty() {
    enter();
    return (!m_ahead.isLive() || m_gone) && m_rows->count(1) == 0;
}

std::uint64_t Cursor::changes() {
    enter();
    return m_ahead.changes();
}

// ---------------------------------------------------------------- moving

void Cursor::setIndex(const std::string& name) {
    m_rows->enter();
    const int index = name.empty() ? -1 : m_rows->definition().findIndex(name);
    if (index < 0 && !name.empty())
        runtime::raise(runtime::errNotAnIndex, {name});
    m_onRow = false;
    m_ahead.setIndex(index);
}

/// An absolute move: what the walk before remembered counts no more.
void Cursor::startWalk(Direction direction, std::size_t limit) {
    m_onRow = m_oneWay = false;
    m_ahead.drop();
    m_ahead.setLimit(limit);
    m_walk = direction;
    m_moved.clear();
    m_ring.start();
}

bool Cursor::load(std::span<const KeyRange> ranges, std::span<const StoredValue> position, bool behind) {
    m_onRow = m_ahead.load(ranges, position, m_walk, behind);
    m_oneWay = false;
    return m_onRow && stand(0);
}

/// Stands on a row of the batch, or on none when it has fewer.
bool Cursor::stand(std::size_t row) {
    m_row = row;
    m_positionKept = m_rowIsOld = m_gone = false;
    return m_onRow = row < m_ahead.rows();
}

bool Cursor::first() {
    m_rows->enter();
    if (isReusable() && m_ahead.isFromStart()) {
        m_walk = Direction::Forward;
        return stand(0);
    }
    startWalk(Direction::Forward, m_ahead.readsWhole() ? ReadAhead::lastLimit : ReadAhead::firstLimit);
    return load(everyRow, {});
}

bool Cursor::last() {
    m_rows->enter();
    startWalk(Direction::Backward, ReadAhead::firstLimit);
    return load(everyRow, {});
}

bool Cursor::step(Direction direction) {
    enter();
    if (!m_onRow)
        return false;
    if (direction != m_walk)
        turn(direction);
    do {
        if (!stepInBatch() && !loadBehind())
            return false;
    } while (!m_moved.empty() && m_moved.contains(key()));
    return true;
}

void Cursor::turn(Direction direction) {
    m_walk = direction;
    m_moved.clear();
    m_ring.start();
    if (!m_oneWay)
        return;
    keepPosition();
    m_ahead.drop();
}

bool Cursor::stepInBatch() {
    if (!m_ahead.isLive())
        return false;
    const bool along = m_walk == m_ahead.direction();
    return (along ? m_row + 1 < m_ahead.rows() : m_row > 0) && stand(along ? m_row + 1 : m_row - 1);
}

bool Cursor::loadBehind() {
    keepPosition();
    if (m_ring.wasThere(m_position))
        throw m_ahead.damage();
    std::vector<StoredValue> position;
    for (const KeptValue& value : m_position)
        position.push_back(value.value());
    return load(rangesBehind(m_ahead.order(), position, m_walk), position, true);
}

void Cursor::storeKeys(std::span<const runtime::Value> keys) {
    if (m_buffers.size() < keys.size())
        m_buffers.resize(keys.size());
    m_keys.clear();
    for (std::size_t key = 0; key < keys.size(); ++key)
        m_keys.push_back(m_rows->stored(m_ahead.order().terms[key].field, keys[key], m_buffers[key]));
}

bool Cursor::seek(SeekOperator op, std::span<const runtime::Value> keys) {
    m_rows->enter();
    storeKeys(keys);
    if (op == SeekOperator::LessOrEqual)
        return seekFrom(Direction::Backward);
    const bool equal = op == SeekOperator::Equal || keys.empty();
    if (const auto row = findInBatch(equal)) {
        m_walk = Direction::Forward;
        return stand(*row);
    }
    if (!equal)
        return seekFrom(Direction::Forward);
    startWalk(Direction::Forward, m_cacheSize);
    const KeyRange equalKeys{keys.size(), KeyRange::Relation::Any};
    return load({&equalKeys, 1}, m_keys);
}

bool Cursor::seekFrom(Direction direction) {
    startWalk(direction, m_cacheSize);
    return load(rangesFrom(m_ahead.order(), m_keys, direction), m_keys);
}

/// Nothing when no batch can tell.
std::optional<std::size_t> Cursor::findInBatch(bool equal) {
    if (!m_ahead.order().searchable)
        return std::nullopt;
    if (isReusable()) {
        if (const auto row = m_ahead.find(m_keys, equal))
            return row;
    }
    if (!m_ahead.readsWhole())
        return std::nullopt;
    startWalk(Direction::Forward, ReadAhead::lastLimit);
    return load(everyRow, {}) && isReusable() ? m_ahead.find(m_keys, equal) : std::nullopt;
}

bool Cursor::seekBookmark(std::string_view bookmark) {
    m_rows->enter();
    const std::int64_t key = keyOf(bookmark);
    if (isReusable()) {
        const std::size_t row = m_ahead.find(key);
        if (row < m_ahead.rows()) { // who has just met a row often goes to its bookmark
            m_walk = Direction::Forward;
            return stand(row);
        }
    }
    startWalk(Direction::Forward, m_cacheSize);
    return m_ahead.loadRow(key) && stand(0);
}

} // namespace tol::data
