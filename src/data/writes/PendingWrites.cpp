// SPDX-License-Identifier: MIT
#include "data/writes/PendingWrites.h"

#include "runtime/DeferredErrors.h"
#include "runtime/RuntimeError.h"

#include <chrono>
#include <thread>
#include <utility>

namespace tol::data {
namespace {

/// A run that takes the write lock again as soon as it has committed would let nobody in: others ask for it
/// every millisecond.
constexpr std::chrono::milliseconds pauseBetweenRuns{2};

} // namespace

PendingWrites::~PendingWrites() {
    leadBatch(false);
    m_clock.remove(*this);
}

void PendingWrites::leadBatch(bool lead) {
    if (lead || m_clock.isLog(*this))
        m_clock.setLog(lead ? this : nullptr);
}

/// Decides in which transaction the next change takes place: in one of its own when it leaves none open.
void PendingWrites::prepare(Transactions::Lock lock) {
    raiseDeferred();
    const auto now = m_clock.now();
    m_clock.tick(*this, now);
    if (m_depth == 0 && !m_held && (m_clock.inBatch() || now < m_lastWrite + m_clock.holdTime()))
        hold(lock);
}

void PendingWrites::hold(Transactions::Lock lock) {
    if (m_clock.now() < m_lastRun + pauseBetweenRuns)
        std::this_thread::sleep_for(pauseBetweenRuns);
    m_transactions.begin(lock);
    m_held = true;
    m_heldSince = m_clock.now();
    m_logLosses = m_clock.logLosses();
    m_clock.add(*this);
    m_transactions.began();
}

/// Who reads a file and goes on reading keeps its changes from being committed. In a batch that would come
/// out long after a step; so readers are met before it. The log, which every step needs, is left to them.
Transactions::Lock PendingWrites::lockForStep() const {
    const bool meetReaders = m_clock.inBatch() && !m_clock.isLog(*this);
    return meetReaders ? Transactions::Lock::Exclusive : Transactions::Lock::Write;
}

void PendingWrites::writeStep(const std::function<void()>& change) {
    prepare(lockForStep());
    const bool alone = m_depth == 0 && !m_held;
    if (alone)
        hold(Transactions::Lock::Write);
    auto step = [&] {
        const Closed closed(*this);
        m_transactions.setSavepoint();
        try {
            change();
        } catch (...) {
            if (m_transactions.isOpen())
                m_transactions.rollBackToSavepoint();
            throw;
        }
        m_transactions.releaseSavepoint();
    };
    try {
        guarded(step);
    } catch (...) {
        if (alone && m_held)
            undoHeld();
        throw;
    }
    if (alone)
        commitHeld();
}

void PendingWrites::begin() {
    m_lost = false;
    if (m_clock.inBatch())
        prepare(lockForStep());
    else if (m_depth == 0)
        flush();
    else
        raiseDeferred();
    if (m_depth > 0 || m_held) {
        m_transactions.setSavepoint();
    } else {
        m_transactions.begin(Transactions::Lock::Write);
        m_transactions.began();
    }
    ++m_depth;
}

void PendingWrites::commit() {
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    if (m_depth > 1 || m_held) {
        m_transactions.releaseSavepoint();
        --m_depth;
        return;
    }
    auto commit = [&] { m_transactions.commit(); };
    guarded(commit);
    m_depth = 0;
    m_transactions.ended(true);
}

void PendingWrites::rollback() {
    if (std::exchange(m_lost, false))
        return;
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    if (--m_depth > 0 || m_held)
        m_transactions.rollBackToSavepoint();
    else
        m_transactions.rollback();
    m_transactions.ended(false);
}

void PendingWrites::flush() {
    raiseDeferred();
    if (isCommittable())
        commitHeld();
}

void PendingWrites::commitHeld() {
    try {
        storeLog();
        m_transactions.commit();
    } catch (...) {
        // Also where someone reads and keeps reading: a change that is told as failed must not take place
        // later, and nobody else could begin to read while it is tried.
        undoHeld();
        throw;
    }
    letGo();
    m_transactions.ended(true);
}

void PendingWrites::letGo() {
    m_held = false;
    m_lastWrite = m_lastRun = m_clock.now();
    m_clock.remove(*this);
}

void PendingWrites::storeLog() {
    try {
        m_clock.storeLogBefore(*this, m_logLosses);
    } catch (const runtime::RuntimeError& error) {
        throw runtime::RuntimeError(error.number(),
                                    error.description() + " What was changed last in '" +
                                        m_transactions.file() + "' is undone.",
                                    error.engineText());
    }
}

/// To be called in the handler of the error that is the reason.
void PendingWrites::undoHeld() {
    if (m_clock.isLog(*this))
        m_clock.lostLog();
    if (m_transactions.isOpen())
        m_transactions.rollback();
    letGo();
    m_transactions.ended(false);
}

/// The engine may have ended the whole transaction itself.
void PendingWrites::noticeLoss() {
    if ((m_depth == 0 && !m_held) || m_transactions.isOpen())
        return;
    m_lost = m_depth > 0;
    m_depth = 0;
    if (m_held)
        undoHeld();
    else
        m_transactions.ended(false);
}

void PendingWrites::flushOrDefer() noexcept {
    try {
        if (isWhole())
            commitHeld();
    } catch (...) {
        runtime::deferError(std::current_exception(), m_transactions.file());
    }
}

void PendingWrites::waitForLock() {
    const Closed closed(*this);
    m_clock.flushOthers(*this);
}

void PendingWrites::raiseDeferred() {
    if (runtime::anyDeferred())
        runtime::raiseDeferred(m_transactions.file());
}

} // namespace tol::data
