// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

namespace vtx {

/// Picks the temperature to believe among those of many sensors.
struct TemperatureOutlierFilter {
    TemperatureOutlierFilter() = delete;

    /// The highest value that does not stand alone 20 degrees or more above the bulk; with fewer
    /// than four values plainly the highest. After ten that do stand so, or with two left, the next
    /// is believed whatever it is. Absent without values. None may be a NaN.
    [[nodiscard]] static std::optional<double> maxRejectingOutliers(std::vector<double> values);
};

}  // namespace vtx
