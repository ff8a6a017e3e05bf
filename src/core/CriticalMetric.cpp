// SPDX-License-Identifier: MIT
#include "core/CriticalMetric.h"

#include <algorithm>

namespace vtx {
namespace {

constexpr double coolCelsius = 60.0;
constexpr double celsiusFromCoolToHot = 35.0;
constexpr double busyDiskBytesPerSecond = 500.0 * 1024 * 1024;

double boostOf(MemoryStats::Pressure pressure) {
    switch (pressure) {
        case MemoryStats::Pressure::warning:
            return 0.2;
        case MemoryStats::Pressure::critical:
            return 0.4;
        case MemoryStats::Pressure::normal:
            break;
    }
    return 0.0;
}

}  // namespace

double memoryScore(double usedFraction, MemoryStats::Pressure pressure) {
    return std::min(usedFraction + boostOf(pressure), 1.0);
}

double thermalScore(double celsius) {
    return std::clamp((celsius - coolCelsius) / celsiusFromCoolToHot, 0.0, 1.0);
}

double diskScore(double bytesReadPerSecond, double bytesWrittenPerSecond) {
    return std::min((bytesReadPerSecond + bytesWrittenPerSecond) / busyDiskBytesPerSecond, 1.0);
}

std::string mostCritical(std::span<const MetricScore> scores,
                         std::span<const std::string> priority) {
    if (scores.empty()) return priority.empty() ? "cpu" : priority.front();
    const auto place = [priority](const MetricScore& metric) {
        return std::ranges::find(priority, metric.id) - priority.begin();
    };
    const auto first =
        std::ranges::min_element(scores, [&place](const MetricScore& a, const MetricScore& b) {
            return a.score != b.score ? a.score > b.score : place(a) < place(b);
        });
    return std::string(first->id);
}

}  // namespace vtx
