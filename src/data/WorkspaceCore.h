// SPDX-License-Identifier: MIT
#pragma once

#include "data/StoreRegistry.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::data {

class DatabaseCore;

/// State behind Workspace: its open databases and its transaction. A transaction may be begun again
/// within itself; the outermost commit is the one that counts.
class WorkspaceCore {
  public:
    explicit WorkspaceCore(std::string name) : m_name(std::move(name)) {}
    WorkspaceCore(const WorkspaceCore&) = delete;
    WorkspaceCore& operator=(const WorkspaceCore&) = delete;

    [[nodiscard]] bool isOpen() const { return m_open; }
    [[nodiscard]] const std::string& name() const { return m_name; }

    /// Takes the store into the workspace, and into its transaction if one is open.
    std::shared_ptr<DatabaseCore> add(std::shared_ptr<SharedStore> store, bool readOnly);
    void begin();
    void commit();
    void rollback();
    /// Rolls back what was not committed and closes the databases. The first error is raised at the end.
    /// Does nothing when closed.
    void close();

  private:
    void join(const std::shared_ptr<SharedStore>& store);
    void undo();

    std::string m_name;
    bool m_open = true;
    std::vector<std::weak_ptr<DatabaseCore>> m_databases;
    int m_depth = 0;
    std::vector<std::shared_ptr<SharedStore>> m_begun;
};

} // namespace tol::data
