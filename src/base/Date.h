// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace vtx {

/// A moment of the user's calendar, in UTC. It may jump when the clock is set.
using Date = std::chrono::sys_time<std::chrono::microseconds>;

/// A length of time.
using Duration = std::chrono::nanoseconds;

/// Tag of the clock that never jumps and that also counts the time that the machine slept.
struct ContinuousTime {
    using duration = Duration;
    using rep = duration::rep;
    using period = duration::period;
    static constexpr bool is_steady = true;
};

/// A moment of the continuous clock; only differences mean something.
using Instant = std::chrono::time_point<ContinuousTime, Duration>;

/// Earlier than every date that a clock can give, and safe to subtract from one.
inline constexpr Date distantPast{std::chrono::microseconds{-62'135'596'800'000'000}};

constexpr Duration seconds(double count) {
    return std::chrono::duration_cast<Duration>(std::chrono::duration<double>(count));
}

template <class Rep, class Period>
constexpr double toSeconds(std::chrono::duration<Rep, Period> span) {
    return std::chrono::duration<double>(span).count();
}

}  // namespace vtx
