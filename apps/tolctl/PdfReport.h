// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"

#include <functional>
#include <string>

namespace tol::ctl {

class ProgressLine;

/// Draws a report as a document of the printer, and tells the view how far it has come.
using DrawReport = std::function<void(search_print::ReportView& view, search_print::VSPrinter& printer)>;

/// Writes a report to a PDF file; needs no display. Raises 75 when the file can't be written, Failure when
/// the report has no page, and stopped() when a stop was asked for.
void writePdfReport(const std::string& file, ProgressLine& progress, const DrawReport& draw);

} // namespace tol::ctl
