// SPDX-License-Identifier: MIT
#pragma once

#include "data/Constants.h"
#include "data/Database.h"
#include "data/Recordset.h"
#include "data/TableDef.h"
#include "data/Workspace.h"
#include "data/engine/Engine.h"

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
    /// Removes the bytes of deleted fields and rows from a database's file, and keeps bookmarks. Nobody may
    /// have it open (3045). After an error the file is what it was.
    static void CompactDatabase(const std::string& name);
    static void addEngine(std::unique_ptr<Engine> engine);
    /// Commits whatever waits in any open file, also as a flusher; raises the oldest failure that is
    /// deferred.
    static void flush();
};

} // namespace tol::data
