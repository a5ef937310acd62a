// SPDX-License-Identifier: MIT
#include "data/sqlite/PendingWrites.h"

#include "data/sqlite/WriteClock.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data::sqlite {
namespace {

std::string savepoint(int depth) {
    return "caller" + std::to_string(depth);
}

void call(const std::function<void()>& function) {
    if (function)
        function();
}

} // namespace

PendingWrites::PendingWrites(Connection& connection) : m_connection(connection) {}

PendingWrites::~PendingWrites() {
    m_listener = {};
    settleForOthers();
    WriteClock::instance().remove(*this);
}

/// Decides in which transaction the next change takes place.
void PendingWrites::prepare() {
    raiseOwed();
    const auto now = runtime::CoarseClock::now();
    WriteClock::instance().tick(*this, now);
    if (m_depth == 0 && !m_held && now < m_lastWrite + WriteClock::period)
        hold();
}

void PendingWrites::takeWriteLock() {
    const Wish wish(*this);
    m_connection.run("BEGIN IMMEDIATE");
}

void PendingWrites::hold() {
    call(m_listener.holding);
    takeWriteLock();
    m_held = true;
    m_heldSince = runtime::CoarseClock::now();
    WriteClock::instance().add(*this);
    call(m_listener.began);
}

void PendingWrites::writeStep(const std::function<void()>& change) {
    prepare();
    const bool alone = m_depth == 0 && !m_held;
    if (alone)
        hold();
    auto step = [&] {
        const Closed closed(*this);
        call(m_listener.complete);
        m_connection.run("SAVEPOINT step");
        try {
            change();
        } catch (...) {
            if (m_connection.inTransaction())
                m_connection.execute("ROLLBACK TO step; RELEASE step");
            throw;
        }
        m_connection.run("RELEASE step");
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
    raiseOwed();
    if (m_depth == 0) {
        settle();
        takeWriteLock();
        call(m_listener.began);
    } else {
        call(m_listener.complete);
        m_connection.run("SAVEPOINT " + savepoint(m_depth));
    }
    ++m_depth;
}

void PendingWrites::commit() {
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    call(m_listener.complete);
    if (m_depth > 1) {
        m_connection.run("RELEASE " + savepoint(m_depth - 1));
        --m_depth;
        return;
    }
    auto commit = [&] { m_connection.run("COMMIT"); };
    guarded(commit);
    m_depth = 0;
    call(m_listener.committed);
}

void PendingWrites::rollback() {
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    if (--m_depth > 0) {
        m_connection.execute("ROLLBACK TO " + savepoint(m_depth) + "; RELEASE " + savepoint(m_depth));
    } else {
        m_connection.run("ROLLBACK");
    }
    call(m_listener.rolledBack);
}

void PendingWrites::settle() {
    raiseOwed();
    if (m_held)
        commitHeld();
}

void PendingWrites::commitHeld() {
    try {
        call(m_listener.complete);
        m_connection.run("COMMIT");
    } catch (const runtime::RuntimeError& error) {
        // Someone reads and keeps reading: the changes are still there, and the next turn tries again.
        if (error.number() == runtime::errRowLocked && m_connection.inTransaction()) {
            m_heldSince = runtime::CoarseClock::now();
            WriteClock::instance().add(*this);
            throw;
        }
        undoHeld();
        throw;
    }
    letGo();
    call(m_listener.committed);
}

void PendingWrites::letGo() {
    m_held = false;
    m_lastWrite = runtime::CoarseClock::now();
    WriteClock::instance().remove(*this);
}

void PendingWrites::undoHeld() {
    if (m_connection.inTransaction())
        m_connection.run("ROLLBACK");
    letGo();
    call(m_listener.rolledBack);
}

/// SQLite ends the whole transaction itself after some failures.
void PendingWrites::noticeLoss() {
    if ((m_depth == 0 && !m_held) || m_connection.inTransaction())
        return;
    m_depth = 0;
    if (m_held)
        letGo();
    call(m_listener.rolledBack);
}

void PendingWrites::settleForOthers() noexcept {
    try {
        if (m_held)
            commitHeld();
    } catch (...) {
        if (!m_held) // else they only wait for their next turn
            m_owed = std::current_exception();
    }
}

void PendingWrites::raiseOwed() {
    if (m_owed)
        std::rethrow_exception(std::exchange(m_owed, nullptr));
}

} // namespace tol::data::sqlite
