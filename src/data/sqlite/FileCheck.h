// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

namespace tol::data::sqlite {

/// Looks at the header of a file that was just opened, before SQLite takes it for what it is not: an
/// empty file, which would count as a new database, foreign bytes and a later format of our own raise
/// 3343, a file that is cut off or whose header makes no sense 3049. Nothing is written or left beside
/// the file. Damage further inside is found by SQLite where it is met.
void checkFile(Connection& connection);

} // namespace tol::data::sqlite
