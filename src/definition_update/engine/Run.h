// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "definition_update/engine/UpdateView.h"

#include <algorithm>
#include <string>

namespace tol::update {

/// What may be asked of a run while it works; the later ones outweigh the earlier. It is done at the next
/// yield.
enum class StopRequest {
    None,
    LeaveDatabase, ///< go on with the next database; a field under conversion stays as it was
    EndRun,        ///< end the run; a field under conversion stays as it was
    Cancel,        ///< end the run; a change of type is finished with the rows that it has reached, and the
                   ///< others lose their values in that field
};

/// A run as all its procedures know it: who sees it, whether it goes on, what it is at, and its log.
struct Run {
    explicit Run(UpdateView& shown) : view(shown) {}

    UpdateView& view;

    bool ContinueRun = false; ///< true from the start of the run until someone stops it
    StopRequest stopRequest = StopRequest::None;
    bool UnableToConvert = false; ///< of the row converted last; outlives its field and its database

    std::string siteName, DBNAME; ///< the Job Site's PATHNAME and the database in work
    std::string runDate, runTime; ///< one text for all rows of the log
    std::string lastBox;          ///< of the error reported last

    data::Workspace wksDEF = data::DBEngine::CreateWorkspace("wksDEF");
    data::Database definitions = wksDEF.OpenDatabase("ZOVDEF.MDB", false);
    data::Recordset ACTIVITYLOG = definitions.OpenRecordset("ACTIVITYLOG");

    void stop(StopRequest request) {
        stopRequest = std::max(stopRequest, request);
        ContinueRun = false;
    }
};

} // namespace tol::update
