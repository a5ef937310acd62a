// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tol::data::json {

/// How far reading or writing has come.
struct RowProgress {
    const std::string& table;
    std::int64_t row;   ///< from 1
    std::int64_t count; ///< rows of the table, 0 when nobody knows
};

/// Called once per row. It may throw to break off.
using RowWatcher = std::function<void(const RowProgress&)>;

} // namespace tol::data::json
