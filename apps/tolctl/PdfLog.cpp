// SPDX-License-Identifier: MIT
#include "tolctl/PdfLog.h"

#include "data/OpenTable.h"
#include "definition_update/report/ActivityReport.h"
#include "tolctl/PdfReport.h"

namespace tol::ctl {

void writePdfLog(const std::string& file, ProgressLine& progress) {
    data::OpenTable log("wksDBU", "ZOVDEF.MDB", "ACTIVITYLOG");
    writePdfReport(file, progress, [&](search_print::ReportView& view, search_print::VSPrinter& printer) {
        update::printActivityLog(view, printer, log.rows, printer.Orientation());
    });
}

} // namespace tol::ctl
