// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "definition_update/engine/DefinitionUpdate.h"

#include <algorithm>
#include <optional>
#include <string>

namespace tol::update {

/// What the procedures of a run share: flags, the database in work, and the table and field in work. It
/// belongs to DefinitionUpdate and lives as long as it. Fields keep their last value until a procedure
/// sets them again, and some procedures lean on that.
struct UpdateState {
    UpdateState(UpdateView& updateView, std::string moduleCode)
        : view(updateView), ModuleCode(std::move(moduleCode)) {}

    UpdateView& view;
    std::string ModuleCode;
    TagList tagList;

    bool ContinueRun = false; ///< true from the start of the run until someone stops it
    StopRequest stopRequest = StopRequest::None;
    bool ProcessDatabase = false;   ///< the row in work is still to be processed
    bool DatabaseOk = false;        ///< the database in work was not marked incomplete
    bool ChangesMade = false;       ///< a structural change was made; conversions do not count
    bool UnableToConvert = false;   ///< of the row converted last; outlives its field
    bool WarnUnconvertible = false; ///< ask about values that can't convert

    std::string siteName;   ///< PATHNAME of the Job Site in work
    std::string location;   ///< its folder, or the fixed folder of a shared database
    std::string targetFile; ///< full name of the database in work
    std::string DBNAME;
    std::string runDate, runTime; ///< one text for all rows of the log

    data::Workspace wksDEF;
    data::Database definitions; ///< ZOVDEF.MDB
    data::Recordset ACTIVITYLOG;

    // Open while one database is in work.
    bool targetUpdatable = false; ///< it is known to take changes
    data::Recordset NEWDEF, NEWINDEXES, OLDDEF, OLDINDEXES;
    data::Workspace wksTARGET;
    data::Database target;

    std::optional<data::TableDef> tableDef; ///< the table in work, in the target
    std::string TNAME, FNAME;               ///< the table and the field in work
    int FSIZE = 0, FTYPE = 0;               ///< wanted size and type of the field in work
    int liveSize = 0, liveType = 0;         ///< its size and type in the target
    std::string lastBox;                    ///< of the error reported last

    void stop(StopRequest request) {
        stopRequest = std::max(stopRequest, request);
        ContinueRun = false;
    }
    /// Whether a field under conversion has to stay as it was.
    [[nodiscard]] bool keepsOldField() const {
        return !ProcessDatabase || stopRequest == StopRequest::LeaveDatabase ||
               stopRequest == StopRequest::EndRun;
    }
};

} // namespace tol::update
