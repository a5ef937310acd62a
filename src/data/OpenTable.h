// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"

#include <string>

namespace tol::data {

/// A table, with a workspace and a database that are opened for it alone. They go in the order recordset,
/// database, workspace; an error of that is deferred, so that whoever can hear it calls Close() before. A
/// default-made one stands for none.
struct OpenTable {
    OpenTable() = default;
    OpenTable(const std::string& workspaceName, const std::string& file, const std::string& table)
        : workspace(DBEngine::CreateWorkspace(workspaceName)),
          database(workspace.OpenDatabase(file)),
          rows(database.OpenRecordset(table)) {}

    /// Raises the first error, when all is closed.
    void Close() { workspace.Close(); }

    Workspace workspace;
    Database database;
    Recordset rows;
};

} // namespace tol::data
