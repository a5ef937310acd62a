// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Physical.h"
#include "data/sqlite/StoredOrder.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::data::sqlite {

enum class Direction { Forward, Backward };

/// Where the value of a key lies: in a column of the row key, or in a field.
struct KeySlot {
    bool inRowKey = false;
    std::size_t position = 0;
    bool operator==(const KeySlot&) const = default;
};

/// One of the queries that together give the rows behind a position: the first `equalTerms` keys equal
/// the position's, and the next one stands in this relation to it.
struct Level {
    enum class Relation : std::uint8_t {
        None,
        Greater,
        GreaterOrEqual,
        Less,
        LessOrEqual,
        IsNull,
        IsNotNull
    };

    std::size_t equalTerms = 0;
    Relation relation = Relation::None;
    [[nodiscard]] bool takesValue() const {
        return relation != Relation::None && relation != Relation::IsNull && relation != Relation::IsNotNull;
    }
};

/// An order of a table's rows: the keys of an index and behind them the row key, so that no two rows
/// are equal in it. Writes the queries that walk in this order. SQLite can't use a comparison of whole
/// rows where keys may be Null or descend, and uses only the first column of one that ends in the row
/// key; so the rows behind a position are asked for level by level: first those with all keys equal and
/// a greater row key, last those whose first key is greater.
class KeyOrder {
  public:
    static constexpr int storedOrder = -1;

    /// `index` is the index's position in the definition, or storedOrder.
    KeyOrder(const PhysicalTable& table, int index);

    /// How many keys the index has, and how many terms the order with its row key.
    [[nodiscard]] std::size_t keys() const { return m_keys; }
    [[nodiscard]] std::size_t terms() const { return m_terms.size(); }
    [[nodiscard]] const KeySlot& slot(std::size_t term) const { return m_terms[term].slot; }
    [[nodiscard]] bool usesField(std::size_t field) const;
    /// Whether it is an index of this program's own: its keys ascend and its texts collate as TOLTEXT.
    [[nodiscard]] bool isOwnIndex() const { return m_ownIndex; }

    /// The levels behind a position, nearest rows first; isNull tells which of its terms are Null.
    [[nodiscard]] std::vector<Level> levelsBehind(const std::vector<bool>& isNull, Direction direction) const;
    /// The levels of the rows whose leading keys come at or after a position of fewer terms.
    [[nodiscard]] std::vector<Level> levelsFrom(const std::vector<bool>& isNull) const;

    /// Whether a row may come next to another in that direction; both are functions that give a row's
    /// terms. Texts that differ count as being in order.
    template <typename Before, typename Next>
    [[nodiscard]] bool mayFollow(const Before& before, const Next& next, Direction direction) const {
        for (std::size_t term = 0; term < m_terms.size(); ++term) {
            const std::partial_ordering order = compareStored(before(term), next(term));
            if (order == std::partial_ordering::unordered)
                return true;
            if (order != 0)
                return (order < 0) == ascends(term, direction);
        }
        return false;
    }

    /// Parameters: one for each equal term, and one if the relation takes a value. There is no limit in
    /// it; who has read enough resets it.
    [[nodiscard]] std::string query(const std::string& columns, const Level& level,
                                    Direction direction) const;

  private:
    struct Term {
        std::string expression;
        KeySlot slot;
        bool descending = false;
    };

    void addKeys(const PhysicalTable& table, const PhysicalIndex& physical, const IndexDef& index);
    void addRowKey(const PhysicalTable& table);
    void appendLevels(std::vector<Level>& levels, std::size_t term, bool isNull, Direction direction) const;
    [[nodiscard]] bool ascends(std::size_t term, Direction direction) const {
        return m_terms[term].descending == (direction == Direction::Backward);
    }

    std::string m_source; ///< table and index, as they stand behind FROM
    std::vector<Term> m_terms;
    std::size_t m_keys = 0;
    bool m_unique = false;
    bool m_ownIndex = false;
};

} // namespace tol::data::sqlite
