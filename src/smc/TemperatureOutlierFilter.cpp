// SPDX-License-Identifier: MIT
#include "smc/TemperatureOutlierFilter.h"

#include <algorithm>
#include <cstddef>

namespace vtx {
namespace {

constexpr std::size_t fewestToJudge = 4;
constexpr std::size_t fewestToDropOf = 3;
constexpr int mostDropped = 10;
constexpr double outlierDistanceC = 20.0;

}  // namespace

std::optional<double> TemperatureOutlierFilter::maxRejectingOutliers(std::vector<double> values) {
    if (values.empty()) return std::nullopt;
    std::ranges::sort(values);
    if (values.size() < fewestToJudge) return values.back();
    const double reference = values[values.size() / 4];
    for (int dropped = 0; dropped < mostDropped && values.size() >= fewestToDropOf; ++dropped) {
        if (values.back() - reference < outlierDistanceC) break;
        values.pop_back();
    }
    return values.back();
}

}  // namespace vtx
