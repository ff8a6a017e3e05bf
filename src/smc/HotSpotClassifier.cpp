// SPDX-License-Identifier: MIT
#include "smc/HotSpotClassifier.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vtx {
namespace {

constexpr std::size_t fewestToJudge = 4;
constexpr std::size_t baselinePercent = 40;
constexpr double hotSpotDistanceC = 12.0;

}  // namespace

HotSpotClassifier::Verdict HotSpotClassifier::classifyWithStats(const SensorPeaks& peaks) {
    Verdict verdict;
    if (peaks.size() < fewestToJudge) return verdict;
    std::vector<double> sorted;
    sorted.reserve(peaks.size());
    for (const auto& [key, peak] : peaks) sorted.push_back(peak);
    std::ranges::sort(sorted);
    verdict.baseline = sorted[sorted.size() * baselinePercent / 100 - 1];
    verdict.cutoff = verdict.baseline + hotSpotDistanceC;
    for (const auto& [key, peak] : peaks)
        if (peak >= verdict.cutoff) verdict.denylist.insert(key);
    return verdict;
}

}  // namespace vtx
