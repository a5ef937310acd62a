// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Engine.h"
#include "data/rows/ReadAhead.h"
#include "data/rows/RingCheck.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tol::data {

enum class SeekOperator { Equal, GreaterOrEqual, LessOrEqual };

/// A walk over one table. It stands on a row or on none. A step continues from where the row stood
/// when it was reached, even if the row has been changed or deleted since; a row that update() moved
/// ahead in the order is not met a second time in the same walk, which ends with a step in the other
/// direction or a jump. Nothing is held open in the file between calls: it remembers where the row stood in
/// the order, and reads the rows behind that position ahead. What it has read goes when anybody else changes
/// the table; its own changes are made good in it.
class Cursor {
  public:
    explicit Cursor(std::unique_ptr<RowSource> rows);

    /// Chooses the order: an index by name, or "" for the order of the row keys (stored order).
    /// Leaves the cursor on no row. Raises 3015 for an unknown index.
    void setIndex(const std::string& name);

    /// How many rows are read at once from where a search or bookmark leads; 1 at first.
    void setCacheSize(std::size_t rows) { m_cacheSize = rows; }

    /// Each returns whether the cursor now stands on a row.
    bool first();
    bool last();
    bool next() { return step(Direction::Forward); }
    bool previous() { return step(Direction::Backward); }
    /// Finds the first row whose leading key fields equal the keys, or come at or after them, or the last row
    /// where they come at or before them. There may be fewer keys than the index has fields. The keys have
    /// the types of their fields.
    bool seek(SeekOperator op, std::span<const runtime::Value> keys);
    /// Goes to the row of that bookmark; false when there is no such row (any more). 3159 for a text that
    /// is no bookmark.
    bool seekBookmark(std::string_view bookmark);

    /// The current row's bookmark: its key's digits, which name the row for ever.
    [[nodiscard]] std::string bookmark() const;
    /// The current row's value, in the field's own type or Null. Raises 3167 when the row is gone.
    runtime::Value value(std::size_t field);

    /// Adds a row and returns its bookmark; the cursor stays where it is. Errors as in RowSource.
    std::string insert(std::span<const Assignment> values);
    /// Changes, or deletes, the current row; the cursor keeps its place. 3167 when the row is gone.
    void update(std::span<const Assignment> values);
    void remove();

    /// The exact number of rows of the table.
    std::int64_t count();
    /// Whether it has none. Cheap enough to be asked for every row; a change by another process may be
    /// noticed a millisecond late.
    bool isEmpty();
    /// Grows with each change of the table, by whomever; another process's may be noticed a millisecond late.
    std::uint64_t changes();

  private:
    void enter();
    void keepPosition();
    [[nodiscard]] std::int64_t key() const {
        return m_ahead.isLive() && !m_positionKept ? m_ahead.key(m_row) : m_key;
    }
    void requireRow() const;
    void needValues();

    void startWalk(Direction direction, std::size_t limit);
    bool load(std::span<const KeyRange> ranges, std::span<const StoredValue> position, bool behind = false);
    bool stand(std::size_t row);
    [[nodiscard]] bool isReusable() const { return !m_oneWay && m_moved.empty() && m_ahead.isPiece(); }
    bool step(Direction direction);
    void turn(Direction direction);
    bool stepInBatch();
    bool loadBehind();
    bool seekFrom(Direction direction);
    std::optional<std::size_t> findInBatch(bool equal);
    void storeKeys(std::span<const runtime::Value> keys);

    [[nodiscard]] bool movesRow(std::span<const Assignment> values);
    void patch(std::span<const Assignment> values);
    void followKey(std::int64_t key);
    void countChange(int rows);

    std::unique_ptr<RowSource> m_rows;
    ReadAhead m_ahead;

    std::size_t m_cacheSize = 1;

    // Where it stands. While m_ahead is live, the current row is the batch's row m_row; position and key are
    // then only kept when somebody asked for them.
    bool m_onRow = false;
    bool m_gone = false;     ///< the current row has been deleted
    bool m_rowIsOld = false; ///< it has to be read again before its values are used
    std::size_t m_row = 0;
    bool m_positionKept = false;
    std::vector<KeptValue> m_position; ///< beside the order's terms
    std::int64_t m_key = 0;

    // The walk.
    Direction m_walk = Direction::Forward;
    bool m_oneWay = false; ///< the rows behind in the batch are no longer those of the table
    std::unordered_set<std::int64_t> m_moved; ///< keys of the rows that it moved
    RingCheck m_ring;

    // Of the search in work.
    std::vector<StoredValue> m_keys;
    std::vector<std::string> m_buffers;
};

inline std::unique_ptr<Cursor> openCursor(Store& store, std::string_view table) {
    return std::make_unique<Cursor>(store.openRows(table));
}

} // namespace tol::data
