// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteStore.h"

#include "data/sqlite/FileFormat.h"
#include "data/sqlite/SqliteCursor.h"
#include "data/sqlite/TextCollation.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace tol::data::sqlite {
namespace {

/// An open recordset's mark on its table.
class StoreTableUse : public TableUse {
  public:
    StoreTableUse(std::shared_ptr<TableState> state, std::function<void(const std::string&)> lastEnds)
        : m_state(std::move(state)), m_lastEnds(std::move(lastEnds)) {
        ++m_state->uses;
    }
    StoreTableUse(const StoreTableUse&) = delete;
    StoreTableUse& operator=(const StoreTableUse&) = delete;
    ~StoreTableUse() override {
        if (--m_state->uses == 0)
            m_lastEnds(m_state->table->sqlName);
    }

  private:
    std::shared_ptr<TableState> m_state;
    std::function<void(const std::string&)> m_lastEnds;
};

} // namespace

bool SqliteStore::ByName::operator()(const std::string& left, const std::string& right) const {
    return runtime::compareText(left, right) < 0;
}

SqliteStore::SqliteStore(const std::filesystem::path& file, Connection::Mode mode)
    : m_session(std::make_shared<Session>(file, mode)),
      m_locks(m_session->lockFile(), m_session->connection().isReadOnly()),
      m_catalogue(m_session->connection()),
      m_steps(m_session->connection()) {
    m_session->setTransactionEnd([this](bool committed) {
        m_locks.releaseHeld();
        m_steps.ended(committed);
        if (!committed)
            m_mark.clear();
    });
    configure(m_session->connection());
    checkCollator();
    readTables();
}

SqliteStore::~SqliteStore() {
    m_session->writes().settleForOthers(); // while the locks on what it changed are still held
    m_session->setTransactionEnd({});
}

const std::filesystem::path& SqliteStore::path() const {
    return m_session->connection().file();
}

// ---------------------------------------------------------------- catalogue

/// Text indexes that another version of the collator has sorted are sorted anew. Where that can't be
/// written they are not walked.
void SqliteStore::checkCollator() {
    CatalogueTables tables(m_session->connection());
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
        const std::string& told =
            error.engineText(); // "UNIQUE constraint failed: table.column, table.column"
        const std::string keys = told.substr(told.find(": ") + 2);
        throw runtime::RuntimeError(
            runtime::errDuplicateKey,
            runtime::describe(runtime::errDuplicateKey, {keys}) + " (" + path().native() + ")", told);
    }
}

void SqliteStore::enter() {
    m_session->enter();
    if (m_mark.empty())
        readTables();
}

void SqliteStore::refresh() {
    m_session->enter(Session::Look::AtOnce);
    if (m_mark.empty() || (m_othersSeen != m_session->others() && definitionsMark() != m_mark))
        readTables();
    m_othersSeen = m_session->others();
}

/// SQLite counts the changes of its schema, the catalogue those that are its own only.
std::string SqliteStore::definitionsMark() {
    return m_session->connection().text("PRAGMA schema_version") + "/" + m_steps.entryChanges();
}

void SqliteStore::readTables() {
    const std::string mark = definitionsMark();
    auto known = std::exchange(m_tables, {});
    for (auto& table : m_catalogue.tables()) {
        // Whoever has the table open shares what is known of it.
        if (auto state = known.extract(table.sqlName))
            m_tables.insert(std::move(state));
        put(std::move(table));
    }
    m_mark = mark;
}

void SqliteStore::readTable(const std::string& sqlName) {
    if (auto table = m_catalogue.table(sqlName))
        put(std::move(*table));
    else
        m_tables.erase(sqlName);
}

void SqliteStore::put(PhysicalTable table) {
    if (m_outdatedCollation) {
        for (auto& index : table.indexes)
            index.outdated = std::ranges::count(index.collations, textCollation) > 0;
    }
    auto& state = m_tables[table.sqlName];
    if (!state)
        state = std::make_shared<TableState>();
    state->table = std::make_shared<const PhysicalTable>(std::move(table));
}

std::shared_ptr<TableState> SqliteStore::find(std::string_view table) const {
    const auto found = m_tables.find(std::string(table));
    return found == m_tables.end() ? nullptr : found->second;
}

std::shared_ptr<TableState> SqliteStore::state(std::string_view table) const {
    auto found = find(table);
    if (!found)
        runtime::raise(runtime::errTableNotFound, {table});
    return found;
}

std::vector<std::string> SqliteStore::tableNames() {
    enter();
    std::vector<std::string> names;
    for (const auto& [name, state] : m_tables)
        names.push_back(state->table->definition.name);
    return names;
}

std::shared_ptr<const TableDefinition> SqliteStore::definition(std::string_view table) {
    enter();
    const auto found = find(table);
    if (!found)
        return nullptr;
    return {found->table, &found->table->definition};
}

// ---------------------------------------------------------------- schema steps

