// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"
#include "runtime/CoarseClock.h"

#include <functional>
#include <string>

namespace tol::data::sqlite {

/// The transaction in which a file's changes wait. A lone change commits at once. Changes that follow
/// each other within WriteClock::period are a run: they are held in one transaction, which the clock
/// commits. A transaction asked for by the caller is left to him. A change that fails undoes itself and
/// nothing before it. A commit that fails, for whatever reason, undoes what it was to commit; so may SQLite
/// itself where a disk is full or failing. The error that tells so is raised, or owed, and the listener hears
/// of the rollback.
class PendingWrites {
  public:
    /// What the owner does at certain moments of a transaction.
    struct Listener {
        std::function<void()> holding;    ///< a run is about to take the write lock (again)
        std::function<void()> began;      ///< a transaction of more than one statement has begun
        std::function<void()> complete;   ///< what still waits to be written must be in it now
        std::function<void()> committed;  ///< it has ended
        std::function<void()> rolledBack; ///< it has ended, or a part of it, and left nothing
        std::function<void()> wishOver;   ///< the write lock has been got, or given up
    };

    explicit PendingWrites(Connection& connection);
    PendingWrites(const PendingWrites&) = delete;
    PendingWrites& operator=(const PendingWrites&) = delete;
    /// Commits what is held, gives up a transaction of the caller's.
    ~PendingWrites();

    void setListener(Listener listener) { m_listener = std::move(listener); }

    /// A change of one statement.
    template <typename Change>
    void write(Change&& change) {
        prepare();
        const Wish wish(*this);
        guarded(change);
    }
    /// More of a change within the transaction that is open.
    template <typename Change>
    void proceed(Change&& change) {
        guarded(change);
    }
    /// A change of several statements that takes place as a whole or not at all.
    void writeStep(const std::function<void()>& change);

    /// Transactions of the caller; they may be nested. A rollback of one that SQLite gave up does nothing.
    void begin();
    void commit();
    void rollback();

    /// Commits what is held. Nothing happens to a transaction of the caller's.
    void settle();
    [[nodiscard]] bool isHeld() const { return m_held; }
    [[nodiscard]] runtime::CoarseClock::time_point heldSince() const { return m_heldSince; }

    /// For the clock, when another file's call made it commit: a failure is owed, and raised by the next
    /// change of this file.
    void settleForOthers() noexcept;
    /// Keeps everyone from committing in the middle of a step, or while a lock is waited for.
    class Closed {
      public:
        explicit Closed(PendingWrites& writes) : m_writes(writes) { ++m_writes.m_closed; }
        Closed(const Closed&) = delete;
        Closed& operator=(const Closed&) = delete;
        ~Closed() { --m_writes.m_closed; }

      private:
        PendingWrites& m_writes;
    };
    [[nodiscard]] bool isClosed() const { return m_closed > 0; }
    /// Whether what runs now may have to wait for the write lock.
    [[nodiscard]] bool wantsWriteLock() const { return m_wishes > 0; }

  private:
    /// Counts as wanting the write lock while it lives.
    class Wish {
      public:
        explicit Wish(PendingWrites& writes) : m_writes(writes) { ++m_writes.m_wishes; }
        Wish(const Wish&) = delete;
        Wish& operator=(const Wish&) = delete;
        ~Wish() {
            if (--m_writes.m_wishes == 0 && m_writes.m_listener.wishOver)
                m_writes.m_listener.wishOver();
        }

      private:
        PendingWrites& m_writes;
    };

    void prepare();
    void takeWriteLock();
    void hold();
    void commitHeld();
    void letGo();
    void undoHeld();
    void raiseOwed();
    void noticeLoss();
    template <typename Change>
    void guarded(Change& change) {
        try {
            change();
        } catch (...) {
            noticeLoss();
            throw;
        }
        if (!m_held)
            m_lastWrite = runtime::CoarseClock::now();
    }

    Connection& m_connection;
    Listener m_listener;
    bool m_held = false;
    bool m_lost = false; ///< SQLite gave the caller's transaction up
    int m_depth = 0;
    int m_wishes = 0;
    int m_closed = 0;
    runtime::CoarseClock::time_point m_heldSince;
    runtime::CoarseClock::time_point m_lastWrite = runtime::CoarseClock::time_point::min();
};

} // namespace tol::data::sqlite
