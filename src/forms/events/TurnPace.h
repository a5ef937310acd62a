// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/CoarseClock.h"

#include <algorithm>
#include <chrono>

namespace tol::forms {

/// Says when a walk that yields at every row lets the event loop turn. A turn costs tens of microseconds,
/// a look at the clock next to nothing, so there are about 60 turns a second.
class TurnPace {
  public:
    using time_point = runtime::CoarseClock::time_point;
    using duration = runtime::CoarseClock::duration;

    static constexpr std::chrono::milliseconds turnEvery{16};
    /// A turn that paints much on a busy machine takes longer. Then there are fewer, so that they cost the
    /// walk about a twentieth of its time, but still enough for the window to be alive.
    static constexpr int walkPerTurn = 20;
    static constexpr std::chrono::milliseconds turnAtLatest{100};

    [[nodiscard]] bool isDue(time_point now) const { return now >= m_next; }

    /// A turn has ended now that took that long.
    void turned(time_point now, duration taken) {
        m_next = now + std::clamp<duration>(taken * walkPerTurn, turnEvery, turnAtLatest);
    }

  private:
    time_point m_next; ///< the clock's beginning: due at once
};

} // namespace tol::forms
