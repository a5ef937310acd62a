// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBUPrint.h"

#include "definition_update/engine/ErrorReport.h"
#include "definition_update/report/ActivityReport.h"

#include <QPushButton>

namespace tol::update {

frmDBUPrint::frmDBUPrint() : ReportWindow("frmDBUPrint") {
    setWindowTitle("Print Database Definition Update Activity Log");
}

// Without the log there is nothing to begin with.
void frmDBUPrint::onLoad() {
    const bool loaded = reportErrors("frmDBUPrint", "Load", [this] {
        ACTIVITYLOG = data::OpenTable("wksDBU", "ZOVDEF.MDB", "ACTIVITYLOG");
    });
    cmdBegin().setEnabled(loaded);
    (loaded ? cmdBegin() : CmdExit()).setFocus();
}

bool frmDBUPrint::onRun() {
    return printActivityLog(*this, printer(), ACTIVITYLOG.rows, savedOrientation());
}

void frmDBUPrint::onUnload() {
    ReportWindow::onUnload();
    ACTIVITYLOG = {};
}

} // namespace tol::update
