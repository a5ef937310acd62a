// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"
#include "search_print/document/VSPrinter.h"

#include <string>
#include <vector>

namespace tol::test {

/// The primitives of a page (numbered from 1) as one line of text each: "box 500 600 1700 850 pen 5",
/// "box ... pen 5 fill e1e1e1", "line ...", "text 580 662.5 Courier New 8: NORTH".
std::vector<std::string> drawn(const search_print::VSPrinter& printer, int page = 1);

/// The texts of a page alone.
std::vector<std::string> textsOf(const search_print::VSPrinter& printer, int page = 1);

/// A started document on A4 paper with margins of 500.
class Document : public search_print::VSPrinter {
  public:
    explicit Document(search_print::Paper paper = search_print::paperA4);
};

} // namespace tol::test
