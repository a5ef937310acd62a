// SPDX-License-Identifier: MIT
#include "data/Database.h"

#include "data/Closing.h"
#include "data/DatabaseCore.h"
#include "data/RecordsetCore.h"
#include "data/StoreRegistry.h"
#include "data/TableCore.h"
#include "data/writes/WriteClock.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data {

Database::Database(std::shared_ptr<DatabaseCore> core) : m_core(std::move(core)) {}

Database& Database::operator=(Database&& other) noexcept {
    if (this != &other) {
        closeOrDefer(m_core);
        m_core = std::move(other.m_core);
    }
    return *this;
}

Database::~Database() {
    closeOrDefer(m_core);
}

DatabaseCore& Database::core() const {
    if (!m_core)
        runtime::raise(runtime::errObjectNotSet);
    return *m_core;
}

bool Database::isOpen() const {
    return m_core && m_core->isOpen();
}

std::string Database::Name() const {
    return core().store().path().native();
}

Recordset Database::OpenRecordset(const std::string& table, int type, [[maybe_unused]] int options,
                                  [[maybe_unused]] int lockEdit) {
    core().requireOpen();
    if (type != dbOpenTable)
        runtime::raise(runtime::errInvalidArgument);
    return Recordset(core().openRecordset(table));
}

TableDefs Database::TableDefs() const {
    core().store().refresh();
    return data::TableDefs(m_core);
}

TableDef Database::CreateTableDef(const std::string& name) const {
    core().requireOpen();
    return TableDef(std::make_shared<TableCore>(name, core().acceptsAsFound()));
}

void Database::CreateTable(const TableDefinition& table) const {
    core().alter(table.name, data::CreateTable{table});
}

void Database::RequireUpdatable() const {
    core().requireWritable();
    core().store().requireWritable();
}

void Database::AcceptAsFound() {
    core().acceptAsFound();
}

SchemaNotes Database::takeNotes() {
    return core().store().takeNotes();
}

void Database::Close() {
    if (!core().isOpen())
        runtime::raise(runtime::errObjectInvalid);
    core().close();
}

TriggersOff::TriggersOff(const Database& database) : m_store(database.core().sharedStore()) {
    m_store->store().letTriggersFire(false);
}

TriggersOff::~TriggersOff() {
    m_store->store().letTriggersFire(true);
}

WriteBatch::WriteBatch(const Database& log) : m_log(log.core().sharedStore()) {
    m_log->store().leadBatch(true);
}

WriteBatch::~WriteBatch() {
    StoreRegistry::instance().flush();
    m_log->store().leadBatch(false);
}

bool WriteBatch::isUnderWay() {
    return WriteClock::instance().inBatch();
}

} // namespace tol::data
