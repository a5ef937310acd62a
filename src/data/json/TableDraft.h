// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"

#include <cstddef>

namespace tol::data::json {

/// The table as a definition under construction, with its first `indexes` indexes. Raises what stands in the
/// way of a table of that definition: a name, two fields of one name, too many of them.
TableDef draftOf(const Database& database, const TableDefinition& wanted, std::size_t indexes);

/// One of its indexes.
Index indexOf(const TableDef& table, const IndexDef& wanted);

} // namespace tol::data::json
