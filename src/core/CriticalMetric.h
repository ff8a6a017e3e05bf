// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "memory/MemoryStats.h"

namespace vtx {

/// How much a metric deserves the one tile of the compact strip.
struct MetricScore {
    std::string_view id;  ///< identifier of its tile
    double score = 0.0;   ///< from 0.0 to 1.0
};

/// The used fraction of the memory, raised by pressure, up to 1.0.
[[nodiscard]] double memoryScore(double usedFraction, MemoryStats::Pressure pressure);

/// 0.0 up to 60 °C, 1.0 from 95 °C on, even in between.
[[nodiscard]] double thermalScore(double celsius);

/// 1.0 from 500 MiB a second on, read and written together.
[[nodiscard]] double diskScore(double bytesReadPerSecond, double bytesWrittenPerSecond);

/// The metric with the highest score; among equals the one that stands first in `priority`, where
/// one that is not in it comes last. Without any score the first of `priority`, else "cpu".
[[nodiscard]] std::string mostCritical(std::span<const MetricScore> scores,
                                       std::span<const std::string> priority);

}  // namespace vtx
