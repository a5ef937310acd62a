// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "shell/vdfunctions/vdRecords.h"

#include <string>

namespace tol::rights {

/// Deletes all rows whose first keys in the index are these, one after the other, and yields after each. The
/// recordset has no current record afterwards. An error passes through and leaves deleted what was deleted
/// so far; the same call then deletes the rest.
void deleteRows(data::Recordset& rows, const std::string& index, const shell::KeyPairs& keys);

} // namespace tol::rights
