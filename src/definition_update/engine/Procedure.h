// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

#include <functional>
#include <string_view>

namespace tol::update {

/// Runs the body of one of the run's procedures and stores what it wrote. A run-time error in either is
/// reported with the procedure's name, is noted, and ends the procedure alone: its caller goes on. True when
/// there was none.
bool runProcedure(UpdateState& state, std::string_view procedure, const std::function<void()>& body);
/// The same for one whose writes are stored with what follows it.
bool runStep(UpdateState& state, std::string_view procedure, const std::function<void()>& body);

/// Tells the view of an error that was just reported. An open target that takes no changes is left.
void noteError(UpdateState& state, std::string_view procedure, int number);

/// To be called before a change of the target that is logged before it is made: raises what would keep any
/// change from the file.
void requireUpdatableTarget(UpdateState& state);

} // namespace tol::update
