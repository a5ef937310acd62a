// SPDX-License-Identifier: MIT
#pragma once

#include "data/Constants.h"
#include "data/Database.h"

#include <memory>
#include <string>

namespace tol::data {

class WorkspaceCore; // state behind Workspace, private to the layer

/// A session in which databases are opened. Closing it closes its databases; a transaction that is still
/// open then is rolled back. A default-made one stands for none (91), a closed one raises 3420.
class Workspace {
  public:
    Workspace() = default;
    Workspace(Workspace&&) noexcept = default;
    Workspace& operator=(Workspace&& other) noexcept;
    ~Workspace();
    explicit Workspace(std::shared_ptr<WorkspaceCore> core);

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] std::string Name() const;
    /// Opens a file for shared reading and writing. `name` is a path of any kind that the suite's data
    /// has, or a bare file name in the current folder. 3024 not found (the text names the file), 3044 no
    /// valid path, 3051 no permission, 3049 damaged, 3343 not a database or of a later format, 3251 for
    /// an exclusive opening, which no engine offers.
    Database OpenDatabase(const std::string& name, bool exclusive = false, bool readOnly = false);
    /// Makes a new, empty database; 3204 when the file exists.
    Database CreateDatabase(const std::string& name);
    /// One transaction over the databases of this workspace, also over those opened later in it; it takes
    /// their write locks at once. 3218 when another has one open. Begun again within itself, only the
    /// outermost CommitTrans commits.
    void BeginTrans();
    /// 3034 without a transaction.
    void CommitTrans(int options = 0);
    /// Undoes the transaction as a whole, however often it was begun within itself. 3034 without one.
    void Rollback();
    void Close();

  private:
    [[nodiscard]] WorkspaceCore& openCore() const;
    std::shared_ptr<WorkspaceCore> m_core;
};

} // namespace tol::data
