// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteStore.h"

#include "data/engine/FileError.h"
#include "data/sqlite/connection/FileFormat.h"
#include "data/sqlite/connection/TextCollation.h"
#include "data/sqlite/rows/SqliteRows.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace tol::data::sqlite {

bool SqliteStore::ByName::operator()(const std::string& left, const std::string& right) const {
    return runtime::compareText(left, right) < 0;
}

SqliteStore::SqliteStore(const std::filesystem::path& file, Connection::Mode mode)
    : m_session(std::make_shared<Session>(file, mode)),
      m_locks(m_session->lockFile(), m_session->connection().isReadOnly()),
      m_reader(m_session->connection()),
      m_steps(m_session->connection()) {
    m_session->setTransactionEnd([this](bool committed) {
        if (!committed)
            m_catalogue = nullptr;
        if (m_session->connection().inTransaction())
            return; // a part was undone
        m_locks.releaseHeld();
        m_steps.losses().ended(committed);
    });
    configure(m_session->connection());
    checkCollator();
    readTables();
}

SqliteStore::~SqliteStore() {
    m_session->writes().flushOrDefer(); // while the locks on what it changed are still held
    m_session->setTransactionEnd({});
}

const std::filesystem::path& SqliteStore::path() const {
    return m_session->connection().file();
}

// ---------------------------------------------------------------- catalogue

/// Text indexes that another version of the collator has sorted are sorted anew. Where that can't be
/// written they are not walked.
void SqliteStore::checkCollator() {
    SystemTables tables(m_session->connection());
    const auto stored = tables.info(collatorEntry);
    if (!stored || *stored == runtime::collationVersion())
        return;
    m_outdatedCollation = m_session->connection().isReadOnly();
    if (m_outdatedCollation)
        return;
    m_session->writes().writeStep([&] {
        sortTextIndexes();
        tables.setInfo(collatorEntry, runtime::collationVersion());
    });
}

/// A unique index may hold keys that were told apart when they came in and are equal now. Who opens the
/// file has to hear which ones and where; for reading only it opens all the same.
void SqliteStore::sortTextIndexes() {
    try {
        m_session->connection().execute(std::string("REINDEX ") + textCollation);
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errDuplicateKey)
            throw;
        const std::string& told = error.engineText(); // "UNIQUE constraint failed: table.column, ..."
        const std::string keys = told.substr(told.find(": ") + 2);
        throw runtime::RuntimeError(
            runtime::errDuplicateKey,
            runtime::describe(runtime::errDuplicateKey, {keys}) + " (" + path().native() + ")", told);
    }
}

void SqliteStore::enter() {
    m_session->enter();
    if (!m_catalogue)
        readTables();
}

void SqliteStore::refresh() {
    m_session->enter(Session::Look::AtOnce);
    if (!m_catalogue || (m_othersSeen != m_session->others() && definitionsMark() != m_mark))
        readTables();
    m_othersSeen = m_session->others();
}

/// SQLite counts the changes of its schema, the catalogue those that are its own only.
std::string SqliteStore::definitionsMark() {
    return m_session->connection().text("PRAGMA schema_version") + "/" + m_steps.entryChanges();
}

void SqliteStore::readTables() {
    const std::string mark = definitionsMark();
    m_catalogue = nullptr; // a look that fails has to be taken again
    auto known = std::exchange(m_tables, {});
    for (auto& table : m_reader.tables()) {
        // Whoever has the table open shares what is known of it.
        if (auto state = known.extract(table.sqlName))
            m_tables.insert(std::move(state));
        put(std::move(table));
    }
    takeSnapshot();
    m_mark = mark;
}

void SqliteStore::takeSnapshot() {
    Catalogue::Tables tables;
    tables.reserve(m_tables.size());
    for (const auto& [name, state] : m_tables)
        tables.emplace_back(state->table, &state->table->definition);
    m_catalogue = std::make_shared<const Catalogue>(std::move(tables));
}

void SqliteStore::readTable(const std::string& sqlName) {
    if (auto table = m_reader.table(sqlName))
        put(std::move(*table));
    else
        m_tables.erase(sqlName);
}

void SqliteStore::put(StoredTable table) {
    if (m_outdatedCollation) {
        for (auto& index : table.indexes)
            index.outdated = std::ranges::count(index.collations, textCollation) > 0;
    }
    auto& state = m_tables[table.sqlName];
    if (!state)
        state = std::make_shared<OpenTable>();
    state->table = std::make_shared<const StoredTable>(std::move(table));
}

std::shared_ptr<OpenTable> SqliteStore::find(std::string_view table) const {
    const auto found = m_tables.find(std::string(table));
    return found == m_tables.end() ? nullptr : found->second;
}

std::shared_ptr<OpenTable> SqliteStore::state(std::string_view table) const {
    auto found = find(table);
    if (!found)
        runtime::raise(runtime::errTableNotFound, {table});
    return found;
}

std::shared_ptr<const Catalogue> SqliteStore::catalogue() {
    if (!m_catalogue)
        readTables();
    return m_catalogue;
}

