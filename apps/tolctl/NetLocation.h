// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::ctl {

/// The folder of the network database as the main window has it from NETPATH.MDB: trimmed, without one
/// trailing backslash, the current folder when it is blank. Nothing is written. Blank when there is
/// no NETPATH.MDB.
std::string netLocation();

} // namespace tol::ctl
