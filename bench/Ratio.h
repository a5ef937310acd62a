// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <fmt/core.h>
#include <functional>
#include <string_view>
#include <vector>

namespace tol::bench {

inline double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Runs ours and theirs in turn, so that a change of the machine's speed meets both, and prints the
/// median times and the median of the ratios taken pair by pair. The first pair warms up and is not counted.
/// Both tell the seconds of what is to be compared.
inline double ratioOf(std::string_view name, int pairs, const std::function<double()>& ours,
                      const std::function<double()>& theirs) {
    std::vector<double> a, b, ratios;
    for (int pair = 0; pair <= pairs; ++pair) {
        const double mine = ours();
        const double other = theirs();
        if (pair == 0)
            continue;
        a.push_back(mine);
        b.push_back(other);
        ratios.push_back(mine / other);
    }
    fmt::print("{:<44} {:>10.3f} ms {:>10.3f} ms   ratio {:.2f} ({:.2f} to {:.2f})\n", name, 1e3 * median(a),
               1e3 * median(b), median(ratios), *std::min_element(ratios.begin(), ratios.end()),
               *std::max_element(ratios.begin(), ratios.end()));
    std::fflush(stdout);
    return median(ratios);
}

/// The same of all that they do.
inline double ratio(std::string_view name, int pairs, const std::function<void()>& ours,
                    const std::function<void()>& theirs) {
    return ratioOf(
        name, pairs, [&] { return seconds(ours); }, [&] { return seconds(theirs); });
}

} // namespace tol::bench
