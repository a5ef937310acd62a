// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "network/model/SuiteModules.h"

#include <optional>
#include <string>

namespace tol::network {

/// NETPATH.MDB of the current folder, which has one table with one row: where the network database lies.
inline constexpr const char* locationFile = "NETPATH.MDB";
inline constexpr const char* locationTable = "NETPATH";
/// Most characters of a location that a person may give.
inline constexpr int maxLocation = 100;

/// The location, without one backslash at its end. A file that is missing is made of the module's own path
/// file: whatever its table is called, it becomes the table NETPATH. Nothing when the module has no path file
/// either. Raises 53 when the path file is missing too, 3265 when no table has "PATH" in its name, and 3010
/// when the last one that has comes behind the table NETPATH.
std::optional<std::string> networkLocation(const SuiteModule& module);

/// Stores a location as it is (none as a blank), without looking whether anything lies there: in the first
/// row of the table that somebody has open, or of the table in its file.
void storeLocation(data::Recordset& NETPATH, const std::string& location);
void storeLocation(const std::string& location);

} // namespace tol::network
