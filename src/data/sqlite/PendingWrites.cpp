// SPDX-License-Identifier: MIT
#include "data/sqlite/PendingWrites.h"

#include "data/sqlite/WriteClock.h"
#include "runtime/OwedErrors.h"
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
    m_lost = false;
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
    if (std::exchange(m_lost, false))
        return;
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
    } catch (...) {
        // Also where someone reads and keeps reading: a change that is told as failed must not take place
        // later, and nobody else could begin to read while it is tried.
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
    m_lost = m_depth > 0;
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
        runtime::owe(std::current_exception(), m_connection.file().native());
    }
}

void PendingWrites::raiseOwed() {
    if (runtime::anyOwed())
        runtime::raiseOwed(m_connection.file().native());
}

} // namespace tol::data::sqlite
