// SPDX-License-Identifier: MIT
#include "data/sqlite/RowBatch.h"

#include <sqlite3.h>

namespace tol::data::sqlite {
namespace {

using Kind = StoredValue::Kind;

/// A single long memo may have blown the text up; that much is not kept for the next batch.
constexpr std::size_t keptTextBytes = std::size_t{2} << 20;

} // namespace

void RowBatch::clear(std::size_t columns) {
    m_columns = columns;
    m_rows = 0;
    m_cells.clear();
    if (m_text.capacity() > keptTextBytes)
        m_text = std::string();
    m_text.clear();
}

void RowBatch::append(sqlite3_stmt* statement) {
    const std::size_t first = m_cells.size();
    m_cells.resize(first + m_columns);
    read(statement, first);
    ++m_rows;
}

void RowBatch::read(sqlite3_stmt* statement, std::size_t firstCell) {
    for (std::size_t column = 0; column < m_columns; ++column) {
        Cell& cell = m_cells[firstCell + column];
        // Found once: each question to the statement would find it again. No other thread uses the
        // connection.
        sqlite3_value* value = sqlite3_column_value(statement, static_cast<int>(column));
        switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            cell.kind = Kind::Integer;
            cell.integer = sqlite3_value_int64(value);
            break;
        case SQLITE_FLOAT:
            cell.kind = Kind::Real;
            cell.real = sqlite3_value_double(value);
            break;
        case SQLITE_TEXT:
            cell.kind = Kind::Text;
            keepText(cell, reinterpret_cast<const char*>(sqlite3_value_text(value)),
                     static_cast<std::size_t>(sqlite3_value_bytes(value)));
            break;
        case SQLITE_BLOB:
            cell.kind = Kind::Blob;
            keepText(cell, static_cast<const char*>(sqlite3_value_blob(value)),
                     static_cast<std::size_t>(sqlite3_value_bytes(value)));
            break;
        default:
            cell.kind = Kind::Null;
            break;
        }
    }
}

void RowBatch::addRow() {
    ++m_rows;
    m_cells.resize(m_rows * m_columns, Cell{{0}, 0, Kind::Null});
}

void RowBatch::removeLast() {
    --m_rows;
    m_cells.resize(m_rows * m_columns);
}

void RowBatch::keepText(Cell& cell, const char* text, std::size_t length) {
    cell.offset = m_text.size();
    cell.length = static_cast<std::uint32_t>(length);
    if (length != 0)
        m_text.append(text, length);
}

StoredValue RowBatch::at(std::size_t row, std::size_t column) const {
    const Cell& cell = m_cells[row * m_columns + column];
    switch (cell.kind) {
    case Kind::Integer:
        return StoredValue::ofInteger(cell.integer);
    case Kind::Real:
        return StoredValue::ofReal(cell.real);
    case Kind::Text:
        return StoredValue::ofText({m_text.data() + cell.offset, cell.length});
    case Kind::Blob:
        return StoredValue::ofBlob({m_text.data() + cell.offset, cell.length});
    case Kind::Null:
        break;
    }
    return {};
}

void RowBatch::replace(std::size_t row, std::size_t column, const StoredValue& value) {
    Cell& cell = m_cells[row * m_columns + column];
    cell.kind = value.kind;
    switch (value.kind) {
    case Kind::Integer:
        cell.integer = value.integer;
        break;
    case Kind::Real:
        cell.real = value.real;
        break;
    case Kind::Text:
    case Kind::Blob:
        keepText(cell, value.text.data(), value.text.size());
        break;
    case Kind::Null:
        break;
    }
}

} // namespace tol::data::sqlite
