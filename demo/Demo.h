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
/// The folder must not exist yet, or be empty; anything else raises RuntimeError 75. A demo that can't
/// be written (75, or 61 when the disk is full) leaves nothing behind. A storage engine must have been
/// added.
void makeDemo(const std::filesystem::path& folder);

} // namespace tol::demo
