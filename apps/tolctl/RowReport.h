// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/DatabaseJson.h"
#include "tolctl/ProgressLine.h"

namespace tol::ctl {

/// Shows on the line which row is in work, and breaks the work off when a stop was asked for.
data::json::RowWatcher rowReport(ProgressLine& progress);

} // namespace tol::ctl
