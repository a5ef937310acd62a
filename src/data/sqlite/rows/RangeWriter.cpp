// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/RangeWriter.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/rows/FieldStorage.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <algorithm>
#include <new>

namespace tol::data::sqlite {
namespace {

constexpr std::size_t rowLimit = 1024;
/// Rows between two changed ones are looked at in vain.
constexpr std::int64_t gapLimit = 8;

constexpr const char* isWaitingName = "tol_is_waiting";
constexpr const char* waitingValueName = "tol_waiting_value";

RangeWriter& runOf(sqlite3_context* context) {
    return *static_cast<RangeWriter*>(sqlite3_user_data(context));
}

void giveResult(sqlite3_context* context, const StoredValue& value) {
    switch (value.kind) {
    case StoredValue::Kind::Integer:
        sqlite3_result_int64(context, value.integer);
        break;
    case StoredValue::Kind::Real:
        sqlite3_result_double(context, value.real);
        break;
    case StoredValue::Kind::Text:
        sqlite3_result_text64(context, value.text.data(), value.text.size(), SQLITE_STATIC, SQLITE_UTF8);
        break;
    case StoredValue::Kind::Blob:
        sqlite3_result_blob64(context, value.text.data(), value.text.size(), SQLITE_STATIC);
        break;
    case StoredValue::Kind::Null:
        sqlite3_result_null(context);
        break;
    }
}

} // namespace

RangeWriter::RangeWriter(Connection& connection) : m_connection(connection) {
    registerFunction(isWaitingName, 1, &RangeWriter::isWaiting);
    registerFunction(waitingValueName, 2, &RangeWriter::waitingValue);
}

void RangeWriter::registerFunction(const char* name, int arguments,
                                   void (*function)(sqlite3_context*, int, sqlite3_value**)) {
    if (sqlite3_create_function_v2(m_connection.handle(), name, arguments, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                                   this, function, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::bad_alloc(); // the only way in which the call can fail
}

void RangeWriter::add(const std::shared_ptr<const StoredTable>& table, std::int64_t key,
                      std::span<const Assignment> values) {
    if (!continues(*table, key, values)) {
        write();
        start(table, values);
    }
    m_rows.addRow(key);
    for (std::size_t column = 0; column < values.size(); ++column) {
        const auto storage = table->columns[values[column].field].storage;
        m_rows.replace(m_rows.rows() - 1, column, toStored(values[column].value, storage, m_buffer));
    }
    if (m_rows.isFull())
        write();
}

bool RangeWriter::continues(const StoredTable& table, std::int64_t key,
                            std::span<const Assignment> values) const {
    return !isEmpty() && &table == m_table.get() && key > m_rows.keys().back() &&
           key - m_rows.keys().back() <= gapLimit &&
           std::equal(values.begin(), values.end(), m_fields.begin(), m_fields.end(),
                      [](const Assignment& value, std::size_t field) { return value.field == field; });
}

void RangeWriter::start(const std::shared_ptr<const StoredTable>& table, std::span<const Assignment> values) {
    m_table = table;
    m_fields.clear();
    for (const auto& value : values)
        m_fields.push_back(value.field);
    discard();
}

void RangeWriter::discard() {
    m_rows.clear(m_fields.size(), rowLimit);
}

void RangeWriter::write() {
    if (isEmpty())
        return;
    m_at = 0;
    const auto rows = static_cast<std::int64_t>(m_rows.rows());
    try {
        auto update = m_connection.cached(sql());
        update->bindAll(m_rows.keys().front(), m_rows.keys().back());
        update->run();
        if (m_connection.changes() != rows)
            runtime::raise(runtime::errRecordDeleted);
    } catch (...) {
        discard();
        throw;
    }
    discard();
}

std::string RangeWriter::sql() const {
    const std::string key = quotedName(m_table->rowKey);
    std::string changes;
    for (std::size_t column = 0; column < m_fields.size(); ++column)
        changes += (column == 0 ? "" : ", ") + quotedName(m_table->columns[m_fields[column]].name) + " = " +
                   waitingValueName + "(" + key + ", " + std::to_string(column) + ")";
    std::string sql =
        "UPDATE " + quotedName(m_table->sqlName) + " SET " + changes + " WHERE " + key + " BETWEEN ? AND ?";
    const bool anyGap =
        m_rows.keys().back() - m_rows.keys().front() + 1 != static_cast<std::int64_t>(m_rows.rows());
    return anyGap ? sql + " AND " + isWaitingName + "(" + key + ")" : sql;
}

/// The rows come in the order of their keys, so the one wanted is mostly the one after the last.
bool RangeWriter::find(std::int64_t key) {
    const std::vector<std::int64_t>& keys = m_rows.keys();
    for (std::size_t next = m_at; next < std::min(m_at + 2, keys.size()); ++next) {
        if (keys[next] == key) {
            m_at = next;
            return true;
        }
    }
    const auto found = std::ranges::lower_bound(keys, key);
    if (found == keys.end() || *found != key)
        return false;
    m_at = static_cast<std::size_t>(found - keys.begin());
    return true;
}

void RangeWriter::isWaiting(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
    sqlite3_result_int(context, runOf(context).find(sqlite3_value_int64(arguments[0])) ? 1 : 0);
}

void RangeWriter::waitingValue(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
    auto& run = runOf(context);
    const auto column = static_cast<std::size_t>(sqlite3_value_int(arguments[1]));
    if (run.find(sqlite3_value_int64(arguments[0])))
        giveResult(context, run.m_rows.at(run.m_at, column));
    else // a row that nobody counted on must not lose its value
        sqlite3_result_error(context, "no such row waits to be written", -1);
}

} // namespace tol::data::sqlite
