// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

#include "pass/Statistics.h"

namespace vtx::bench {

/// The CPU time of reading sensors, the answers of the simulated SMC included.
struct SensorCosts {
    /// Finding the sensors among all keys, which a start does once.
    Statistics discovery;
    /// One poll of those that calibration left, and of the fans.
    Statistics poll;
    std::size_t keys = 0;
    /// Values that a poll reads.
    std::size_t valuesOfAPoll = 0;
};

/// Does both in turn on a simulated machine with that many keys, `gap` apart, so that each finds
/// colder caches than a bare loop would leave.
[[nodiscard]] SensorCosts measureSensors(std::size_t keys, int rounds,
                                         std::chrono::milliseconds gap);

}  // namespace vtx::bench
