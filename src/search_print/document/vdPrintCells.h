// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/VSPrinter.h"

#include <string_view>

namespace tol::search_print {

/// How a data cell shows its text: from the left unless told otherwise.
struct CellLook {
    bool center = false;
    bool bold = false;
    bool decimal = false; ///< ends at 95 % of the width
    bool right = false;
    bool fit = false;  ///< as lines that wrap between the margins
    double indent = 0; ///< of the wrapped text, in twips
};

/// Draws the title of a column, of one line or two; `second` may be blank. Where the next cell begins.
double vdPrintTitleCell(VSPrinter& printer, double x, double y, double height, double width,
                        std::string_view first, std::string_view second = {}, bool leftAlign = false,
                        bool largeFont = false);

/// Draws a frame with a text in it. Where the next cell begins.
double vdPrintCell(VSPrinter& printer, double x, double y, double height, double width, std::string_view text,
                   CellLook look = {});

} // namespace tol::search_print
