// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <string>

namespace tol::rights {

/// The code of the module whose User Access Items were listed last, as NETSETTINGS remembers it; blanks where
/// no module has been selected yet, of which an empty table takes note.
std::string selectedModule(data::Recordset& settings);
/// Remembers another one.
void selectModule(data::Recordset& settings, const std::string& moduleId);

} // namespace tol::rights
