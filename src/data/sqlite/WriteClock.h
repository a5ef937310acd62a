// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/CoarseClock.h"

#include <chrono>
#include <vector>

namespace tol::data::sqlite {

class PendingWrites;

/// The clock by which held changes are committed: no file is kept from other machines for much longer
/// than one period. There is one for the process. It has no thread of its own: every call to any open
/// file looks at it, and the program settles before each wait.
class WriteClock {
  public:
    static constexpr std::chrono::milliseconds period{50};

    static WriteClock& instance();

    /// To be called when a transaction begins to be held, or is held on, and when it ends.
    void add(PendingWrites& writes);
    void remove(PendingWrites& writes);

    /// Commits what is due. A failure of the caller's own file is raised here.
    void tick(PendingWrites& caller, runtime::CoarseClock::time_point now) {
        if (now >= m_nextDue)
            commitDue(caller, now);
    }
    /// Commits all others at once: who waits for a lock must not keep others waiting.
    void settleOthers(const PendingWrites& waiting);

  private:
    void commitDue(PendingWrites& caller, runtime::CoarseClock::time_point now);
    void findNextDue();

    std::vector<PendingWrites*> m_held;
    runtime::CoarseClock::time_point m_nextDue = runtime::CoarseClock::time_point::max();
};

} // namespace tol::data::sqlite
