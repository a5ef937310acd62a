// SPDX-License-Identifier: MIT
// Changes of rows through a cursor, made good in what it has read ahead.
#include "data/rows/Cursor.h"
#include "data/rows/KeyRanges.h"
#include "runtime/RuntimeError.h"

#include <algorithm>

namespace tol::data {

void Cursor::countChange(int rows) {
    TableState& state = m_rows->state();
    ++state.changes;
    if (state.count)
        *state.count += rows;
}

std::string Cursor::insert(std::span<const Assignment> values) {
    enter();
    const std::int64_t key = m_rows->insert(values);
    countChange(1);
    m_ahead.passOverAdded(key);
    return std::to_string(key);
}

void Cursor::update(std::span<const Assignment> values) {
    enter();
    requireRow();
    const bool moves = movesRow(values);
    if (moves)
        keepPosition();
    const std::int64_t before = key();
    const auto after = m_rows->update(before, values, m_ahead.isLive());
    m_gone = !after;
    if (m_gone)
        runtime::raise(runtime::errRecordDeleted);
    countChange(0);
    m_ahead.passOver();
    if (moves) {
        m_oneWay = true;
        m_moved.insert(*after);
    }
    if (*after == before)
        patch(values);
    else
        followKey(*after);
}

/// Whether the update changes the current row's place in the order.
bool Cursor::movesRow(std::span<const Assignment> values) {
    const auto isTerm = [&](const Assignment& value) { return usesField(m_ahead.order(), value.field); };
    if (std::ranges::none_of(values, isTerm))
        return false;
    needValues();
    std::string buffer;
    return std::ranges::any_of(values, [&](const Assignment& value) {
        return isTerm(value) &&
               m_rows->stored(value.field, value.value, buffer) != m_ahead.stored(m_row, value.field);
    });
}

/// What the engine stores in another form than it was given is read again when it is asked for, and the
/// batch when the walk turns back to it.
void Cursor::patch(std::span<const Assignment> values) {
    if (!m_ahead.isLive())
        return;
    const auto isKept = [&](const Assignment& value) { return m_rows->keepsAsGiven(value.field); };
    if (!std::ranges::all_of(values, isKept)) {
        m_rowIsOld = m_oneWay = true;
    } else if (!m_ahead.patch(m_row, values)) {
        keepPosition();
        m_ahead.drop();
    }
}

/// The current row goes by its new key; the walk goes on from the old place.
void Cursor::followKey(std::int64_t key) {
    keepPosition();
    m_ahead.drop();
    m_key = key;
    m_moved.insert(key);
}

void Cursor::remove() {
    enter();
    requireRow();
    const bool removed = m_rows->remove(key());
    m_gone = m_oneWay = true;
    if (!removed)
        runtime::raise(runtime::errRecordDeleted);
    countChange(-1);
    m_ahead.passOver();
}

} // namespace tol::data