/// Runs a step with the named tables held exclusively. What others have changed meanwhile is read
/// before it, and the tables that it changes are read again after it. The caller's own uses are in
/// nobody's way.
void SqliteStore::run(const std::vector<std::string>& tables, const std::function<void()>& step,
                      int ownUses) {
    enter();
    try {
        for (const auto& table : tables) {
            const auto known = find(table);
            m_locks.hold(table, known ? known->uses - ownUses : 0);
        }
        write(tables, step);
    } catch (...) {
        if (!m_session->connection().inTransaction())
            m_locks.releaseHeld();
        throw;
    }
}

void SqliteStore::write(const std::vector<std::string>& tables, const std::function<void()>& step) {
    try {
        m_session->writes().writeStep([&] {
            refresh();
            step();
            for (const auto& table : tables)
                readTable(table);
            m_mark = definitionsMark();
        });
    } catch (...) {
        m_mark.clear(); // what is kept in memory may be ahead of the file
        throw;
    }
}

void SqliteStore::createTable(const TableDefinition& table) {
    run({table.name}, [&] { m_steps.createTable(table); });
}

void SqliteStore::dropTable(std::string_view table) {
    run({nameOf(table)}, [&] {
        m_steps.dropTable(*state(table)->table);
        m_tables.erase(std::string(table));
    });
}

void SqliteStore::renameTable(std::string_view table, const std::string& newName) {
    run({nameOf(table), newName}, [&] {
        m_steps.renameTable(*state(table)->table, newName);
        m_tables.erase(std::string(table));
    });
}

void SqliteStore::addField(std::string_view table, const FieldDef& field) {
    run({nameOf(table)}, [&] { m_steps.addField(*state(table)->table, field); });
}

void SqliteStore::dropField(std::string_view table, std::string_view field) {
    run({nameOf(table)}, [&] {
        const auto found = state(table);
        m_steps.dropField(*found->table, fieldPosition(*found->table, field));
    });
}

void SqliteStore::renameField(std::string_view table, std::string_view field, const std::string& newName) {
    run({nameOf(table)}, [&] {
        const auto found = state(table);
        m_steps.renameField(*found->table, fieldPosition(*found->table, field), newName);
    });
}

void SqliteStore::createIndex(std::string_view table, const IndexDef& index) {
    run({nameOf(table)}, [&] { m_steps.createIndex(*state(table)->table, index); });
}

void SqliteStore::dropIndex(std::string_view table, std::string_view index) {
    run({nameOf(table)}, [&] {
        const auto found = state(table);
        const int position = found->table->definition.findIndex(index);
        if (position < 0)
            runtime::raise(runtime::errItemNotFound);
        m_steps.dropIndex(*found->table, static_cast<std::size_t>(position));
    });
}

void SqliteStore::setOrdinal(std::string_view table, std::string_view field, int ordinal,
                             const TableUse* own) {
    changeEntry(
        table, field, own, [&](const FieldDef& definition) { return definition.ordinal == ordinal; },
        [&](const PhysicalTable& found, std::size_t position) {
            m_steps.setOrdinal(found, position, ordinal);
        });
}

void SqliteStore::setAllowZeroLength(std::string_view table, std::string_view field, bool allow,
                                     const TableUse* own) {
    changeEntry(
        table, field, own, [&](const FieldDef& definition) { return definition.allowZeroLength == allow; },
        [&](const PhysicalTable& found, std::size_t position) {
            m_steps.setAllowZeroLength(found, position, allow);
        });
}

void SqliteStore::changeEntry(std::string_view table, std::string_view field, const TableUse* own,
                              const std::function<bool(const FieldDef&)>& holds,
                              const std::function<void(const PhysicalTable&, std::size_t)>& step) {
    const std::string name = nameOf(table);
    const auto known = state(name)->table;
    if (holds(known->definition.fields[fieldPosition(*known, field)]))
        return;
    const auto change = [&] {
        const auto found = state(name)->table;
        step(*found, fieldPosition(*found, field));
    };
    run({name}, change, own == nullptr ? 0 : 1);
}

/// A field that is gone for good needs neither its default nor its NOT NULL.
SchemaNotes SqliteStore::takeNotes() {
    enter();
    SchemaNotes notes = m_steps.takeNotes();
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

std::size_t SqliteStore::fieldPosition(const PhysicalTable& table, std::string_view field) {
    const int position = table.definition.findField(field);
    if (position < 0)
        runtime::raise(runtime::errItemNotFound);
    return static_cast<std::size_t>(position);
}

// ---------------------------------------------------------------- use

std::unique_ptr<TableUse> SqliteStore::useTable(std::string_view table) {
    const std::string name = nameOf(table);
    // Others must not come in while the change is not yet in the file.
    if (m_locks.isHeld(name))
        settle();
    m_locks.share(name, state(name)->uses);
    try {
        refresh(); // until now anybody could change the table
        return std::make_unique<StoreTableUse>(
            state(name),
            [store = shared_from_this()](const std::string& ended) { store->m_locks.release(ended); });
    } catch (...) {
        m_locks.release(name);
        throw;
    }
}

std::unique_ptr<Cursor> SqliteStore::openCursor(std::string_view table) {
    enter();
    return std::make_unique<SqliteCursor>(m_session, state(table));
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

void SqliteStore::settle() {
    m_session->writes().settle();
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
