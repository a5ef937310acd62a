// SPDX-License-Identifier: MIT
#include "tolctl/RowReport.h"

#include "tolctl/Interrupt.h"

#include <fmt/format.h>

namespace tol::ctl {

data::json::RowWatcher rowReport(ProgressLine& progress) {
    return [&progress](const data::json::RowProgress& at) {
        stopIfInterrupted();
        progress.show([&] {
            const std::string count = at.count > 0 ? fmt::format(" of {}", at.count) : "";
            return fmt::format("{}  record {}{}", at.table, at.row, count);
        });
    };
}

} // namespace tol::ctl
