// SPDX-License-Identifier: MIT
#include "data/sqlite/WriteClock.h"

#include "data/sqlite/PendingWrites.h"

namespace tol::data::sqlite {

WriteClock& WriteClock::instance() {
    static WriteClock clock;
    return clock;
}

void WriteClock::add(PendingWrites& writes) {
    m_held.push_back(&writes);
}

void WriteClock::remove(PendingWrites& writes) {
    std::erase(m_held, &writes);
}

void WriteClock::commitDue(PendingWrites& caller) {
    const auto due = std::chrono::steady_clock::now() - period;
    const auto held = m_held; // committing takes it out of the list
    for (PendingWrites* writes : held) {
        if (writes->heldSince() > due || writes->isClosed() || writes == &caller)
            continue;
        writes->settleForOthers();
    }
    if (caller.isHeld() && !caller.isClosed() && caller.heldSince() <= due)
        caller.settle();
}

void WriteClock::settleOthers(const PendingWrites& waiting) {
    const auto held = m_held;
    for (PendingWrites* writes : held) {
        if (writes != &waiting && !writes->isClosed())
            writes->settleForOthers();
    }
}

} // namespace tol::data::sqlite
