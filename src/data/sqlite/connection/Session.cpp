// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/Session.h"

#include "data/engine/FileError.h"
#include "data/sqlite/connection/FileFormat.h"
#include "data/writes/WriteClock.h"

namespace tol::data::sqlite {
namespace {

constexpr std::chrono::milliseconds lookPeriod{1};

} // namespace

Session::Session(std::filesystem::path file, Connection::Mode mode)
    : m_lockFile(file),
      m_connection(std::move(file), mode),
      m_writes(*this),
      m_changedRows(m_connection),
      m_dataVersion(m_connection, "PRAGMA data_version") {
    m_connection.setWaitObserver([this] { m_writes.waitForLock(); });
    if (!m_connection.isReadOnly() && !m_lockFile.enter())
        throw fileError(runtime::errFileInUse, m_connection.file());
    checkFile(m_connection);
    look();
}

Session::~Session() {
    m_writes.flushOrDefer();
}

void Session::begin(Lock lock) {
    m_connection.run(lock == Lock::Exclusive ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE");
}

void Session::commit() {
    writeChangedRows();
    m_connection.run("COMMIT");
}

void Session::rollback() {
    m_connection.run("ROLLBACK");
}

/// SQLite means the savepoint set last of those that have the name.
void Session::setSavepoint() {
    writeChangedRows();
    m_connection.run("SAVEPOINT inner");
}

void Session::releaseSavepoint() {
    writeChangedRows();
    m_connection.run("RELEASE inner");
}

void Session::rollBackToSavepoint() {
    m_connection.execute("ROLLBACK TO inner; RELEASE inner");
}

bool Session::isOpen() const {
    return m_connection.inTransaction();
}

const std::string& Session::file() const {
    return m_connection.file().native();
}

void Session::began() {
    look();
}

void Session::ended(bool committed) {
    if (!committed) {
        m_changedRows.discard();
        ++m_others;
    }
    if (m_transactionEnd)
        m_transactionEnd(committed);
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
void Session::writeWaitingRows() {
    try {
        m_writes.proceed([this] { m_changedRows.write(); });
    } catch (...) {
        ++m_others;
        throw;
    }
}

} // namespace tol::data::sqlite
