// SPDX-License-Identifier: MIT
#include "data/sqlite/Session.h"

#include "data/FileError.h"
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
      m_updates(m_connection),
      m_dataVersion(m_connection, "PRAGMA data_version") {
    if (!m_connection.isReadOnly() && !m_lockFile.enter())
        throw fileError(runtime::errFileInUse, m_connection.file());
    checkFile(m_connection);
    listen();
    look();
}

Session::~Session() {
    m_writes.settleForOthers();
}

void Session::listen() {
    const auto end = [this](bool committed) {
        if (m_transactionEnd)
            m_transactionEnd(committed);
    };
    m_writes.setListener({
        .holding = [this] { giveWay(); },
        .began = [this] { look(); },
        .complete = [this] { writeUpdates(); },
        .committed = [end] { end(true); },
        .rolledBack =
            [this, end] {
                m_updates.discard();
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

void Session::enter(Look wish) {
    const auto now = runtime::CoarseClock::now();
    WriteClock::instance().tick(m_writes, now);
    // In a transaction of our own nobody else can commit.
    if ((wish == Look::AtOnce || now >= m_nextLook) && !m_connection.inTransaction())
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
    m_nextLook = runtime::CoarseClock::now() + lookPeriod;
}

/// Should it fail, rows have been promised that are not there.
void Session::writeWaitingUpdates() {
    try {
        m_writes.proceed([this] { m_updates.write(); });
    } catch (...) {
        ++m_others;
        throw;
    }
}

} // namespace tol::data::sqlite
