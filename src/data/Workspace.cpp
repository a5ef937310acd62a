// SPDX-License-Identifier: MIT
#include "data/Workspace.h"

#include "data/Closing.h"
#include "data/DatabaseCore.h"
#include "data/StoreRegistry.h"
#include "data/WorkspaceCore.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data {

Workspace::Workspace(std::shared_ptr<WorkspaceCore> core) : m_core(std::move(core)) {}

Workspace& Workspace::operator=(Workspace&& other) noexcept {
    if (this != &other) {
        closeOrDefer(m_core);
        m_core = std::move(other.m_core);
    }
    return *this;
}

Workspace::~Workspace() {
    closeOrDefer(m_core);
}

WorkspaceCore& Workspace::openCore() const {
    if (!m_core)
        runtime::raise(runtime::errObjectNotSet);
    if (!m_core->isOpen())
        runtime::raise(runtime::errObjectInvalid);
    return *m_core;
}

bool Workspace::isOpen() const {
    return m_core && m_core->isOpen();
}

std::string Workspace::Name() const {
    return openCore().name();
}

Database Workspace::OpenDatabase(const std::string& name, bool exclusive, bool readOnly) {
    WorkspaceCore& core = openCore();
    if (exclusive)
        runtime::raise(runtime::errNotSupported);
    auto store = StoreRegistry::instance().open(platform::hostPath(name), readOnly);
    store->store().refresh();
    return Database(core.add(std::move(store), readOnly));
}

Database Workspace::CreateDatabase(const std::string& name) {
    WorkspaceCore& core = openCore();
    return Database(core.add(StoreRegistry::instance().create(platform::hostPath(name)), false));
}

void Workspace::BeginTrans() {
    openCore().begin();
}

void Workspace::CommitTrans(int options) {
    WorkspaceCore& core = openCore();
    if (options != 0 && options != dbForceOSFlush)
        runtime::raise(runtime::errInvalidArgument);
    core.commit(); // every commit is forced to the disk
}

void Workspace::Rollback() {
    openCore().rollback();
}

void Workspace::Close() {
    openCore().close();
}

} // namespace tol::data
