// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Date.h"

namespace vtx {

/// What the power-source service says of the first source, as it says it.
struct PowerSourceFigures {
    std::optional<std::string_view> providingType;
    std::optional<std::int64_t> currentCapacity;
    std::optional<std::int64_t> maxCapacity;  ///< in the unit of the one before
    std::optional<bool> isCharging;
    std::optional<std::int64_t>
        minutesToFull;  ///< below 0 while it is calculating, as the next one
    std::optional<std::int64_t> minutesToEmpty;
};

/// What the battery's own registry entry says, as it says it.
struct SmartBatteryFigures {
    std::optional<std::int64_t> currentCapacityMAh;
    std::optional<std::int64_t> maxCapacityMAh;
    std::optional<std::int64_t> voltageMV;
    std::optional<std::int64_t>
        amperage;  ///< mA, a signed number of 32 bits told as an unsigned one
};

/// One reading of the battery. Whatever neither source tells is absent.
struct BatteryReading {
    /// What powers the machine. Raw value: the case's name.
    enum class PowerSource : std::uint8_t { battery, acAdapter, unknown };
    /// Raw value: the case's name.
    enum class ChargingState : std::uint8_t { charging, discharging, full, acIdle, unknown };
    /// How much of its design capacity the battery still holds.
    enum class HealthGrade : std::uint8_t { excellent, good, fair, poor, unknown };

    std::optional<double> chargeFraction;  ///< not limited to 1.0: it is what the machine says
    PowerSource powerSource = PowerSource::unknown;
    ChargingState chargingState = ChargingState::unknown;
    std::optional<std::int64_t> minutesUntilFull;
    std::optional<std::int64_t> minutesRemaining;
    std::optional<std::int64_t> currentCapacityMAh;
    std::optional<std::int64_t> maxCapacityMAh;
    std::optional<std::int64_t> voltageMV;
    std::optional<std::int64_t> amperageMA;  ///< negative while discharging
    bool lowPowerModeEnabled = false;
    std::optional<double> temperatureC;
    Date timestamp;

    friend bool operator==(const BatteryReading&, const BatteryReading&) = default;

    /// Merges both views; temperature, mode and time are left as they are in a new reading.
    static BatteryReading make(const PowerSourceFigures& source,
                               const SmartBatteryFigures& battery);

    /// By the ratio of both: excellent from 0.9, good from 0.8, fair from 0.7, else poor; unknown
    /// where either is absent or the design capacity is below 1.
    static HealthGrade grade(std::optional<std::int64_t> currentMaxCapacity,
                             std::optional<std::int64_t> designCapacity);
};

std::string_view rawValue(BatteryReading::PowerSource source);
std::string_view rawValue(BatteryReading::ChargingState state);

}  // namespace vtx
