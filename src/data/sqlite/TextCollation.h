// SPDX-License-Identifier: MIT
#pragma once

#include <string>

struct sqlite3;

namespace tol::data::sqlite {

/// The name under which index columns of this program's own tables ask for the order of
/// runtime::compareText(). It never stands on a table's column, so that other tools can read the tables.
inline constexpr const char* textCollation = "TOLTEXT";

void registerTextCollation(sqlite3* connection);

/// The entry of MSysInfo that tells by which version of the collator the file's text indexes are
/// sorted, and the version at work.
inline constexpr const char* collatorEntry = "CollatorVersion";
std::string collatorVersion();

} // namespace tol::data::sqlite
