// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/SqliteRows.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/rows/FieldStorage.h"

#include <sqlite3.h>

#include <optional>

namespace tol::data::sqlite {

SqliteRows::SqliteRows(std::shared_ptr<Session> session, std::shared_ptr<OpenTable> table)
    : m_session(std::move(session)),
      m_open(std::move(table)),
      m_table(m_open->table),
      m_writer(*m_session, m_table),
      m_queries(*m_table, KeyQueries::storedOrder) {}

void SqliteRows::choose(int index, std::span<const std::size_t> fields) {
    m_queries = KeyQueries(*m_table, index);
    m_columns = quotedName(m_table->rowKey);
    for (const std::size_t field : fields)
        m_columns += ", " + quotedName(m_table->columns[field].name);
    m_fields = fields.size();
    m_ranges.clear();
    m_byKey = Statement();
}

void SqliteRows::read(std::span<const KeyRange> ranges, std::span<const StoredValue> values,
                      Direction direction, RowBatch& batch) {
    m_session->writeChangedRows();
    std::optional<Session::Reading> reading;
    if (ranges.size() > 1)
        reading.emplace(*m_session);
    for (const KeyRange& range : ranges) {
        readRange(range, values, direction, batch);
        if (batch.isFull())
            return;
    }
}

void SqliteRows::readRange(const KeyRange& range, std::span<const StoredValue> values, Direction direction,
                           RowBatch& batch) {
    Statement& statement = statementFor(range, direction);
    for (std::size_t value = 0; value < range.values(); ++value)
        bindStored(statement, static_cast<int>(value) + 1, values[value]);
    while (!batch.isFull() && statement.step())
        append(statement.handle(), batch);
    statement.reset();
}

/// Each value is found once: each question to the statement would find it again. No other thread uses the
/// connection.
void SqliteRows::append(sqlite3_stmt* row, RowBatch& batch) const {
    batch.addRow(sqlite3_column_int64(row, 0));
    for (std::size_t column = 0; column < m_fields; ++column) {
        sqlite3_value* value = sqlite3_column_value(row, static_cast<int>(column) + 1);
        switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            batch.putInteger(column, sqlite3_value_int64(value));
            break;
        case SQLITE_FLOAT:
            batch.putReal(column, sqlite3_value_double(value));
            break;
        case SQLITE_TEXT:
            batch.putText(column, StoredValue::Kind::Text, sqlite3_value_text(value),
                          static_cast<std::size_t>(sqlite3_value_bytes(value)));
            break;
        case SQLITE_BLOB:
            batch.putText(column, StoredValue::Kind::Blob, sqlite3_value_blob(value),
                          static_cast<std::size_t>(sqlite3_value_bytes(value)));
            break;
        default:
            batch.putNull(column);
            break;
        }
    }
}

Statement& SqliteRows::statementFor(const KeyRange& range, Direction direction) {
    Statement& statement = m_ranges[{direction, range}];
    if (!statement.isPrepared())
        statement = Statement(m_session->connection(), m_queries.query(m_columns, range, direction));
    return statement;
}

bool SqliteRows::readRow(std::int64_t key, RowBatch& batch) {
    m_session->writeChangedRows();
    if (!m_byKey.isPrepared())
        m_byKey = Statement(m_session->connection(), "SELECT " + m_columns + " FROM " +
                                                         quotedName(m_table->sqlName) + " WHERE " +
                                                         quotedName(m_table->rowKey) + " = ?");
    m_byKey.bind(1, key);
    const bool found = m_byKey.step();
    if (found)
        append(m_byKey.handle(), batch);
    m_byKey.reset();
    return found;
}

std::int64_t SqliteRows::count(std::int64_t limit) {
    const std::string table = quotedName(m_table->sqlName);
    // Without a limit SQLite counts by whole pages.
    return m_session->connection().number(
        "SELECT count(*) FROM " +
        (limit == all ? table : "(SELECT 1 FROM " + table + " LIMIT " + std::to_string(limit) + ")"));
}

} // namespace tol::data::sqlite
