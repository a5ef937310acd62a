// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/ErrorReport.h"
#include "definition_update/engine/TargetDatabase.h"

#include <string_view>

namespace tol::update {

/// Tells the view of an error that was just reported. An open target that takes no changes is left.
void noteError(Run& run, std::string_view procedure, int number);
void noteError(TargetDatabase& database, std::string_view procedure, int number);

/// The report of an error in one of a run's procedures: a box with its name, and a note. `State` is the run
/// or the database in work.
template <typename State>
auto reportOf(State& state, std::string_view procedure) {
    return [&state, procedure](const runtime::RuntimeError& error) {
        boxFor(updateForm, procedure)(error);
        noteError(state, procedure, error.number());
    };
}

/// Runs the body of one of the run's procedures. A run-time error in it, and what could not be stored since
/// the one before it, is reported and ends the procedure alone: its caller goes on. True when there was none.
template <typename State, typename Body>
bool runProcedure(State& state, std::string_view procedure, Body&& body) {
    return trapErrors(reportOf(state, procedure), body);
}

/// The same for one that leaves what could not be stored to be told with what follows it.
template <typename State, typename Body>
bool runStep(State& state, std::string_view procedure, Body&& body) {
    return trapError(reportOf(state, procedure), body);
}

} // namespace tol::update
