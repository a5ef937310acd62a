// SPDX-License-Identifier: MIT
#include "data/WorkspaceCore.h"

#include "data/Closing.h"
#include "data/DatabaseCore.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tol::data {

std::shared_ptr<DatabaseCore> WorkspaceCore::add(std::shared_ptr<SharedStore> store, bool readOnly) {
    if (m_depth > 0 && !readOnly)
        join(store);
    std::erase_if(m_databases, [](const auto& database) { return database.expired(); });
    auto database = std::make_shared<DatabaseCore>(std::move(store), *this, readOnly);
    m_databases.push_back(database);
    return database;
}

void WorkspaceCore::begin() {
    if (m_depth == 0) {
        try {
            for (const auto& entry : m_databases) {
                const auto database = entry.lock();
                if (database && database->isOpen() && !database->isReadOnly())
                    join(database->sharedStore());
            }
        } catch (...) {
            undo();
            throw;
        }
    }
    ++m_depth;
}

void WorkspaceCore::commit() {
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    // A file that can't be committed now stays in the transaction: commit may be tried again.
    while (m_depth == 1 && !m_begun.empty()) {
        m_begun.back()->commit();
        m_begun.pop_back();
    }
    --m_depth;
}

void WorkspaceCore::rollback() {
    if (m_depth == 0)
        runtime::raise(runtime::errNoTransaction);
    undo();
}

void WorkspaceCore::close() {
    if (!std::exchange(m_open, false))
        return;
    FirstError errors;
    errors.attempt([&] { undo(); });
    for (const auto& entry : std::exchange(m_databases, {})) {
        if (const auto database = entry.lock())
            errors.attempt([&] { database->close(); });
    }
    errors.raise();
}

void WorkspaceCore::join(const std::shared_ptr<SharedStore>& store) {
    // Two databases of the workspace may be open on the same file.
    if (std::find(m_begun.begin(), m_begun.end(), store) != m_begun.end())
        return;
    store->begin(*this);
    m_begun.push_back(store);
}

void WorkspaceCore::undo() {
    m_depth = 0;
    FirstError errors;
    for (const auto& store : std::exchange(m_begun, {}))
        errors.attempt([&] { store->rollback(); });
    errors.raise();
}

} // namespace tol::data
