// SPDX-License-Identifier: MIT
#include "definition_update/engine/ActivityLog.h"

#include <array>
#include <utility>

namespace tol::update {

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

} // namespace tol::update