// ---------------------------------------------------------------- changes of definitions

/// With the tables that it touches held exclusively. A rename touches what has the new name, too.
void SqliteStore::alter(std::string_view table, const TableChange& change, const TableUse* own) {
    enter();
    const std::string name = std::holds_alternative<CreateTable>(change) ? std::string(table) : nameOf(table);
    const bool isEntry =
        std::holds_alternative<SetOrdinal>(change) || std::holds_alternative<SetAllowZeroLength>(change);
    if (isEntry && changed(name, change) == state(name)->table->definition)
        return;
    std::vector<std::string> touched = {name};
    if (const auto* rename = std::get_if<RenameTable>(&change))
        touched.push_back(rename->newName);
    try {
        hold(touched, own == nullptr ? 0 : 1);
        make(name, change, touched);
    } catch (...) {
        if (!m_session->connection().inTransaction())
            m_locks.releaseHeld();
        throw;
    }
}

TableDefinition SqliteStore::changed(const std::string& table, const TableChange& change) const {
    const auto known = find(table);
    TableDefinition definition = known ? known->table->definition : TableDefinition{};
    apply(definition, change, true);
    return definition;
}

/// The caller's own uses are in nobody's way.
void SqliteStore::hold(const std::vector<std::string>& tables, int ownUses) {
    for (const auto& table : tables) {
        const auto known = find(table);
        m_locks.hold(table, known ? known->rows.uses - ownUses : 0);
    }
}

/// What others have changed meanwhile is read before the change, and what it touched is read again after it.
void SqliteStore::make(const std::string& table, const TableChange& change,
                       const std::vector<std::string>& touched) {
    try {
        m_session->writes().writeStep([&] {
            refresh();
            const auto known = std::holds_alternative<CreateTable>(change) ? nullptr : state(table)->table;
            m_steps.alter(known ? *known : StoredTable{}, changed(table, change), change);
            for (const auto& name : touched)
                readTable(name);
            takeSnapshot();
            m_mark = definitionsMark();
        });
    } catch (...) {
        m_catalogue = nullptr; // what is kept in memory may be ahead of the file
        throw;
    }
}

/// A field that is gone for good needs neither its default nor its NOT NULL.
SchemaNotes SqliteStore::takeNotes() {
    enter();
    SchemaNotes notes = m_steps.losses().takeNotes();
    std::erase_if(notes, [this](const SchemaNote& note) {
        const bool isOfField =
            note.kind == SchemaNote::Kind::Default || note.kind == SchemaNote::Kind::NotNull;
        const auto table = find(note.table);
        return isOfField && (!table || table->table->definition.findField(note.name) < 0);
    });
    return notes;
}

void SqliteStore::letTriggersFire(bool fire) {
    m_triggersOff += fire ? -1 : 1;
    sqlite3_db_config(m_session->connection().handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER,
                      m_triggersOff == 0 ? 1 : 0, nullptr);
}

/// The table's name as the file has it, which may differ in case.
std::string SqliteStore::nameOf(std::string_view table) {
    enter();
    return state(table)->table->sqlName;
}

// ---------------------------------------------------------------- use

std::unique_ptr<TableUse> SqliteStore::useTable(std::string_view table) {
    const std::string name = nameOf(table);
    m_locks.share(name, state(name)->rows.uses);
    try {
        refresh(); // until now anybody could change the table
        const auto known = state(name);
        return std::make_unique<TableUse>(std::shared_ptr<TableState>(known, &known->rows),
                                          [store = shared_from_this(), name] { store->endUse(name); });
    } catch (...) {
        endUse(name);
        throw;
    }
}

/// What was changed through a use must be in the file before others may take the table.
void SqliteStore::endUse(const std::string& table) {
    if (m_session->connection().inTransaction())
        m_locks.releaseLater(table);
    else
        m_locks.release(table);
}

std::unique_ptr<RowSource> SqliteStore::openRows(std::string_view table) {
    enter();
    auto known = state(table);
    if (known->table->definition.withoutRowKeys)
        throw withRemark(fileError(runtime::errNotSupported, path()),
                         "The table '" + known->table->sqlName +
                             "' is WITHOUT ROWID: its rows can't be opened.");
    return std::make_unique<SqliteRows>(m_session, std::move(known));
}

void SqliteStore::begin() {
    enter();
    m_session->writes().begin();
}

void SqliteStore::commit() {
    m_session->writes().commit();
}

void SqliteStore::rollback() {
    m_session->writes().rollback();
}

void SqliteStore::flush() {
    m_session->writes().flush();
}

void SqliteStore::leadBatch(bool lead) {
    m_session->writes().leadBatch(lead);
}

/// Nothing but a write shows whether the file, its folder and its disk take one: here one that changes
/// nothing and is taken back.
void SqliteStore::requireWritable() {
    begin();
    try {
        Connection& connection = m_session->connection();
        connection.execute("PRAGMA user_version = " + connection.text("PRAGMA user_version"));
    } catch (...) {
        rollback();
        throw;
    }
    rollback();
}

} // namespace tol::data::sqlite
