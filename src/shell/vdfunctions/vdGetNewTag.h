// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tol::shell {

/// The next number of a counter: prefix * 1000000 + n, 0 after a box on failure. Empty names stand for
/// MAIN.MDB and SYSTAGS.
std::int32_t vdGetNewTag(std::string_view folder, const std::string& field, std::string database,
                         std::string table, std::int32_t prefix);

} // namespace tol::shell
