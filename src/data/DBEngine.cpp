// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"

#include "data/StoreRegistry.h"
#include "data/WorkspaceCore.h"
#include "platform/Paths.h"
#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace tol::data {
namespace {

/// Every file is opened through a workspace, so this comes before the first write that could wait.
void registerFlusherOnce() {
    static const bool registered = [] {
        runtime::addFlusher([] { StoreRegistry::instance().flush(); });
        return true;
    }();
    static_cast<void>(registered);
}

} // namespace

Workspace DBEngine::CreateWorkspace(const std::string& name, [[maybe_unused]] const std::string& user,
                                    [[maybe_unused]] const std::string& password, int type) {
    if (type != dbUseJet)
        runtime::raise(runtime::errInvalidArgument);
    registerFlusherOnce();
    return Workspace(std::make_shared<WorkspaceCore>(name));
}

void DBEngine::CompactDatabase(const std::string& name) {
    StoreRegistry::instance().compact(platform::hostPath(name));
}

void DBEngine::addEngine(std::unique_ptr<Engine> engine) {
    StoreRegistry::instance().addEngine(std::move(engine));
}

void DBEngine::flush() {
    StoreRegistry::instance().flush();
    runtime::raiseDeferred();
}

} // namespace tol::data
