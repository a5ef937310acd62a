// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/TargetDatabase.h"

#include <functional>

namespace tol::update {

/// The only writer of ACTIVITYLOG: stores a row about the site and database in work and shows it. Run-time
/// errors pass to the caller.
void WriteActivityLog(Run& run, const Activity& activity);

/// Makes a change of the target that may cost values, and writes its row. The change takes place as a whole
/// or not at all, and its row is in the log's file before it is in the target, since the log leads the run's
/// batch of writes: whatever ends the program, no value is gone of which the log does not tell. Run-time
/// errors pass to the caller.
void changeAndLog(TargetDatabase& database, const std::function<void()>& change, const Activity& activity);

} // namespace tol::update
