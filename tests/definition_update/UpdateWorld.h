// SPDX-License-Identifier: MIT
#pragma once

#include "JsonDatabase.h"
#include "RecordingView.h"
#include "definition_update/engine/DefinitionUpdate.h"
#include "support/Environment.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tol::test {

/// A working folder in which the update can run: ZOVDEF.MDB and DBPATHS.MDB, with a drive C beside them. The
/// clock stands at 31 January 2003, 4:05 PM. An object serves one test.
class UpdateWorld {
  public:
    UpdateWorld();
    UpdateWorld(const UpdateWorld&) = delete;
    UpdateWorld& operator=(const UpdateWorld&) = delete;
    ~UpdateWorld();

    TempFolder folder;
    Environment drives;
    TestHost host;

    /// Rows of a table of ZOVDEF.MDB, in the order of its fields; the last ones may be left out. Those of
    /// DATABASES are DBNAME, PATHCODE, Modules, Optional, FILLLOC, ALTDBNAME, DBDESC.
    static void addRowsOf(const std::string& table, const Json& rows);
    /// Rows [PATHNAME, PathText], in the order of the list.
    static void addSites(const Json& rows);
    /// The wanted definition of databases by name, each in the form of makeDatabase without rows. A field
    /// may have a fifth entry, its position.
    static void addDefinitions(const Json& databases);
    /// A file below the working folder: a database, or the text that stands in it.
    void addFile(const std::string& name, const Json& content) const;

    /// Rows of ACTIVITYLOG, without date and time.
    static Json activityLog();
};

/// One run and what came of it.
struct UpdateRun {
    std::string module = "N";
    std::vector<int> tagged; ///< sites by their place in the list
    bool tagAll = true;
    int currentSite = -1; ///< the highlight; -1 for an empty list
    int cancelAtYield = 0;
    int cancelAfterBox = 0;                       ///< the yield behind that box
    std::optional<update::ActivityKind> cancelAt; ///< while the first row of this kind is logged
    update::StopRequest stopRequest = update::StopRequest::Cancel; ///< what is asked for there
    /// The process is killed at that yield, when what was written before it has come to the disk.
    int killAtYield = 0;

    void operator()(UpdateWorld& world);

    RecordingView view;
    int yields = 0;
    bool finished = false;
    bool ended = false; ///< finished or stopped
    bool anyIncomplete = false;
};

} // namespace tol::test
