// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"
#include "data/sqlite/LockFile.h"
#include "data/sqlite/PendingWrites.h"
#include "data/sqlite/Physical.h"
#include "data/sqlite/UpdateRun.h"
#include "runtime/CoarseClock.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tol::data::sqlite {

/// What all users of a table in this process share about it.
struct TableState {
    std::shared_ptr<const PhysicalTable> table;
    std::uint64_t changes = 0;         ///< grows with each change of a row
    std::optional<std::int64_t> count; ///< of its rows, while Session::others() is countedAt
    std::uint64_t countedAt = 0;
    int uses = 0; ///< open recordsets
};

/// What a store and its cursors share: the connection, the pending writes, and the knowledge whether
/// anybody else has changed the file.
class Session {
  public:
    Session(std::filesystem::path file, Connection::Mode mode);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    /// Commits what is held.
    ~Session();

    [[nodiscard]] Connection& connection() { return m_connection; }
    [[nodiscard]] PendingWrites& writes() { return m_writes; }
    [[nodiscard]] LockFile& lockFile() { return m_lockFile; }

    [[nodiscard]] UpdateRun& updates() { return m_updates; }
    /// Writes the updates that wait; to be called before rows are read from the file.
    void writeUpdates() {
        if (!m_updates.isEmpty())
            writeWaitingUpdates();
    }

    enum class Look { WhenDue, AtOnce };
    /// To be called first by every call from above: commits what is due, and looks for changes of
    /// others, at once or at most every millisecond.
    void enter(Look look = Look::WhenDue);
    /// Keeps the file locked for reading while it lives, so that several queries lock it but once.
    class Reading {
      public:
        explicit Reading(Session& session) : m_statement(session.m_dataVersion) { m_statement.step(); }
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;
        ~Reading() { m_statement.reset(); }

      private:
        Statement& m_statement;
    };
    /// Grows with each change that may concern any row of any table: one by another connection, or a
    /// rollback.
    [[nodiscard]] std::uint64_t others() const { return m_others; }
    void changedAnything() { ++m_others; }

    /// Called after each transaction of several statements; true when it was committed.
    void setTransactionEnd(std::function<void(bool)> end) { m_transactionEnd = std::move(end); }

  private:
    void listen();
    void look();
    void writeWaitingUpdates();
    void waitForLock();
    void giveWay();
    void stopWaiting();

    LockFile m_lockFile;
    bool m_waitShown = false; ///< others are told that this process waits for the write lock
    Connection m_connection;
    PendingWrites m_writes;
    UpdateRun m_updates;
    Statement m_dataVersion;
    std::int64_t m_seenVersion = 0;
    std::uint64_t m_others = 0;
    runtime::CoarseClock::time_point m_nextLook;
    std::function<void(bool)> m_transactionEnd;
};

} // namespace tol::data::sqlite
