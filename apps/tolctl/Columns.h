// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tol::ctl {

/// A line of texts that stand in columns of these widths, in characters, with two blanks between. A text
/// longer than its column pushes the rest of the line to the right.
std::string alignedLine(std::span<const std::string_view> cells, std::span<const std::size_t> widths);

} // namespace tol::ctl
