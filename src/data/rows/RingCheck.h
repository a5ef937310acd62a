// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/StoredValue.h"

#include <vector>

namespace tol::data {

/// Notices that a walk goes round in a ring, as one by a damaged index may. Each position is compared with
/// one that was passed before, a mark that is set anew after 1, 2, 4, ... positions: a ring is found before
/// it has been gone round three times, and nothing but the mark has to be kept.
class RingCheck {
  public:
    /// A walk begins, or turns.
    void start() { *this = RingCheck(); }
    /// The walk goes on from this position. Whether it has been there before.
    bool wasThere(const std::vector<KeptValue>& position) {
        if (position == m_mark)
            return true;
        if (--m_untilNext == 0) {
            m_mark = position;
            m_untilNext = m_stride *= 2;
        }
        return false;
    }

  private:
    std::vector<KeptValue> m_mark;
    std::size_t m_stride = 1;
    std::size_t m_untilNext = 1;
};

} // namespace tol::data
