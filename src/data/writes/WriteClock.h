// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/CoarseClock.h"

#include <chrono>
#include <cstdint>
#include <exception>
#include <vector>

namespace tol::data {

class PendingWrites;

/// The clock by which held changes are committed, those of all files together. There is one for the process.
/// It has no thread of its own: every call to any open file looks at it, and the program flushes before each
/// wait.
///
/// A batch is work on many files that may wait longer. It has a log: a file whose changes are stored before
/// those of any other, so that none is made of which the log does not tell. What the log loses, the files
/// changed since lose too.
class WriteClock {
  public:
    using time_point = runtime::CoarseClock::time_point;
    using duration = runtime::CoarseClock::duration;

    /// Changes are held so long at least, and in a batch; where the disk is slow four times as long as the
    /// last commit took, so that commits take a fifth of the time; and never longer than what a kill may
    /// cost, during which other processes are kept out.
    static constexpr std::chrono::milliseconds period{50};
    static constexpr std::chrono::milliseconds batchPeriod{500};
    static constexpr std::chrono::milliseconds longestPeriod{1000};

    static WriteClock& instance();
    /// Tests play the time.
    explicit WriteClock(time_point (*played)() = &runtime::CoarseClock::now) : m_now(played) {}

    [[nodiscard]] time_point now() const { return m_now(); }
    /// How long changes are held now.
    [[nodiscard]] duration holdTime() const;

    /// Begins a batch with that log, or ends it (null).
    void setLog(PendingWrites* log) { m_log = log; }
    [[nodiscard]] bool inBatch() const { return m_log != nullptr; }
    [[nodiscard]] bool isLog(const PendingWrites& writes) const { return m_log == &writes; }

    /// To be called when a transaction begins to be held, and when it ends.
    void add(PendingWrites& writes);
    void remove(PendingWrites& writes);

    /// Commits all when something is due. A failure of the caller's own file is raised here.
    void tick(PendingWrites& caller, time_point now) {
        if (now >= m_nextDue)
            commitAll(caller);
    }
    /// Commits all others at once: who waits for a lock must not keep others waiting.
    void flushOthers(const PendingWrites& waiting);

    /// Whether the log can be stored now, if it has to be stored before the file's changes.
    [[nodiscard]] bool mayStore(const PendingWrites& writes) const;
    /// Stores the log before that file's changes, which were held when it had had so many losses. Raises why
    /// it can't be stored, or was lost meanwhile.
    void storeLogBefore(const PendingWrites& writes, std::uint64_t losses);
    /// To be called in the handler of the error that took the log's changes.
    void lostLog();
    [[nodiscard]] std::uint64_t logLosses() const { return m_logLosses; }

  private:
    void commitAll(PendingWrites& caller);
    void findNextDue();
    [[nodiscard]] std::vector<PendingWrites*> heldLogFirst() const;

    time_point (*m_now)();
    std::vector<PendingWrites*> m_held;
    time_point m_nextDue = time_point::max();
    duration m_lastCommit{0};
    PendingWrites* m_log = nullptr;
    std::uint64_t m_logLosses = 0;
    std::exception_ptr m_logLoss;
};

} // namespace tol::data
