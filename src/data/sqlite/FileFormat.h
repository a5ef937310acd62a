// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

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

} // namespace tol::data::sqlite
