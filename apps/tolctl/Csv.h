// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tol::ctl {

/// A record of comma-separated values.
struct CsvRecord {
    std::size_t line = 0; ///< on which it begins, from 1
    std::vector<std::string> fields;
    bool wellFormed = true; ///< quotes stand around whole fields, and are closed
};

/// All records of a text. Fields may stand in quotes, and a quoted one may hold commas, line ends and doubled
/// quotes. CR LF, LF and CR end a line alike; empty lines are passed over, and so is a byte order mark.
std::vector<CsvRecord> readCsv(std::string_view text);

/// Adds a record with its line end (CR LF), in quotes whatever needs them.
void appendCsv(std::string& text, std::span<const std::string> fields);

} // namespace tol::ctl
