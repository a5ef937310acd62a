// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "data/engine/RowBatch.h"
#include "data/engine/TableState.h"
#include "runtime/Value.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tol::data {

enum class Direction : std::uint8_t { Forward, Backward };

/// A field's new value: its position in TableDefinition::fields, and a value that already has the
/// field's own type (hasOwnType()) or is Null.
struct Assignment {
    std::size_t field;
    runtime::Value value;
};

/// An order of a table's rows: by the keys of an index, and behind them by the row key, so that no two rows
/// are equal in it. Where a term ascends, Nulls stand in front of all values, else behind them.
struct RowOrder {
    static constexpr std::size_t rowKey = static_cast<std::size_t>(-1);

    struct Term {
        std::size_t field = rowKey; ///< or rowKey
        bool descending = false;
    };
    std::vector<Term> terms;
    std::size_t keys = 0;    ///< how many of the terms are the index's
    bool unique = false;     ///< keys without a Null belong to one row only
    bool searchable = false; ///< the keys ascend and their texts are in runtime::compareText()'s order
};

/// Rows that lie next to each other in an order: the first `equalTerms` terms equal the given values, and
/// the next term stands in this relation to the value behind those.
struct KeyRange {
    enum class Relation : std::uint8_t { Any, Greater, GreaterOrEqual, Less, LessOrEqual, IsNull, IsNotNull };

    std::size_t equalTerms = 0;
    Relation relation = Relation::Any;
    auto operator<=>(const KeyRange&) const = default;
    /// How many values it is about.
    [[nodiscard]] std::size_t values() const {
        const bool compares = relation >= Relation::Greater && relation <= Relation::LessOrEqual;
        return equalTerms + (compares ? 1 : 0);
    }
};

/// The rows of one table, as an engine gives them to one reader. A row has a 64-bit key that it keeps as long
/// as it lives. Nothing is held open in the file between calls. Every member may raise RuntimeError.
class RowSource {
  public:
    virtual ~RowSource() = default;

    [[nodiscard]] virtual const TableDefinition& definition() const = 0;
    [[nodiscard]] virtual const std::filesystem::path& file() const = 0;
    /// The engine keeps one for each table.
    [[nodiscard]] virtual TableState& state() = 0;

    enum class Look { WhenDue, AtOnce };
    /// To be called before all else: commits what is due, and looks for changes of others, at once or at most
    /// every millisecond.
    virtual void enter(Look look = Look::WhenDue) = 0;
    /// Grows with each change of the table that TableState::changes does not count: by another process or by
    /// a trigger, or a rollback.
    [[nodiscard]] virtual std::uint64_t changes() const = 0;

    /// The order by an index, told by its position, or by the row keys alone for -1.
    [[nodiscard]] virtual RowOrder order(int index) const = 0;
    /// Chooses the order of what is read next, and the fields, which become the batch's columns.
    virtual void choose(int index, std::span<const std::size_t> fields) = 0;
    /// Adds the ranges' rows to the batch, one range behind the other, until it is full; all as of one
    /// moment. `values` are those that the ranges are about.
    virtual void read(std::span<const KeyRange> ranges, std::span<const StoredValue> values,
                      Direction direction, RowBatch& batch) = 0;
    /// Adds the row of that key; false when there is none.
    virtual bool readRow(std::int64_t key, RowBatch& batch) = 0;
    static constexpr std::int64_t all = -1;
    /// Counts the rows, up to a limit.
    virtual std::int64_t count(std::int64_t limit) = 0;

    /// Between a field's value and what is stored of it; `buffer` gives room for a text that has to be made.
    /// 3421 for a stored value that has no meaning in the field's type.
    [[nodiscard]] virtual StoredValue stored(std::size_t field, const runtime::Value& value,
                                             std::string& buffer) const = 0;
    [[nodiscard]] virtual runtime::Value value(std::size_t field, const StoredValue& stored) const = 0;
    /// Whether a value is read again as stored() gave it.
    [[nodiscard]] virtual bool keepsAsGiven(std::size_t field) const = 0;

    /// Adds a row and returns its key. 3022 for a duplicate key and 3058 for a Null in the primary key,
    /// unless the storage fills it in; both name the index.
    virtual std::int64_t insert(std::span<const Assignment> values) = 0;
    /// Changes the row and returns the key that it has now; nothing when there is no such row. 3022 and 3058
    /// as above. `seen` tells that the row has been read since changes() grew last.
    virtual std::optional<std::int64_t> update(std::int64_t key, std::span<const Assignment> values,
                                               bool seen) = 0;
    /// Whether there was such a row.
    virtual bool remove(std::int64_t key) = 0;
};

} // namespace tol::data
