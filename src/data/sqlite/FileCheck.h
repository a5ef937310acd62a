// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

namespace tol::data::sqlite {

/// Looks at the header of a file that was just opened, before SQLite takes it for what it is not: an
/// empty file, which would count as a new database, foreign bytes and a later format of our own raise
/// 3343, a file that is cut off or whose header makes no sense 3049. What a killed program left is put right
/// and cleared away; where that can't be done, or the write-ahead log of a file can't be kept, 3051 tells
/// what stands in the way. Else nothing is written. Damage further inside is found by SQLite where it is met.
void checkFile(Connection& connection);

} // namespace tol::data::sqlite
