// SPDX-License-Identifier: MIT
#pragma once

#include "data/FileError.h"
#include "runtime/RuntimeError.h"

#include <filesystem>
#include <string>
#include <string_view>

struct sqlite3;

namespace tol::data::sqlite {

/// What SQLite reports, as the run-time error that administrators know, with SQLite's own words kept
/// for logs. All but those of a rule that a row breaks name the file.
runtime::RuntimeError engineError(int resultCode, std::string_view engineText,
                                  const std::filesystem::path& file, int systemError = 0);

} // namespace tol::data::sqlite
