// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

namespace vtx {

/// Peak temperatures by key, in degrees Celsius.
using SensorPeaks = std::map<std::string, double, std::less<>>;
using SensorKeySet = std::set<std::string, std::less<>>;

/// Tells hot spots from the rest of the field by their peaks.
struct HotSpotClassifier {
    HotSpotClassifier() = delete;

    struct Verdict {
        SensorKeySet denylist;
        double baseline = 0.0;  ///< the peak at the 40th percentile; 0 with too few sensors
        double cutoff = 0.0;    ///< a peak from here on is a hot spot's
    };

    /// A key is a hot spot if its peak stands 12 degrees or more above the baseline. Fewer than
    /// four peaks tell nothing.
    [[nodiscard]] static Verdict classifyWithStats(const SensorPeaks& peaks);
};

}  // namespace vtx
