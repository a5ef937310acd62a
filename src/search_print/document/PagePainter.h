// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"

class QPainter;

namespace tol::search_print {

/// Draws a page with a painter whose unit is the twip and whose origin is the page's upper left corner. The
/// paper itself is not drawn.
void paintPage(QPainter& painter, const PageList& list, const Page& page);

} // namespace tol::search_print
