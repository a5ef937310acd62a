// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace tol::data {

/// The error with its usual description, with the file's name behind it where the description has no
/// place for one: an error about a file always names it.
runtime::RuntimeError fileError(runtime::ErrorNumber number, const std::filesystem::path& file,
                                std::string engineText = {});
/// Any error, told as one about the file: with its name behind it, unless it has it already.
runtime::RuntimeError aboutFile(const runtime::RuntimeError& error, const std::filesystem::path& file);
/// The same error with a sentence more.
runtime::RuntimeError withRemark(const runtime::RuntimeError& error, std::string_view sentence);

/// The same error with the place where it came in front.
runtime::RuntimeError atPlace(std::string_view place, const runtime::RuntimeError& error);

} // namespace tol::data
