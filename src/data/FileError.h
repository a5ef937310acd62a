// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <filesystem>
#include <string>

namespace tol::data {

/// The error with its usual description, with the file's name behind it where the description has no
/// place for one: an error about a file always names it.
runtime::RuntimeError fileError(runtime::ErrorNumber number, const std::filesystem::path& file,
                                std::string engineText = {});

} // namespace tol::data
