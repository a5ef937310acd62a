// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

#include <string>

namespace tol::update {

/// The only writer of ACTIVITYLOG: stores a row about the site and database in work and shows it. Run-time
/// errors pass to the caller.
void WriteActivityLog(UpdateState& state, const std::string& table, const std::string& index,
                      const std::string& field, const std::string& action);

} // namespace tol::update
