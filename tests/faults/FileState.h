// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tol::test {

/// What SQLite itself finds wrong with a database file; empty when it is sound.
std::string damageIn(const std::filesystem::path& file);

/// The number of a table's rows, and a hash over these fields of all rows in the order in which they were
/// added. Read past this program's own interface.
std::string rowsDigest(const std::filesystem::path& file, const std::string& table,
                       const std::vector<std::string>& fields);

/// The names of the fields that are of one type and size in both definitions.
std::vector<std::string> sameFields(const data::TableDefinition& first, const data::TableDefinition& second);

} // namespace tol::test
