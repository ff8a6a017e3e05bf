// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/linux/LinuxRoot.h"
#include "platform/linux/SensorRole.h"

namespace vtx {

enum class SensorKind { temperature, batteryTemperature, fan };

/// A sensor as a look at the machine's folders found it. A plain value.
struct FoundSensor {
    SensorKind kind = SensorKind::temperature;
    SensorRole role = SensorRole::other;
    /// Where the device stands below /sys/devices, which the order of drivers does not change.
    std::string device;
    /// What tells it from every other sensor, in every run: device, chip and label, or the channel
    /// where the label says nothing or is not the only one.
    std::string identity;
    std::string folder;  ///< of its files, which another order of drivers changes
    std::string stem;    ///< what its files' names begin with: "temp1", "fan2"; empty for a zone
    std::uint32_t channel = 0;

    friend bool operator==(const FoundSensor&, const FoundSensor&) = default;
};

/// More are not looked at.
inline constexpr std::size_t mostSensors = 2048;

/// The sensors of /sys/class/hwmon, the thermal zones of processors where no chip of these tells a
/// processor's temperature, and the batteries of the machine itself that tell theirs. Ordered by
/// device, chip and channel. Reads names and labels, which touch no sensor.
[[nodiscard]] std::vector<FoundSensor> findSensors(const LinuxRoot& root);

}  // namespace vtx
