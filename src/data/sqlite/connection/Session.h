// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/Connection.h"
#include "data/sqlite/connection/LockFile.h"
#include "data/sqlite/rows/RangeWriter.h"
#include "data/writes/PendingWrites.h"
#include "runtime/CoarseClock.h"

#include <cstdint>
#include <functional>

namespace tol::data::sqlite {

/// What a store and its cursors share: the connection, the pending writes, and the knowledge whether
/// anybody else has changed the file.
class Session : private Transactions {
  public:
    Session(std::filesystem::path file, Connection::Mode mode);
    /// Commits what is held.
    ~Session() override;

    [[nodiscard]] Connection& connection() { return m_connection; }
    [[nodiscard]] PendingWrites& writes() { return m_writes; }
    [[nodiscard]] LockFile& lockFile() { return m_lockFile; }

    [[nodiscard]] RangeWriter& changedRows() { return m_changedRows; }
    /// Writes the changes of rows that wait; to be called before the file is read or written otherwise.
    void writeChangedRows() {
        if (!m_changedRows.isEmpty())
            writeWaitingRows();
    }

    using Look = RowSource::Look;
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

    /// Called when a transaction has ended, committed or not, or when a part of one has been undone.
    void setTransactionEnd(std::function<void(bool)> end) { m_transactionEnd = std::move(end); }

  private:
    void begin(Lock lock) override;
    void commit() override;
    void rollback() override;
    void setSavepoint() override;
    void releaseSavepoint() override;
    void rollBackToSavepoint() override;
    [[nodiscard]] bool isOpen() const override;
    [[nodiscard]] const std::string& file() const override;
    void began() override;
    void ended(bool committed) override;

    void look();
    void writeWaitingRows();

    LockFile m_lockFile;
    Connection m_connection;
    PendingWrites m_writes;
    RangeWriter m_changedRows;
    Statement m_dataVersion;
    std::int64_t m_seenVersion = 0;
    std::uint64_t m_others = 0;
    runtime::CoarseClock::time_point m_nextLook;
    std::function<void(bool)> m_transactionEnd;
};

} // namespace tol::data::sqlite
