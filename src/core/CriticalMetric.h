// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vtx {

/// How much a metric deserves the one tile of the compact strip.
struct MetricScore {
    std::string_view id;  ///< identifier of its tile
    double score = 0.0;   ///< from 0.0 to 1.0
};

/// Used memory as a fraction from 0.0 to 1.0; 0.0 of no memory at all.
[[nodiscard]] double memoryFraction(std::uint64_t usedBytes, std::uint64_t totalBytes);

/// The fraction, raised by what the pressure adds, up to 1.0.
[[nodiscard]] double memoryScore(double fraction, double pressureBoost);

/// 0.0 up to 60 °C, 1.0 from 95 °C on, even in between.
[[nodiscard]] double thermalScore(double celsius);

/// 1.0 from 500 MiB a second on, read and written together.
[[nodiscard]] double diskScore(double bytesReadPerSecond, double bytesWrittenPerSecond);

/// The metric with the highest score; among equals the one that stands first in `priority`, where
/// one that is not in it comes last. Without any score the first of `priority`, else "cpu".
[[nodiscard]] std::string mostCritical(std::span<const MetricScore> scores,
                                       std::span<const std::string> priority);

}  // namespace vtx
