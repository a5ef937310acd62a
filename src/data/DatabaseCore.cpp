// SPDX-License-Identifier: MIT
#include "data/DatabaseCore.h"

#include "data/FileError.h"
#include "data/FirstError.h"
#include "data/RecordsetCore.h"
#include "data/TableCore.h"
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

std::shared_ptr<RecordsetCore> DatabaseCore::openRecordset(const std::string& table) {
    forgetExpired(m_recordsets);
    auto recordset = std::make_shared<RecordsetCore>(shared_from_this(), table);
    m_recordsets.push_back(recordset);
    return recordset;
}

std::shared_ptr<TableCore> DatabaseCore::table(std::string_view name) {
    auto definition = store().definition(name);
    if (!definition)
        return nullptr;
    forgetExpired(m_tables);
    for (const auto& entry : m_tables) {
        auto core = entry.lock();
        if (core && core->name() == definition->name)
            return core;
    }
    auto core = std::make_shared<TableCore>(shared_from_this(), std::move(definition));
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
    const auto store = std::exchange(m_store, nullptr);
    errors.attempt([&] { store->store().settle(); });
    errors.raise();
}

} // namespace tol::data
