// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/search/SearchDescription.h"

#include <string>

namespace tol::search_print {

/// Lets a person look for a record in a modal window before the one in front. Returns the bookmark of the
/// chosen record, for any recordset of that table; " " when none was chosen or, after a box, when the window
/// could not be opened.
std::string vdSearch(const SearchDescription& description);

} // namespace tol::search_print
