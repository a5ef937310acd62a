// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

namespace tol::data {

/// Rows of a table that were read ahead in an order, in batches of 4 to 1,024 as a walk goes on. It counts
/// as live while it holds what was read last and nobody else has changed the table. Fields that nobody reads
/// are not fetched in long walks. A small table that is looked up again and again is read as a whole, and
/// then searched without asking the source.
class ReadAhead {
  public:
    static constexpr std::size_t firstLimit = 4;
    static constexpr std::size_t lastLimit = 1024;

    explicit ReadAhead(RowSource& source);

    /// An index's position, or -1. Drops what was read.
    void setIndex(int index);
    [[nodiscard]] const RowOrder& order() const { return m_order; }

    [[nodiscard]] bool isLive() const { return m_live; }
    /// Grows with each change of the table.
    [[nodiscard]] std::uint64_t changes() const { return m_state.changes + m_source.changes(); }
    /// Whether it is what the table holds, as one piece of the order from the front.
    [[nodiscard]] bool isPiece() const {
        return m_live && m_direction == Direction::Forward && m_seen == changes();
    }
    /// Whether somebody has changed the table, so that it has to be dropped; then begins anew.
    bool isOutdated();
    /// A change of the table that does not touch it, or has been made good in it.
    void passOver() { ++m_seen; }
    /// The same for a row that was added.
    void passOverAdded(std::int64_t key);
    void drop() { m_live = false; }
    /// How many rows the next load() reads; it raises that for the one after it.
    void setLimit(std::size_t limit) { m_limit = limit; }

    /// Reads the ranges' rows in that direction; false when there are none. Where they are to lie behind
    /// `position`, a row that does not is damage: 3049.
    bool load(std::span<const KeyRange> ranges, std::span<const StoredValue> position, Direction direction,
              bool behind = false);
    /// Reads that row alone.
    bool loadRow(std::int64_t key);
    /// Reads a row of the batch once more; false, and dropped, when it is gone.
    bool loadAgain(std::size_t row, std::int64_t key);
    /// The error that says that the rows do not lie in their order.
    [[nodiscard]] runtime::RuntimeError damage() const;
    /// Whether the table is small and has been read so often that it is worth reading as a whole.
    bool readsWhole();

    [[nodiscard]] Direction direction() const { return m_direction; }
    /// Whether nothing comes before its first row.
    [[nodiscard]] bool isFromStart() const { return m_fromStart; }
    [[nodiscard]] std::size_t rows() const { return m_batch.rows(); }
    [[nodiscard]] std::int64_t key(std::size_t row) const { return m_batch.key(row); }
    [[nodiscard]] StoredValue term(std::size_t row, std::size_t term) const {
        const std::size_t field = m_order.terms[term].field;
        return field == RowOrder::rowKey ? StoredValue::ofInteger(m_batch.key(row))
                                         : m_batch.at(row, m_columnOf[field]);
    }
    /// Notes that the field's values are wanted; false when the batch is without them, until fetchUsed() has
    /// dropped it and it is read anew.
    bool use(std::size_t field) {
        m_used[field] = true;
        return m_columnOf[field] != notLoaded;
    }
    void fetchUsed() { chooseFields(false); }
    [[nodiscard]] StoredValue stored(std::size_t row, std::size_t field) const {
        return m_batch.at(row, m_columnOf[field]);
    }
    /// Makes an update good in it; false when replaced texts have taken too much room.
    bool patch(std::size_t row, std::span<const Assignment> values);
    /// The row of that key; rows() when it has none.
    [[nodiscard]] std::size_t find(std::int64_t key) const {
        return static_cast<std::size_t>(std::ranges::find(m_batch.keys(), key) - m_batch.keys().begin());
    }
    /// The first row whose leading keys come at or after the given ones, or equal them; rows() when there is
    /// none in the table. Nothing when the batch, which must be a piece, can't tell.
    [[nodiscard]] std::optional<std::size_t> find(std::span<const StoredValue> keys, bool equal) const;

  private:
    static constexpr std::size_t notLoaded = static_cast<std::size_t>(-1);

    void chooseFields(bool all);
    void requireOrder(std::span<const StoredValue> position, bool behind) const;

    RowSource& m_source;
    TableState& m_state;
    int m_index = -1;
    RowOrder m_order;

    bool m_live = false;
    RowBatch m_batch, m_again;
    Direction m_direction = Direction::Forward;
    std::uint64_t m_seen = 0;                  ///< changes() when it was read
    bool m_fromStart = false, m_toEnd = false; ///< nothing comes before its first row, or behind its last one
    std::size_t m_limit = firstLimit;
    int m_loads = 0;
    int m_quietLoads = 0; ///< since the table was changed last

    std::vector<bool> m_used;            ///< fields that were read since it was made
    std::vector<std::size_t> m_columnOf; ///< by field, or notLoaded
    std::size_t m_columns = 0;
};

} // namespace tol::data
