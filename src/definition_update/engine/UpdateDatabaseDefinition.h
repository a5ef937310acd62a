// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateState.h"

namespace tol::update {

/// Brings the target file of the state up to the wanted definition: captures what it holds into OLDDEF
/// and OLDINDEXES, then has tables, indexes and field positions reconciled. Its outcome is in
/// DatabaseOk, ChangesMade and the log; a target that can't be opened changes neither flag.
void UpdateDatabaseDefinition(UpdateState& state);

/// Fills OLDDEF, or OLDINDEXES, from the target.
void FillTableDef(UpdateState& state);
void FillIndexDef(UpdateState& state);

} // namespace tol::update
