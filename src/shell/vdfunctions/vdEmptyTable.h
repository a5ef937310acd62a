// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <string_view>

namespace tol::shell {

/// Empties the recordset's table by rebuilding it (names, sizes and types of its fields, names and keys
/// of its indexes are kept). The recordset is closed afterwards in any case. False, after a box, when
/// the table can't be held exclusively or the disk is full, which a box of its own tells before. A blank
/// folder means the current one, "" as database MAIN.MDB.
bool vdEmptyTable(std::string_view folder, std::string_view database, data::Recordset& recordset);

} // namespace tol::shell
