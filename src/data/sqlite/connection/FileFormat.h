// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/Connection.h"

#include <cstdint>

namespace tol::data::sqlite {

/// Marks in the header of files that this program makes. A file with this application id and a greater
/// version was made by a later release.
inline constexpr std::int32_t applicationId = 0x546F6C76; // "Tolv"
inline constexpr std::int32_t formatVersion = 1;

/// Makes an empty file a database of this program's, in one transaction.
void writeFormat(Connection& connection);
/// Settings of a connection to a file of any maker.
void configure(Connection& connection);

/// Looks at the header of a file that was just opened, before SQLite takes it for what it is not: an
/// empty file, which would count as a new database, foreign bytes and a later format of our own raise
/// 3343, a file that is cut off or whose header makes no sense 3049. What a killed program left is put right
/// and cleared away; where that can't be done, or the write-ahead log of a file can't be kept, 3051 tells
/// what stands in the way. Else nothing is written. Damage further inside is found by SQLite where it is met.
void checkFile(Connection& connection);

} // namespace tol::data::sqlite
