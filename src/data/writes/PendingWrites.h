// SPDX-License-Identifier: MIT
#pragma once

#include "data/writes/Transactions.h"
#include "data/writes/WriteClock.h"

#include <cstdint>
#include <functional>

namespace tol::data {

/// The transaction in which a file's changes wait. A lone change commits at once. Changes that follow
/// each other sooner than the clock lets wait are a run: they are held in one transaction, which the clock
/// commits. A transaction asked for by the caller is left to him. In a batch of the clock all changes are
/// held, those of the caller's transactions too once he has committed them. A change that fails undoes itself
/// and nothing before it. A commit that fails, for whatever reason, undoes what it was to commit; so may the
/// engine itself where a disk is full or failing. The error that tells so is raised, or deferred.
class PendingWrites {
  public:
    explicit PendingWrites(Transactions& transactions, WriteClock& clock = WriteClock::instance())
        : m_transactions(transactions), m_clock(clock) {}
    PendingWrites(const PendingWrites&) = delete;
    PendingWrites& operator=(const PendingWrites&) = delete;
    ~PendingWrites();

    /// A change of one statement.
    template <typename Change>
    void write(Change&& change) {
        prepare(Transactions::Lock::Write);
        guarded(change);
    }
    /// More of a change within the transaction that is open.
    template <typename Change>
    void proceed(Change&& change) {
        guarded(change);
    }
    /// A change of several statements that takes place as a whole or not at all.
    void writeStep(const std::function<void()>& change);

    /// Transactions of the caller; they may be nested. A rollback of one that the engine gave up does
    /// nothing.
    void begin();
    void commit();
    void rollback();

    /// Commits what is held. Nothing happens to a transaction of the caller's.
    void flush();
    /// The same where nothing can be raised: a failure is deferred, and raised by the file's next change.
    void flushOrDefer() noexcept;
    [[nodiscard]] bool isHeld() const { return m_held; }
    [[nodiscard]] WriteClock::time_point heldSince() const { return m_heldSince; }
    /// Whether a transaction is held that may be committed now: neither a step nor a transaction of the
    /// caller's is under way in it, no lock is waited for, and the log of a batch can be stored before.
    [[nodiscard]] bool isCommittable() const { return isWhole() && m_clock.mayStore(*this); }
    /// From now on, or no longer, leads a batch as its log.
    void leadBatch(bool lead);
    /// To be called while a lock of another process is waited for: keeps no other file from others.
    void waitForLock();

  private:
    /// Keeps everyone from committing while it lives.
    class Closed {
      public:
        explicit Closed(PendingWrites& writes) : m_writes(writes) { ++m_writes.m_closed; }
        Closed(const Closed&) = delete;
        Closed& operator=(const Closed&) = delete;
        ~Closed() { --m_writes.m_closed; }

      private:
        PendingWrites& m_writes;
    };

    [[nodiscard]] bool isWhole() const { return m_held && m_closed == 0 && m_depth == 0; }
    void prepare(Transactions::Lock lock);
    void hold(Transactions::Lock lock);
    [[nodiscard]] Transactions::Lock lockForStep() const;
    void storeLog();
    void commitHeld();
    void letGo();
    void undoHeld();
    void raiseDeferred();
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
            m_lastWrite = m_clock.now();
    }

    Transactions& m_transactions;
    WriteClock& m_clock;
    bool m_held = false;
    bool m_lost = false; ///< the engine gave the caller's transaction up
    int m_depth = 0;
    int m_closed = 0;
    std::uint64_t m_logLosses = 0; ///< of the clock's log when it began to be held
    WriteClock::time_point m_heldSince;
    WriteClock::time_point m_lastWrite = WriteClock::time_point::min();
    WriteClock::time_point m_lastRun = WriteClock::time_point::min();
};

} // namespace tol::data
