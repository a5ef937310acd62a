// SPDX-License-Identifier: MIT
#pragma once

#include "data/Constants.h"
#include "data/Database.h"
#include "data/Engine.h"
#include "data/Recordset.h"
#include "data/TableDefs.h"
#include "data/Workspace.h"

#include <memory>
#include <string>

namespace tol::data {

/// Entry to everything. Programs add the storage engines that they carry when they start; the first
/// one that recognises a file opens it, and the first one of all makes new files.
class DBEngine {
  public:
    /// There is no security: name, user and password have no effect. 3001 for a type other than dbUseJet.
    static Workspace CreateWorkspace(const std::string& name, const std::string& user = "admin",
                                     const std::string& password = "", int type = dbUseJet);
    static void addEngine(std::unique_ptr<Engine> engine);
    /// Commits whatever writes wait in any open file. Also registered as a settler of the host.
    static void settle();
};

} // namespace tol::data
