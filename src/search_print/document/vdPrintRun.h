// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"

#include <string_view>

namespace tol::search_print {

/// Margins of a document in twips; 0 stands for the usual 500.
struct PrintMargins {
    double left = 0, right = 0, top = 0, bottom = 0;
};

/// Begins a document on paper held upright ("P", also for a blank) or on its side ("L"). False, after a box,
/// when the printer can't be used.
bool vdPrintStart(ReportView& view, VSPrinter& printer, std::string_view orientation = " ",
                  bool keepNavigation = false, const PrintMargins& margins = {});

/// Ends the document, which the preview then shows, and tells how it ended; `started` is what became of
/// vdPrintStart()'s result. Always true.
bool vdPrintFinish(ReportView& view, VSPrinter& printer, int savedOrientation, bool started);

/// Tells that the page is being built.
void showPageProgress(ReportView& view, const VSPrinter& printer);

} // namespace tol::search_print
