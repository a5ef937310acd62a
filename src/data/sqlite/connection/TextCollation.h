// SPDX-License-Identifier: MIT
#pragma once

struct sqlite3;

namespace tol::data::sqlite {

/// The name under which index columns of this program's own tables ask for the order of
/// runtime::compareText(). It never stands on a table's column, so that other tools can read the tables.
inline constexpr const char* textCollation = "TOLTEXT";

void registerTextCollation(sqlite3* connection);

/// The entry of MSysInfo that tells by which runtime::collationVersion() the file's text indexes are
/// sorted.
inline constexpr const char* collatorEntry = "CollatorVersion";

} // namespace tol::data::sqlite
