// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tol::test {

/// What SQLite itself finds wrong with a database file; empty when it is sound.
std::string damageIn(const std::filesystem::path& file);

/// A hash over the values of each field with the rows in which they stand, by "TABLE.FIELD" in upper case.
/// Read past this program's own interface, as other tools see the file.
using FieldValues = std::map<std::string, std::string>;
FieldValues valuesIn(const std::filesystem::path& file);

} // namespace tol::test
