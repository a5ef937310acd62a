// SPDX-License-Identifier: MIT
#include "data/sqlite/Session.h"

#include "data/sqlite/FileCheck.h"
#include "data/sqlite/WriteClock.h"

#include <thread>

namespace tol::data::sqlite {
namespace {

constexpr std::chrono::milliseconds lookPeriod{1};
constexpr int waysGiven = 20;

} // namespace

Session::Session(std::filesystem::path file, Connection::Mode mode)
    : m_lockFile(file),
      m_connection(std::move(file), mode),
      m_writes(m_connection),
      m_dataVersion(m_connection, "PRAGMA data_version") {
    checkFile(m_connection);
    listen();
    look();
}

void Session::listen() {
    const auto end = [this](bool committed) {
        if (m_transactionEnd)
            m_transactionEnd(committed);
    };
    m_writes.setListener({
        .holding = [this] { giveWay(); },
        .began = [this] { look(); },
        .committed = [end] { end(true); },
        .rolledBack =
            [this, end] {
                ++m_others;
                end(false);
            },
        .wishOver = [this] { stopWaiting(); },
    });
    m_connection.setWaitObserver([this] { waitForLock(); });
}

/// While it waits, no other file is kept from others, and a run of another process is asked to pause.
void Session::waitForLock() {
    if (m_writes.wantsWriteLock() && !m_waitShown) {
        m_lockFile.setWaiting(true);
        m_waitShown = true;
    }
    const PendingWrites::Closed closed(m_writes);
    WriteClock::instance().settleOthers(m_writes);
}

void Session::stopWaiting() {
    if (m_waitShown)
        m_lockFile.setWaiting(false);
    m_waitShown = false;
}

/// A run that takes the lock again as soon as it has committed would never let anybody in: others look
/// only every millisecond.
void Session::giveWay() {
    for (int turn = 0; turn < waysGiven && m_lockFile.anotherWaits(); ++turn)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void Session::enter() {
    WriteClock::instance().tick(m_writes);
    // In a transaction of our own nobody else can commit.
    if (!m_connection.inTransaction() && std::chrono::steady_clock::now() >= m_nextLook)
        look();
}

void Session::look() {
    m_dataVersion.step();
    const std::int64_t version = m_dataVersion.integer(0);
    m_dataVersion.reset();
    if (version != m_seenVersion) {
        m_seenVersion = version;
        ++m_others;
    }
    m_nextLook = std::chrono::steady_clock::now() + lookPeriod;
}

} // namespace tol::data::sqlite
