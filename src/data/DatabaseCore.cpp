// SPDX-License-Identifier: MIT
#include "data/DatabaseCore.h"

#include "data/Closing.h"
#include "data/RecordsetCore.h"
#include "data/StoreRegistry.h"
#include "data/TableCore.h"
#include "data/engine/FileError.h"
#include "data/engine/Names.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data {
namespace {

template <typename Core>
void forgetExpired(std::vector<std::weak_ptr<Core>>& cores) {
    std::erase_if(cores, [](const auto& core) { return core.expired(); });
}

} // namespace

DatabaseCore::DatabaseCore(std::shared_ptr<SharedStore> store, const WorkspaceCore& workspace, bool readOnly)
    : m_store(std::move(store)), m_workspace(&workspace), m_readOnly(readOnly) {}

DatabaseCore::~DatabaseCore() = default;

const std::shared_ptr<SharedStore>& DatabaseCore::sharedStore() const {
    if (!m_store)
        runtime::raise(runtime::errObjectInvalid);
    return m_store;
}

void DatabaseCore::requireWritable() const {
    if (m_readOnly && isOpen())
        throw fileError(runtime::errReadOnly, store().path());
    shared().requireNoOther(m_workspace);
}

void DatabaseCore::alter(const std::string& table, const TableChange& change, const TableUse* own) {
    const auto found = std::holds_alternative<CreateTable>(change) ? nullptr : store().definition(table);
    const TableDefinition before = found ? *found : TableDefinition{};
    TableDefinition after = before;
    apply(after, change, m_asFound);
    if (after == before)
        return;
    if (const auto other = store().definition(after.name); other && !sameName(after.name, before.name))
        runtime::raise(runtime::errTableExists, {after.name});
    requireWritable();
    store().alter(table, change, own);
}

std::shared_ptr<RecordsetCore> DatabaseCore::openRecordset(const std::string& table) {
    forgetExpired(m_recordsets);
    auto recordset = std::make_shared<RecordsetCore>(shared_from_this(), table);
    m_recordsets.push_back(recordset);
    return recordset;
}

std::shared_ptr<TableCore> DatabaseCore::table(std::string_view name) {
    const auto definition = store().definition(name);
    if (!definition)
        return nullptr;
    forgetExpired(m_tables);
    for (const auto& entry : m_tables) {
        auto core = entry.lock();
        if (core && core->name() == definition->name)
            return core;
    }
    auto core = std::make_shared<TableCore>(shared_from_this(), definition->name);
    addTable(core);
    return core;
}

void DatabaseCore::close() {
    if (!isOpen())
        return;
    FirstError errors;
    for (const auto& entry : std::exchange(m_recordsets, {})) {
        if (const auto recordset = entry.lock())
            errors.attempt([&] { recordset->close(); });
    }
    errors.attempt([&] { StoreRegistry::instance().leave(std::exchange(m_store, nullptr)); });
    errors.raise();
}

} // namespace tol::data
