// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/Connection.h"

#include "data/sqlite/connection/EngineError.h"
#include "data/sqlite/connection/TextCollation.h"

#include <sqlite3.h>

#include <thread>
#include <utility>

namespace tol::data::sqlite {
namespace {

/// More than that many kept statements are a sign of statements with literals in them.
constexpr std::size_t cacheLimit = 256;

/// A wait that begins so soon after one that failed is that one's continuation.
constexpr std::chrono::seconds waitGap{1};

} // namespace

Connection::Connection(std::filesystem::path file, Mode mode) : m_file(std::move(file)), m_mode(mode) {
    try {
        open();
    } catch (...) {
        sqlite3_close_v2(m_handle);
        throw;
    }
}

void Connection::open() {
    tellLimitsAsFullDisk();
    // A handle that may not write can't recover the file, and leaves a write-ahead log behind.
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int code = sqlite3_open_v2(m_file.c_str(), &m_handle, flags, nullptr);
    if (code != SQLITE_OK)
        fail(code);
    sqlite3_busy_handler(m_handle, &Connection::waitForLock, this);
    registerTextCollation(m_handle);
    // Of files that come from elsewhere: run no function or module that their schema names.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_ENABLE_FKEY, 0, nullptr);
    // An index on a column that is gone must not become one on a text.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    if (m_mode == Mode::ReadOnly)
        execute("PRAGMA query_only = ON");
}

Connection::~Connection() {
    m_cache.clear();
    sqlite3_close_v2(m_handle);
}

bool Connection::isReadOnly() const {
    return m_mode == Mode::ReadOnly || sqlite3_db_readonly(m_handle, "main") == 1;
}

void Connection::execute(const std::string& sql) {
    const int code = sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code);
}

bool Connection::tryExecute(const std::string& sql) {
    const int code = sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK && code != SQLITE_ERROR)
        fail(code);
    return code == SQLITE_OK;
}

std::int64_t Connection::number(std::string_view sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

std::string Connection::text(std::string_view sql) {
    Statement statement(*this, sql);
    return statement.step() ? std::string(statement.text(0)) : std::string();
}

std::int64_t Connection::lastInsertRowId() const {
    return sqlite3_last_insert_rowid(m_handle);
}

std::int64_t Connection::changes() const {
    return sqlite3_changes64(m_handle);
}

bool Connection::inTransaction() const {
    return sqlite3_get_autocommit(m_handle) == 0;
}

void Connection::fail(int resultCode) {
    if (m_handle == nullptr)
        throw engineError(SQLITE_CANTOPEN, sqlite3_errstr(resultCode), m_file);
    throw engineError(resultCode, sqlite3_errmsg(m_handle), m_file, sqlite3_system_errno(m_handle));
}

/// SQLite's own handler sleeps longer and longer, and then misses the moment between two commits of
/// another writer. Asking every millisecond does not. It is asked anew for each lock that a statement needs;
/// without a common end the waits for someone who keeps his lock would add up.
int Connection::waitForLock(void* self, int turn) {
    auto& connection = *static_cast<Connection*>(self);
    const auto now = std::chrono::steady_clock::now();
    if (turn == 0)
        connection.m_waitUntil = now < connection.m_gaveUp + waitGap ? now : now + connection.m_busyWait;
    if (connection.m_waitObserver)
        connection.m_waitObserver();
    if (now >= connection.m_waitUntil) {
        connection.m_gaveUp = now;
        return 0;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return 1;
}

Connection::Cached::Cached(Connection& connection, std::string sql)
    : m_connection(connection), m_sql(std::move(sql)) {
    const auto kept = connection.m_cache.find(m_sql);
    if (kept == connection.m_cache.end()) {
        m_statement = Statement(connection, m_sql);
        return;
    }
    m_statement = std::move(kept->second);
    connection.m_cache.erase(kept);
}

Connection::Cached::~Cached() {
    m_statement.reset();
    sqlite3_clear_bindings(m_statement.handle());
    if (m_connection.m_cache.size() >= cacheLimit)
        m_connection.m_cache.clear();
    m_connection.m_cache.insert_or_assign(std::move(m_sql), std::move(m_statement));
}

PragmaFlag::PragmaFlag(Connection& connection, const std::string& name)
    : m_connection(connection), m_pragma("PRAGMA " + name), m_wasOn(connection.number(m_pragma) != 0) {
    m_connection.execute(m_pragma + " = ON");
}

PragmaFlag::~PragmaFlag() {
    if (!m_wasOn)
        sqlite3_exec(m_connection.handle(), (m_pragma + " = OFF").c_str(), nullptr, nullptr, nullptr);
}

} // namespace tol::data::sqlite
