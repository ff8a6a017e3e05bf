// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// How long tasks waited for memory.
struct PressureLine {
    double avg10 = 0.0;             ///< percent of the last ten seconds, 0 to 100
    std::uint64_t totalMicros = 0;  ///< microseconds since the machine started

    friend bool operator==(const PressureLine&, const PressureLine&) = default;
};

/// /proc/pressure/memory.
struct MemoryPressure {
    PressureLine some;  ///< at least one task waited
    PressureLine full;  ///< all that had work waited

    friend bool operator==(const MemoryPressure&, const MemoryPressure&) = default;
};

/// Absent unless both lines are there and understood, each with its end.
[[nodiscard]] std::optional<MemoryPressure> parseMemoryPressure(std::string_view text);

}  // namespace vtx
