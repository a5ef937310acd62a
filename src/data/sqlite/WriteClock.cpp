// SPDX-License-Identifier: MIT
#include "data/sqlite/WriteClock.h"

#include "data/sqlite/PendingWrites.h"

#include <algorithm>

namespace tol::data::sqlite {

WriteClock& WriteClock::instance() {
    static WriteClock clock;
    return clock;
}

void WriteClock::add(PendingWrites& writes) {
    remove(writes);
    m_held.push_back(&writes);
    findNextDue();
}

void WriteClock::remove(PendingWrites& writes) {
    std::erase(m_held, &writes);
    findNextDue();
}

void WriteClock::findNextDue() {
    m_nextDue = runtime::CoarseClock::time_point::max();
    for (const PendingWrites* writes : m_held)
        m_nextDue = std::min(m_nextDue, writes->heldSince() + period);
}

void WriteClock::commitDue(PendingWrites& caller, runtime::CoarseClock::time_point now) {
    const auto isDue = [&](const PendingWrites& writes) {
        return writes.isHeld() && !writes.isClosed() && writes.heldSince() + period <= now;
    };
    const auto held = m_held; // committing takes it out of the list
    for (PendingWrites* writes : held) {
        if (writes != &caller && isDue(*writes))
            writes->settleForOthers();
    }
    if (isDue(caller))
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
