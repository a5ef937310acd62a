// SPDX-License-Identifier: MIT
#include "data/SharedStore.h"

#include "data/FileError.h"
#include "runtime/RuntimeError.h"

namespace tol::data {

void SharedStore::refresh() {
    m_store->refresh();
    definitionsChanged();
}

const std::vector<std::string>& SharedStore::tableNames() {
    if (m_namesVersion != m_version) {
        m_tableNames = m_store->tableNames();
        m_namesVersion = m_version;
    }
    return m_tableNames;
}

void SharedStore::begin(const WorkspaceCore& workspace) {
    requireNoOther(&workspace);
    m_store->begin();
    m_transactionOf = &workspace;
}

void SharedStore::commit() {
    m_store->commit();
    m_transactionOf = nullptr;
}

void SharedStore::rollback() {
    m_transactionOf = nullptr;
    definitionsChanged();
    m_store->rollback();
}

void SharedStore::raiseLocked() const {
    throw fileError(runtime::errRowLocked, m_store->path());
}

} // namespace tol::data
