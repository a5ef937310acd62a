// SPDX-License-Identifier: MIT
#include "definition_update/engine/Procedure.h"

#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdBoxes.h"

namespace tol::update {
namespace {

bool takesNoChange(int number) {
    return number == runtime::errReadOnly || number == runtime::errNoPermission;
}

// What is reported while a database is already being left is not the reason for it.
void keepBox(Run& run) {
    if (run.stopRequest != StopRequest::LeaveDatabase)
        run.lastBox = shell::gMsgText;
}

} // namespace

void noteError(Run& run, std::string_view procedure, int number) {
    keepBox(run);
    run.view.showError({procedure, number, run.siteName, run.DBNAME, {}, {}});
}

void noteError(TargetDatabase& database, std::string_view procedure, int number) {
    Run& run = database.run;
    keepBox(run);
    if (database.target.isOpen() && takesNoChange(number))
        run.stop(StopRequest::LeaveDatabase);
    run.view.showError({procedure, number, run.siteName, run.DBNAME, database.TNAME, database.FNAME});
}

} // namespace tol::update
