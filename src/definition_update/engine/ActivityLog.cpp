// SPDX-License-Identifier: MIT
#include "definition_update/engine/ActivityLog.h"

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

} // namespace

void WriteActivityLog(UpdateState& state, const std::string& table, const std::string& index,
                      const std::string& field, const std::string& action) {
    const ActivityRow row{state.siteName, state.DBNAME, table,         index,
                          field,          action,       state.runDate, state.runTime};
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
    state.ACTIVITYLOG.AddNew();
    for (const auto& [name, text] : columns)
        state.ACTIVITYLOG.Fields(name).Value(*text);
    state.ACTIVITYLOG.Update();
    state.view.showActivity(row);
}

void changeAndLog(UpdateState& s, const std::function<void()>& change, const std::string& table,
                  const std::string& field, const std::string& action) {
    // The log's own file, as a target, takes no row while a change is under way in it.
    const bool ownFile = s.target.Name() == s.definitions.Name();
    s.wksTARGET.BeginTrans();
    try {
        change();
        if (!ownFile) {
            WriteActivityLog(s, table, " ", field, action);
            data::DBEngine::settle();
        }
        s.wksTARGET.CommitTrans();
    } catch (...) {
        rollBack(s.wksTARGET);
        throw;
    }
    if (ownFile)
        WriteActivityLog(s, table, " ", field, action);
}

} // namespace tol::update
