// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/TextCollation.h"

#include "runtime/Text.h"

#include <sqlite3.h>

#include <new>

namespace tol::data::sqlite {
namespace {

int compare(void* /*context*/, int leftBytes, const void* left, int rightBytes, const void* right) {
    return runtime::compareText({static_cast<const char*>(left), static_cast<std::size_t>(leftBytes)},
                                {static_cast<const char*>(right), static_cast<std::size_t>(rightBytes)});
}

} // namespace

void registerTextCollation(sqlite3* connection) {
    if (sqlite3_create_collation_v2(connection, textCollation, SQLITE_UTF8, nullptr, compare, nullptr) !=
        SQLITE_OK)
        throw std::bad_alloc(); // the only way in which the call can fail
}

} // namespace tol::data::sqlite
