// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::demo {

/// Makes a complete working folder with invented data: the program's own databases, the network
/// database, six Job Sites that stand one to three releases behind, the user's databases on drive C
/// and the reference copies of the wanted definition. Locations in the data are on drives C and S of
/// the folder's own "drives", so that the folder may be moved or copied as a whole. The contents are
/// the same each time.
///
/// The folder must not exist yet, or be empty; anything else raises RuntimeError 75. When the work
/// fails, what has been made so far is removed again. A storage engine must have been added.
void makeDemo(const std::filesystem::path& folder);

} // namespace tol::demo
