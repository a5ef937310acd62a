// SPDX-License-Identifier: MIT
#include "definition_update/engine/ActivityLog.h"

#include "definition_update/engine/UpdateTexts.h"
#include "runtime/RuntimeError.h"

#include <array>
#include <utility>

namespace tol::update {
namespace {

/// After an error, which is the one to be told. The storage may have given the transaction up itself.
void rollBack(data::Workspace& workspace) {
    try {
        workspace.Rollback();
    } catch (const runtime::RuntimeError&) {
        return;
    }
}

ActivityRow rowOf(const Run& run, const Activity& activity) {
    ActivityRow row{run.siteName,   run.DBNAME,           activity.table, activity.index,
                    activity.field, actionText(activity), run.runDate,    run.runTime};
    if (activity.kind == ActivityKind::DatabaseIncomplete)
        row.TABLENAME = row.INDEXNAME = row.FIELDNAME = "ERROR ";
    return row;
}

} // namespace

void WriteActivityLog(Run& run, const Activity& activity) {
    const ActivityRow row = rowOf(run, activity);
    const std::array<std::pair<const char*, const std::string*>, 8> columns{{
        {"PATHNAME", &row.PATHNAME},
        {"DBNAME", &row.DBNAME},
        {"TABLENAME", &row.TABLENAME},
        {"INDEXNAME", &row.INDEXNAME},
        {"FIELDNAME", &row.FIELDNAME},
        {"Action", &row.Action},
        {"FDATE", &row.FDATE},
        {"PTIME", &row.PTIME},
    }};
    run.ACTIVITYLOG.AddNew();
    for (const auto& [name, text] : columns)
        run.ACTIVITYLOG.Fields(name).Value(*text);
    run.ACTIVITYLOG.Update();
    run.view.showActivity(activity, row);
}

void changeAndLog(TargetDatabase& database, const std::function<void()>& change, const Activity& activity) {
    // The log's own file, as a target, takes no row while a change is under way in it.
    const bool ownFile = database.target.Name() == database.run.definitions.Name();
    database.wksTARGET.BeginTrans();
    try {
        change();
        if (!ownFile)
            WriteActivityLog(database.run, activity);
        database.wksTARGET.CommitTrans();
    } catch (...) {
        rollBack(database.wksTARGET);
        throw;
    }
    if (ownFile)
        WriteActivityLog(database.run, activity);
}

} // namespace tol::update
