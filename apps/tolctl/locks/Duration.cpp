// SPDX-License-Identifier: MIT
#include "tolctl/locks/Duration.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace tol::ctl {
namespace {

constexpr std::int64_t minute = 60, hour = 60 * minute, day = 24 * hour, week = 7 * day;

struct Unit {
    char letter;
    std::int64_t seconds;
};
constexpr Unit units[] = {{'s', 1}, {'m', minute}, {'h', hour}, {'d', day}, {'w', week}};
constexpr std::int64_t mostOfAUnit = 1'000'000;

/// Takes a number and its unit off the front.
std::optional<std::int64_t> takePart(std::string_view& text) {
    std::int64_t number = -1;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    if (error != std::errc() || number < 0 || number > mostOfAUnit || text.empty())
        return std::nullopt;
    const auto* const unit = std::ranges::find(units, text.front(), &Unit::letter);
    if (unit == std::end(units))
        return std::nullopt;
    text.remove_prefix(1);
    return number * unit->seconds;
}

} // namespace

std::optional<std::int64_t> secondsIn(std::string_view text) {
    std::int64_t seconds = 0;
    do {
        const std::optional<std::int64_t> part = takePart(text);
        if (!part)
            return std::nullopt;
        seconds += *part;
    } while (!text.empty());
    return seconds;
}

std::string durationText(std::int64_t seconds) {
    if (seconds < 0)
        return "-" + durationText(-seconds);
    if (seconds >= day)
        return fmt::format("{}d {}h", seconds / day, seconds % day / hour);
    if (seconds >= hour)
        return fmt::format("{}h {}m", seconds / hour, seconds % hour / minute);
    return fmt::format("{}m", seconds / minute);
}

} // namespace tol::ctl
