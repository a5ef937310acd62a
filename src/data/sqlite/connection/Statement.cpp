// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/Statement.h"

#include "data/sqlite/connection/Connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace tol::data::sqlite {
namespace {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string quoted(std::string_view text, char mark) {
    std::string result(1, mark);
    for (const char c : text) {
        result += c;
        if (c == mark)
            result += c;
    }
    return result += mark;
}

} // namespace

Statement::Statement(Connection& connection, std::string_view sql) : m_connection(&connection) {
    const int code = sqlite3_prepare_v3(connection.handle(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
    if (code != SQLITE_OK)
        connection.fail(code);
}

Statement::Statement(Statement&& other) noexcept
    : m_connection(other.m_connection), m_statement(std::exchange(other.m_statement, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
    std::swap(m_connection, other.m_connection);
    std::swap(m_statement, other.m_statement);
    return *this;
}

Statement::~Statement() {
    sqlite3_finalize(m_statement);
}

void Statement::check(int resultCode) {
    if (resultCode != SQLITE_OK)
        m_connection->fail(resultCode);
}

void Statement::bindNull(int parameter) {
    check(sqlite3_bind_null(m_statement, parameter));
}

void Statement::bind(int parameter, std::int64_t value) {
    check(sqlite3_bind_int64(m_statement, parameter, value));
}

void Statement::bind(int parameter, double value) {
    check(sqlite3_bind_double(m_statement, parameter, value));
}

void Statement::bind(int parameter, std::string_view text) {
    // A null pointer would bind Null, which an empty view may carry.
    check(sqlite3_bind_text64(m_statement, parameter, text.data() == nullptr ? "" : text.data(), text.size(),
                              SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::bind(int parameter, std::span<const std::byte> bytes) {
    if (bytes.empty())
        check(sqlite3_bind_zeroblob(m_statement, parameter, 0));
    else
        check(sqlite3_bind_blob64(m_statement, parameter, bytes.data(), bytes.size(), SQLITE_TRANSIENT));
}

bool Statement::step() {
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code == SQLITE_DONE) {
        reset();
        return false;
    }
    // The message must be read before the reset, which may clear it.
    try {
        m_connection->fail(code);
    } catch (...) {
        reset();
        throw;
    }
}

void Statement::run() {
    while (step()) {
    }
}

void Statement::reset() noexcept {
    if (m_statement != nullptr)
        sqlite3_reset(m_statement);
}

int Statement::columnCount() const {
    return sqlite3_column_count(m_statement);
}

std::string Statement::columnName(int column) const {
    return sqlite3_column_name(m_statement, column);
}

int Statement::type(int column) const {
    return sqlite3_column_type(m_statement, column);
}

bool Statement::isNull(int column) const {
    return type(column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(m_statement, column);
}

std::string_view Statement::text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    if (text == nullptr)
        return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

std::span<const std::byte> Statement::bytes(int column) const {
    const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(m_statement, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

std::string quotedName(std::string_view name) {
    return quoted(name, '"');
}

std::string quotedText(std::string_view text) {
    return quoted(text, '\'');
}

bool sameSqlName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

bool containsName(std::span<const std::string> names, std::string_view name) {
    return std::ranges::any_of(names, [name](const std::string& other) { return sameSqlName(other, name); });
}

std::string listed(std::span<const std::string> items) {
    std::string list;
    for (const std::string& item : items)
        list.append(list.empty() ? "" : ", ").append(item);
    return list;
}

} // namespace tol::data::sqlite
