// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/Statement.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

struct sqlite3;

namespace tol::data::sqlite {

/// The one connection to a database file, for one thread. Waits for locks of others up to busyWait(),
/// then fails with 3218, and what is tried in the second after that fails at once. Texts can be collated as
/// TOLTEXT. The file must never be opened a second time in this process by other means: closing it again
/// would give up SQLite's locks.
class Connection {
  public:
    /// ReadOnly takes no change of the caller's. What a killed program left half done is undone all the
    /// same where the file can be written to: without that it can't be read.
    enum class Mode { ReadWrite, ReadOnly };

    Connection(std::filesystem::path file, Mode mode);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }
    /// Whether changes are refused: because they are not wanted, or because the file can't be written to.
    [[nodiscard]] bool isReadOnly() const;
    [[nodiscard]] sqlite3* handle() const { return m_handle; }

    /// Runs one or more statements that give no rows.
    void execute(const std::string& sql);
    /// The same; false, with nothing changed, when SQLite finds that what the statement asks for can't be.
    bool tryExecute(const std::string& sql);
    /// The first column of the first row as a number, or as a text; 0 and "" when there is no row.
    std::int64_t number(std::string_view sql);
    std::string text(std::string_view sql);

    /// A prepared statement out of the cache, given back (reset, with its parameters cleared) when it
    /// goes out of scope.
    class Cached {
      public:
        Cached(Connection& connection, std::string sql);
        Cached(const Cached&) = delete;
        Cached& operator=(const Cached&) = delete;
        ~Cached();
        Statement* operator->() { return &m_statement; }
        Statement& operator*() { return m_statement; }

      private:
        Connection& m_connection;
        std::string m_sql;
        Statement m_statement;
    };
    Cached cached(std::string sql) { return {*this, std::move(sql)}; }
    /// The usual case of it: bind, run, done.
    template <typename... Values>
    void run(std::string sql, const Values&... values) {
        Cached statement(*this, std::move(sql));
        statement->bindAll(values...);
        statement->run();
    }

    [[nodiscard]] std::int64_t lastInsertRowId() const;
    [[nodiscard]] std::int64_t changes() const;
    [[nodiscard]] bool inTransaction() const;

    [[nodiscard]] std::chrono::milliseconds busyWait() const { return m_busyWait; }
    void setBusyWait(std::chrono::milliseconds wait) {
        m_busyWait = wait;
        m_gaveUp = {};
    }
    /// Called again and again while a lock of another process is waited for. It must not throw and must
    /// not use this connection.
    void setWaitObserver(std::function<void()> observer) { m_waitObserver = std::move(observer); }

    /// Throws what SQLite reported last on this connection.
    [[noreturn]] void fail(int resultCode);

  private:
    static int waitForLock(void* self, int turn);
    void open();

    std::filesystem::path m_file;
    Mode m_mode;
    sqlite3* m_handle = nullptr;
    std::chrono::milliseconds m_busyWait{5000};
    std::chrono::steady_clock::time_point m_waitUntil;
    std::chrono::steady_clock::time_point m_gaveUp;
    std::function<void()> m_waitObserver;
    std::unordered_map<std::string, Statement> m_cache;
};

/// A yes-or-no PRAGMA of a connection that is switched on while this lives, and set back afterwards.
class PragmaFlag {
  public:
    PragmaFlag(Connection& connection, const std::string& name);
    PragmaFlag(const PragmaFlag&) = delete;
    PragmaFlag& operator=(const PragmaFlag&) = delete;
    ~PragmaFlag();

  private:
    Connection& m_connection;
    std::string m_pragma;
    bool m_wasOn;
};

} // namespace tol::data::sqlite
