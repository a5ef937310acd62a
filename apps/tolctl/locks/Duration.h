// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tol::ctl {

/// The seconds of a duration as it is typed: whole numbers of "s", "m", "h", "d" or "w", one behind the other
/// ("2h", "1d12h"). Nothing for any other text, or when it is longer than some thousand years.
std::optional<std::int64_t> secondsIn(std::string_view text);

/// A duration as people read it, by its two largest units: "3d 4h", "4h 5m", "5m".
std::string durationText(std::int64_t seconds);

} // namespace tol::ctl
