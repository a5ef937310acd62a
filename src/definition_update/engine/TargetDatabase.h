// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/Run.h"

#include <string>

namespace tol::update {

/// What became of a database.
struct DatabaseResult {
    bool DatabaseOk = true;   ///< it was not marked incomplete
    bool ChangesMade = false; ///< a structural change was made; conversions do not count
};

/// The database in work, with its wanted and its captured definition. It opens the rows of definitions at
/// once and closes all that is open when it goes, whichever way; what that can't store is deferred, and so a
/// failure of the procedure that it belongs to.
struct TargetDatabase {
    TargetDatabase(Run& inRun, DatabaseResult& outcome) : run(inRun), result(outcome) {}

    Run& run;
    DatabaseResult& result;
    data::Workspace wksTARGET;
    data::Database target; ///< open once the capture tables are empty
    data::Recordset NEWDEF = run.definitions.OpenRecordset("NEWDEF");
    data::Recordset NEWINDEXES = run.definitions.OpenRecordset("NEWINDEXES");
    data::Recordset OLDDEF = run.definitions.OpenRecordset("OLDDEF");
    data::Recordset OLDINDEXES = run.definitions.OpenRecordset("OLDINDEXES");
    std::string TNAME, FNAME;    ///< the table and the field in work, as an error names them
    bool keepsFields = false;    ///< the operator's No: fields stay as they are
    bool knownUpdatable = false; ///< it takes changes

    /// To be called before a change that is logged before it is made: raises what would keep any change from
    /// the file.
    void requireUpdatable() {
        if (!knownUpdatable)
            target.RequireUpdatable();
        knownUpdatable = true;
    }
    /// Whether a field under conversion has to stay as it was.
    [[nodiscard]] bool keepsOldField() const {
        return keepsFields || run.stopRequest == StopRequest::LeaveDatabase ||
               run.stopRequest == StopRequest::EndRun;
    }
};

/// A field as NEWDEF wants it.
struct WantedField {
    std::string FNAME;
    int FSIZE = 0, FTYPE = 0;
};

} // namespace tol::update
