// SPDX-License-Identifier: MIT
#include "tolctl/Columns.h"

#include "runtime/Text.h"

namespace tol::ctl {

std::string alignedLine(std::span<const std::string_view> cells, std::span<const std::size_t> widths) {
    std::string line;
    std::size_t due = 0; // blanks that stand before the next text
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string_view cell = runtime::trim(cells[i]);
        if (!cell.empty()) {
            line.append(due, ' ').append(cell);
            due = 0;
        }
        const std::size_t used = runtime::length(cell);
        due += (used < widths[i] ? widths[i] - used : 0) + 2;
    }
    return line;
}

} // namespace tol::ctl
