// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <ctime>

namespace tol::runtime {

/// A steady clock that goes on in steps of a few milliseconds and costs next to nothing to read, which
/// every call to an open file and every yield does.
struct CoarseClock {
    using duration = std::chrono::nanoseconds;
    using rep = duration::rep;
    using period = duration::period;
    using time_point = std::chrono::time_point<CoarseClock>;
    static constexpr bool is_steady = true;

    static time_point now() noexcept {
        timespec time{};
        ::clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
        return time_point(std::chrono::seconds(time.tv_sec) + duration(time.tv_nsec));
    }
};

} // namespace tol::runtime
