// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <cstddef>
#include <string_view>

namespace tol::search_print {

/// Gives each entry of a list with "|" between the entries to the column of its place, as it stands. Raises 9
/// for more entries than columns.
template <typename Columns, typename Take>
void splitBars(std::string_view list, Columns& columns, Take&& take) {
    for (std::size_t place = 0;; ++place) {
        const std::size_t bar = list.find('|');
        if (place >= columns.size())
            runtime::raise(runtime::errSubscript);
        take(columns[place], list.substr(0, bar));
        if (bar == std::string_view::npos)
            return;
        list.remove_prefix(bar + 1);
    }
}

} // namespace tol::search_print
