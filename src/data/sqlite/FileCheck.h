// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

namespace tol::data::sqlite {

/// Looks at the header of a file that was just opened, before SQLite touches it: an empty file, which
/// SQLite would take for a new database, foreign bytes and a later format of our own raise 3343, a
/// header that is cut off or makes no sense 3049. It takes no lock, writes nothing and leaves nothing
/// beside the file. Damage further inside is found by SQLite where it is met.
void checkFile(Connection& connection);

} // namespace tol::data::sqlite
