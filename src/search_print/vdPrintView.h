// SPDX-License-Identifier: MIT
#pragma once

#include "forms/look/Twips.h"
#include "search_print/document/VSPrinter.h"

#include <string_view>

class QWidget;

namespace tol::search_print {

class ReportWindow;

/// Lays a report window out for its state: maximised, the preview fills it, with the page's width fitted on
/// paper held on its side ("L"); else the preview goes back to its saved place, as far as the window has room
/// for it. `roomy` leaves more space at the bottom edge.
void vdPrintView(ReportWindow& window, bool maximised, const forms::Place& saved,
                 std::string_view orientation = " ", bool roomy = false);

/// Puts the controls where they belong in a window of this size, and leaves what they say and whether they
/// are to be seen: while a report is drawn or printed.
void placeControls(ReportWindow& window, bool maximised, const forms::Place& saved);

} // namespace tol::search_print
