// SPDX-License-Identifier: MIT
#include "data/writes/WriteClock.h"

#include "data/writes/PendingWrites.h"

#include <algorithm>

namespace tol::data {

WriteClock& WriteClock::instance() {
    static WriteClock clock;
    return clock;
}

WriteClock::duration WriteClock::holdTime() const {
    const duration least = inBatch() ? batchPeriod : period;
    return std::clamp<duration>(4 * m_lastCommit, least, longestPeriod);
}

void WriteClock::add(PendingWrites& writes) {
    m_held.push_back(&writes);
    findNextDue();
}

void WriteClock::remove(PendingWrites& writes) {
    std::erase(m_held, &writes);
    findNextDue();
}

void WriteClock::findNextDue() {
    m_nextDue = time_point::max();
    for (const PendingWrites* writes : m_held)
        m_nextDue = std::min(m_nextDue, writes->heldSince() + holdTime());
}

/// A copy: committing takes files out of the list.
std::vector<PendingWrites*> WriteClock::heldLogFirst() const {
    auto held = m_held;
    std::ranges::stable_partition(held, [this](const PendingWrites* writes) { return isLog(*writes); });
    return held;
}

void WriteClock::commitAll(PendingWrites& caller) {
    struct Timing {
        WriteClock& clock;
        std::size_t held = clock.m_held.size();
        time_point start = clock.now();
        ~Timing() {
            if (clock.m_held.size() < held) // what is due may be the caller's own transaction
                clock.m_lastCommit = clock.now() - start;
        }
    };
    const Timing timing{*this};
    for (PendingWrites* writes : heldLogFirst()) {
        if (writes == &caller)
            caller.flush();
        else if (writes->isCommittable())
            writes->flushOrDefer();
    }
}

void WriteClock::flushOthers(const PendingWrites& waiting) {
    for (PendingWrites* writes : heldLogFirst()) {
        if (writes != &waiting && writes->isCommittable())
            writes->flushOrDefer();
    }
}

bool WriteClock::mayStore(const PendingWrites& writes) const {
    return !inBatch() || isLog(writes) || !m_log->isHeld() || m_log->isCommittable();
}

void WriteClock::storeLogBefore(const PendingWrites& writes, std::uint64_t losses) {
    if (!inBatch() || isLog(writes))
        return;
    if (losses != m_logLosses)
        std::rethrow_exception(m_logLoss);
    m_log->flush();
}

void WriteClock::lostLog() {
    m_logLoss = std::current_exception();
    ++m_logLosses;
}

} // namespace tol::data
