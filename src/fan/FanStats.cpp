// SPDX-License-Identifier: MIT
#include "fan/FanStats.h"

#include <algorithm>

#include "base/Shared.h"

namespace vtx {

std::optional<int> FanStats::maxRPM() const {
    if (fans.empty()) return std::nullopt;
    return std::ranges::max(fans, {}, &FanReading::currentRPM).currentRPM;
}

std::optional<double> FanStats::averageLoad() const {
    double sum = 0.0;
    int counted = 0;
    for (const FanReading& fan : fans) {
        if (!fan.minRPM || !fan.maxRPM || *fan.minRPM >= *fan.maxRPM) continue;
        const int within = std::clamp(fan.currentRPM, *fan.minRPM, *fan.maxRPM);
        sum += static_cast<double>(within - *fan.minRPM) / (*fan.maxRPM - *fan.minRPM);
        ++counted;
    }
    if (counted == 0) return std::nullopt;
    return sum / counted;
}

const FanStats& FanStats::empty() { return Shared<const FanStats>::get(); }

}  // namespace vtx
