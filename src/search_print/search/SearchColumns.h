// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/search/SearchDescription.h"

#include <array>
#include <cstdint>
#include <string>

namespace tol::search_print {

/// One column of a search.
struct SearchColumn {
    std::string ColIndex = " "; ///< blank: nothing can be sought in the column
    std::string ColField = " ";
    std::string ColType = " ";   ///< "C": what is typed is sought as text, else as a number
    std::string ColFormat = " "; ///< of a number
    std::int16_t ColSize = 0;    ///< longest text that may be typed
    std::string ColTitle = " ";
    std::int32_t ColWidth = 0; ///< twips; 0: not shown
    std::int16_t ColAlign = 0; ///< 0 left, 1 right, 2 centre
};

using SearchColumns = std::array<SearchColumn, 6>;

/// The columns that the lists of the description tell. Raises 9 for a list of more than six entries, 6 for a
/// number out of range.
SearchColumns searchColumns(const SearchDescription& description);

} // namespace tol::search_print
