// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/StoredValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Rows read ahead, in 16 bytes a cell with all texts in one string. Its memory is kept when it is
/// cleared, so that a walk allocates nothing per batch.
class RowBatch {
  public:
    void clear(std::size_t columns);
    /// Adds the row on which the statement stands, or one of Nulls.
    void append(sqlite3_stmt* statement);
    void addRow();
    /// Reads a row once more. What its texts took is free again with the next clear().
    void replaceRow(std::size_t row, sqlite3_stmt* statement) { read(statement, row * m_columns); }
    void removeLast();

    [[nodiscard]] std::size_t rows() const { return m_rows; }
    /// The view of a text is valid until the next change of the batch.
    [[nodiscard]] StoredValue at(std::size_t row, std::size_t column) const;
    void replace(std::size_t row, std::size_t column, const StoredValue& value);
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

    void read(sqlite3_stmt* statement, std::size_t firstCell);
    void keepText(Cell& cell, const char* text, std::size_t length);

    std::size_t m_columns = 0;
    std::size_t m_rows = 0;
    std::vector<Cell> m_cells;
    std::string m_text;
};

} // namespace tol::data::sqlite
