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
        wksDBU = data::DBEngine::CreateWorkspace("wksDBU");
        m_definitions = wksDBU.OpenDatabase("ZOVDEF.MDB");
        ACTIVITYLOG = m_definitions.OpenRecordset("ACTIVITYLOG");
    });
    cmdBegin().setEnabled(loaded);
    (loaded ? cmdBegin() : CmdExit()).setFocus();
    if (!loaded)
        closeDatabase();
}

bool frmDBUPrint::onRun() {
    return printActivityLog(*this, printer(), ACTIVITYLOG, savedOrientation());
}

void frmDBUPrint::onUnload() {
    ReportWindow::onUnload();
    closeDatabase();
}

void frmDBUPrint::closeDatabase() {
    ACTIVITYLOG = {};
    m_definitions = {};
    wksDBU = {};
}

} // namespace tol::update
