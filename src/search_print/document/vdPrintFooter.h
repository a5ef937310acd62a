// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/VSPrinter.h"

#include <string_view>

namespace tol::search_print {

/// Draws the strip of cells at the foot of the page: module, report, and as told date, time and page. 1, or
/// 0 when an error left it unfinished. The printer's settings stay as they were.
int vdPrintFooter(VSPrinter& printer, std::string_view moduleText, std::string_view reportText, bool date,
                  bool time, bool page);

} // namespace tol::search_print
