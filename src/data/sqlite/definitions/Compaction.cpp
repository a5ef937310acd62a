// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/Compaction.h"

#include "data/engine/StagedFile.h"
#include "data/sqlite/connection/Connection.h"
#include "data/sqlite/connection/EngineError.h"
#include "data/sqlite/connection/FileFormat.h"
#include "data/sqlite/connection/LockFile.h"
#include "data/sqlite/definitions/CatalogueReader.h"
#include "data/sqlite/definitions/SchemaSteps.h"

#include <sqlite3.h>

#include <string>
#include <system_error>

namespace tol::data::sqlite {
namespace {

namespace fs = std::filesystem;

/// Works on one file; every error names it, not the copy.
class Compaction {
  public:
    explicit Compaction(const fs::path& file)
        : m_file(fs::canonical(file)), m_lock(m_file), m_original(m_file, Connection::Mode::ReadWrite) {}
    void run();

  private:
    void takeAlone();
    void requireOneName() const;
    void requireSound(Connection& connection) const;
    void copy(Connection& from, const fs::path& to) const;
    void sweep(Connection& copy) const;
    void make(const StagedFile& staged);
    void restoreMode(Connection& made);
    [[nodiscard]] bool keepsLog();
    void endLog();

    fs::path m_file;
    LockFile m_lock;
    Connection m_original;
};

void Compaction::run() {
    takeAlone();
    requireOneName();
    requireSound(m_original);
    StagedFile staged(m_file);
    make(staged);
    endLog();
    staged.replace();
}

/// From the first read on, nobody else can read or write the file until the connection ends.
void Compaction::takeAlone() {
    if (m_original.isReadOnly())
        throw fileError(runtime::errReadOnly, m_file);
    if (!m_lock.takeAll())
        throw fileError(runtime::errFileInUse, m_file);
    m_original.execute("PRAGMA locking_mode = EXCLUSIVE");
    checkFile(m_original);
    configure(m_original);
    m_original.execute("BEGIN EXCLUSIVE; COMMIT");
}

void Compaction::requireOneName() const {
    if (fs::hard_link_count(m_file) > 1)
        throw withRemark(fileError(runtime::errFileInUse, m_file),
                         "It has a second name (a hard link), which would keep the old file.");
}

/// What a row breaks of another maker's rules is no damage.
void Compaction::requireSound(Connection& connection) const {
    const PragmaFlag unchecked(connection, "ignore_check_constraints");
    const std::string found = connection.text("PRAGMA integrity_check(1)");
    if (found != "ok")
        throw fileError(runtime::errCannotOpen, m_file, found);
}

/// Unlike VACUUM in place, VACUUM INTO keeps the row ids of all tables.
void Compaction::copy(Connection& from, const fs::path& to) const {
    from.run("VACUUM INTO ?", std::string_view(to.native()));
}

void Compaction::make(const StagedFile& staged) {
    const fs::path unswept = staged.folder() / "unswept";
    copy(m_original, unswept);
    try {
        {
            Connection copied(unswept, Connection::Mode::ReadWrite);
            sweep(copied);
            copy(copied, staged.path());
        }
        Connection made(staged.path(), Connection::Mode::ReadWrite);
        requireSound(made);
        restoreMode(made);
    } catch (const runtime::RuntimeError& error) {
        // What is wrong with the copy was wrong with the file; nobody knows the copy's name.
        throw fileError(static_cast<runtime::ErrorNumber>(error.number()), m_file, error.engineText());
    }
}

void Compaction::sweep(Connection& copy) const {
    SchemaSteps steps(copy);
    copy.execute("BEGIN");
    for (const StoredTable& table : CatalogueReader(copy).tables()) {
        if (table.hiddenColumns > 0)
            steps.removeHiddenColumns(table);
    }
    copy.execute("COMMIT");
}

/// A file that keeps a write-ahead log goes on doing so.
void Compaction::restoreMode(Connection& made) {
    if (keepsLog())
        made.text("PRAGMA journal_mode = WAL");
}

bool Compaction::keepsLog() {
    return m_original.text("PRAGMA journal_mode") == "wal";
}

/// The log of the old file must not be taken for the new one's. Nobody else can add to it any more.
void Compaction::endLog() {
    if (!keepsLog())
        return;
    m_original.text("PRAGMA wal_checkpoint(TRUNCATE)");
    fs::remove(sqlite3_filename_wal(sqlite3_db_filename(m_original.handle(), "main")));
}

} // namespace

void compactFile(const fs::path& file) {
    try {
        Compaction(file).run();
    } catch (const runtime::RuntimeError& error) {
        throw aboutFile(error, fs::canonical(file));
    }
}

} // namespace tol::data::sqlite
