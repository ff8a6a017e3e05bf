// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace vtx {

class IORegistry;

/// The battery's temperature as the battery's own driver tells it.
struct BatteryTemperatureReader {
    BatteryTemperatureReader() = delete;

    /// Degrees Celsius by "Temperature" of the service "AppleSmartBattery", in hundredths of a
    /// degree or of a kelvin. Absent without a battery, and for what no battery can have.
    [[nodiscard]] static std::optional<double> readFromAppleSmartBattery(IORegistry& registry);
};

}  // namespace vtx
