// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/sqlite/KeyOrder.h"
#include "data/sqlite/RingCheck.h"
#include "data/sqlite/RowBatch.h"
#include "data/sqlite/RowKey.h"
#include "data/sqlite/RowWriter.h"
#include "data/sqlite/Session.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_set>
#include <vector>

namespace tol::data::sqlite {

/// A walk by keys: it remembers where the current row stood in the order and reads the rows behind that
/// position in batches, of 4 to 1,024 rows as the walk goes on. No statement stays open between calls.
/// A batch is thrown away when anybody else changes the table; a change through this cursor is made good
/// in it. Fields that nobody reads are not fetched in long walks. A small table that is looked up again and
/// again is read as a whole, and then searched without asking the file.
class SqliteCursor : public Cursor {
  public:
    SqliteCursor(std::shared_ptr<Session> session, std::shared_ptr<TableState> state);

    void setIndex(const std::string& name) override;
    bool first() override;
    bool last() override;
    bool next() override;
    bool previous() override;
    bool seek(SeekOperator op, std::span<const runtime::Value> keys) override;
    bool seekBookmark(std::string_view bookmark) override;
    std::string bookmark() const override;
    runtime::Value value(std::size_t field) override;
    std::string insert(std::span<const Assignment> values) override;
    void update(std::span<const Assignment> values) override;
    void remove() override;
    std::int64_t count() override;
    bool isEmpty() override;

  private:
    using LevelKey = std::tuple<Direction, std::size_t, Level::Relation>;

    [[nodiscard]] std::uint64_t generation() const { return m_state->changes + m_session->others(); }
    /// Does what is due, and drops the batch if the table has changed.
    void enter();
    void dropBatch();
    /// Remembers position and key of the current row apart from the batch.
    void keepPosition();
    /// The current row's key, for as long as batch and m_key stay as they are.
    [[nodiscard]] std::span<const StoredValue> key() const;
    void needRow();
    void needBatch();

    void startWalk(std::size_t limit);
    [[nodiscard]] bool isReusable() const;
    [[nodiscard]] bool readsWhole();
    bool standInBatch(std::size_t row);
    std::optional<bool> seekInBatch(SeekOperator op, std::span<const StoredValue> keys);
    bool step(Direction direction);
    bool stepInBatch(Direction direction);
    /// Where the rows of a batch begin: anywhere, or behind the position.
    enum class Begin : std::uint8_t { Anywhere, Behind };
    bool load(const std::vector<Level>& levels, std::span<const StoredValue> position, Direction direction,
              Begin begin = Begin::Anywhere);
    void loadLevel(const Level& level, std::span<const StoredValue> position, Direction direction,
                   Begin begin);
    [[nodiscard]] bool getsAhead(std::span<const StoredValue> position, Begin begin) const;
    [[noreturn]] void raiseDamaged() const;
    [[nodiscard]] bool batchIsFull() const;
    [[nodiscard]] bool wasMoved(std::size_t row) const;
    [[nodiscard]] std::span<const StoredValue> keyInBatch(std::size_t row) const;
    Statement& levelStatement(const Level& level, Direction direction);
    bool fetchByKey();
    void readAgain();
    Statement& statementByKey();

    [[nodiscard]] std::size_t columnOf(const KeySlot& slot) const;
    void chooseColumns(bool all);
    [[nodiscard]] std::string columnList() const;

    [[nodiscard]] bool movesRow(std::span<const Assignment> values);
    void patchBatch(std::span<const Assignment> values);
    [[nodiscard]] bool changesRowKey(std::span<const Assignment> values) const;
    void followRowKey(std::span<const Assignment> values);

    static constexpr std::size_t notLoaded = static_cast<std::size_t>(-1);

    std::shared_ptr<Session> m_session;
    std::shared_ptr<TableState> m_state;
    std::shared_ptr<const PhysicalTable> m_table;
    RowWriter m_writer;
    int m_index = KeyOrder::storedOrder;
    KeyOrder m_order;

    // Where it stands. While the batch is live, the current row is the batch's row m_row; position and
    // key are then only kept when somebody asked for it.
    bool m_onRow = false;
    bool m_gone = false; ///< the current row has been deleted
    bool m_positionKept = false;
    std::vector<KeptValue> m_position; ///< beside the order's terms
    RowKey m_key;
    mutable std::vector<StoredValue> m_keyValues;

    // What was read ahead.
    bool m_live = false;
    RowBatch m_batch;
    std::size_t m_row = 0;
    bool m_rowIsOld = false; ///< the current row has to be read again before its values are used
    Direction m_batchDirection = Direction::Forward;
    std::uint64_t m_seen = 0; ///< generation() when the batch was read
    bool m_fromStart = false; ///< nothing comes before the batch's first row, or behind its last one
    bool m_toEnd = false;
    std::size_t m_limit = 0;
    int m_loads = 0;
    int m_quietLoads = 0; ///< since the table was changed last

    // The walk.
    Direction m_walk = Direction::Forward;
    bool m_oneWay = false;                   ///< rows behind in the batch may be gone from there
    std::unordered_set<std::string> m_moved; ///< bookmarks of rows that this walk moved
    RingCheck m_ring;

    // Columns of the batch: the row key, then fields.
    std::vector<bool> m_touched;         ///< fields that were read since the cursor was opened
    std::vector<std::size_t> m_columnOf; ///< by field, or notLoaded
    std::vector<std::size_t> m_fields;   ///< in the order of the batch's columns
    std::map<LevelKey, Statement> m_levels;
    Statement m_byKey;
};

} // namespace tol::data::sqlite
