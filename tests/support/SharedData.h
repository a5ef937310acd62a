// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace tol::test {

/// A file of the folder of real data, which is no part of the sources: it is "shared/data" beside them
/// or further up, or the folder that $TOL_SHARED_DATA names. Nothing where there is no such file; tests
/// that need it then skip and say so.
std::optional<std::filesystem::path> sharedData(std::string_view name);

} // namespace tol::test
