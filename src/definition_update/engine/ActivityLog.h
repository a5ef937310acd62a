// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

#include <functional>
#include <string>

namespace tol::update {

/// The only writer of ACTIVITYLOG: stores a row about the site and database in work and shows it. Run-time
/// errors pass to the caller.
void WriteActivityLog(UpdateState& state, const std::string& table, const std::string& index,
                      const std::string& field, const std::string& action);

/// Makes a change of the target that may cost values, and writes its row. The change takes place as a whole
/// or not at all, and its row is in the log's file before it is in the target: whatever ends the program, no
/// value is gone of which the log does not tell. Run-time errors pass to the caller.
void changeAndLog(UpdateState& state, const std::function<void()>& change, const std::string& table,
                  const std::string& field, const std::string& action);

} // namespace tol::update
