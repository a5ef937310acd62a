// SPDX-License-Identifier: MIT
#include "data/sqlite/FileFormat.h"

#include "data/sqlite/CatalogueTables.h"

namespace tol::data::sqlite {

void writeFormat(Connection& connection) {
    configure(connection);
    connection.execute("BEGIN IMMEDIATE; PRAGMA application_id = " + std::to_string(applicationId) +
                       "; PRAGMA user_version = " + std::to_string(formatVersion));
    CatalogueTables(connection).create();
    connection.execute("COMMIT");
}

void configure(Connection& connection) {
    // Bounds the memory, whatever the size of a transaction; deleted content is wiped where the page is
    // written anyway.
    connection.execute("PRAGMA cache_size = -8192; PRAGMA synchronous = FULL; PRAGMA secure_delete = FAST");
}

} // namespace tol::data::sqlite
