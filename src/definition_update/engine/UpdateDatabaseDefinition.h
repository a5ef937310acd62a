// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/TargetDatabase.h"

#include <string>

namespace tol::update {

/// Brings the file up to the wanted definition of the database in work: captures what it holds into OLDDEF
/// and OLDINDEXES, then has tables, indexes and field positions reconciled. One that can't be opened counts
/// as in order and unchanged.
DatabaseResult UpdateDatabaseDefinition(Run& run, const std::string& file);

} // namespace tol::update
