// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"

namespace tol::update {

/// Draws ACTIVITYLOG, in the order in which it was written, as a document of the printer; an empty log gives
/// one page that says so. The orientation is put back to `savedOrientation` at the end. Tells the view its
/// progress and asks it once per row whether to go on. True when the document was ended and may be
/// previewed; false, after a box, when the printer can't be used.
bool printActivityLog(search_print::ReportView& view, search_print::VSPrinter& printer,
                      data::Recordset& ACTIVITYLOG, int savedOrientation);

} // namespace tol::update
