// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Date.h"

namespace vtx {

/// One reading of temperatures, in degrees Celsius.
struct TemperatureReading {
    /// The hottest credible temperature of the processor; absent where no sensor gave one.
    std::optional<double> cpuMaxC;
    std::optional<double> batteryC;
    Date timestamp;

    friend bool operator==(const TemperatureReading&, const TemperatureReading&) = default;
};

}  // namespace vtx
