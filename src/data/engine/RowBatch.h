// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/StoredValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::data {

/// Rows with their keys, in 16 bytes a cell with all texts in one string. Its memory is kept when it is
/// cleared, so that a walk allocates nothing per batch.
class RowBatch {
  public:
    /// Makes room for rows of that many cells. It is full when it has that many of them, or texts of more
    /// than 1 MiB.
    void clear(std::size_t columns, std::size_t limit);
    [[nodiscard]] bool isFull() const { return m_rows >= m_limit || m_text.size() >= textLimit; }

    /// Adds a row, whose cells hold anything until they are put.
    void addRow(std::int64_t key) {
        m_keys.resize(m_rows + 1);
        m_keys[m_rows++] = key;
        if (m_cells.size() < m_rows * m_columns)
            m_cells.resize(m_rows * m_columns);
    }
    /// Each writes a cell of the row that was added last.
    void putNull(std::size_t column) { last(column).kind = StoredValue::Kind::Null; }
    void putInteger(std::size_t column, std::int64_t value) {
        Cell& cell = last(column);
        cell.kind = StoredValue::Kind::Integer;
        cell.integer = value;
    }
    void putReal(std::size_t column, double value) {
        Cell& cell = last(column);
        cell.kind = StoredValue::Kind::Real;
        cell.real = value;
    }
    void putText(std::size_t column, StoredValue::Kind kind, const void* text, std::size_t length) {
        keep(last(column), kind, text, length);
    }

    [[nodiscard]] std::size_t rows() const { return m_rows; }
    [[nodiscard]] std::int64_t key(std::size_t row) const { return m_keys[row]; }
    [[nodiscard]] const std::vector<std::int64_t>& keys() const { return m_keys; }
    /// The view of a text is valid until the next change of the batch.
    [[nodiscard]] StoredValue at(std::size_t row, std::size_t column) const {
        const Cell& cell = m_cells[row * m_columns + column];
        switch (cell.kind) {
        case StoredValue::Kind::Integer:
            return StoredValue::ofInteger(cell.integer);
        case StoredValue::Kind::Real:
            return StoredValue::ofReal(cell.real);
        case StoredValue::Kind::Text:
        case StoredValue::Kind::Blob:
            return {cell.kind, 0, 0, {m_text.data() + cell.offset, cell.length}};
        case StoredValue::Kind::Null:
            break;
        }
        return {};
    }
    /// What a replaced text took is free again with the next clear().
    void replace(std::size_t row, std::size_t column, const StoredValue& value);
    void replaceRow(std::size_t row, const RowBatch& other, std::size_t otherRow);
    /// Bytes that the texts of all rows take.
    [[nodiscard]] std::size_t textBytes() const { return m_text.size(); }

  private:
    struct Cell {
        union {
            std::int64_t integer;
            double real;
            std::uint64_t offset; ///< of a text or of bytes in m_text
        };
        std::uint32_t length;
        StoredValue::Kind kind;
    };
    static_assert(sizeof(Cell) == 16);

    static constexpr std::size_t textLimit = std::size_t{1} << 20;

    [[nodiscard]] Cell& last(std::size_t column) { return m_cells[(m_rows - 1) * m_columns + column]; }
    void keep(Cell& cell, StoredValue::Kind kind, const void* text, std::size_t length) {
        cell.kind = kind;
        cell.offset = m_text.size();
        cell.length = static_cast<std::uint32_t>(length);
        if (length != 0)
            m_text.append(static_cast<const char*>(text), length);
    }

    std::size_t m_columns = 0;
    std::size_t m_rows = 0;
    std::size_t m_limit = 0;
    std::vector<std::int64_t> m_keys;
    std::vector<Cell> m_cells;
    std::string m_text;
};

} // namespace tol::data
