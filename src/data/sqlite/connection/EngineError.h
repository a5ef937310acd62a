// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/FileError.h"
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

/// Lets SQLite tell a used-up quota, or a limit on the size of files, as the full disk that it is. By
/// itself it takes them for failing hardware, and which of the two a write met is lost by the time it has
/// rolled back. Holds for the whole process; calling it again does nothing.
void tellLimitsAsFullDisk();

} // namespace tol::data::sqlite
