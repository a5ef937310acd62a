// SPDX-License-Identifier: MIT
#include "data/engine/RowBatch.h"

namespace tol::data {

void RowBatch::clear(std::size_t columns, std::size_t limit) {
    m_columns = columns;
    m_limit = limit;
    m_rows = 0;
    m_keys.clear();
    m_text.clear();
}

void RowBatch::replace(std::size_t row, std::size_t column, const StoredValue& value) {
    Cell& cell = m_cells[row * m_columns + column];
    cell.kind = value.kind;
    switch (value.kind) {
    case StoredValue::Kind::Integer:
        cell.integer = value.integer;
        break;
    case StoredValue::Kind::Real:
        cell.real = value.real;
        break;
    case StoredValue::Kind::Text:
    case StoredValue::Kind::Blob:
        keep(cell, value.kind, value.text.data(), value.text.size());
        break;
    case StoredValue::Kind::Null:
        break;
    }
}

void RowBatch::replaceRow(std::size_t row, const RowBatch& other, std::size_t otherRow) {
    for (std::size_t column = 0; column < m_columns; ++column)
        replace(row, column, other.at(otherRow, column));
}

} // namespace tol::data
