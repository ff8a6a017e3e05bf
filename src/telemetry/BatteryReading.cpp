// SPDX-License-Identifier: MIT
#include "telemetry/BatteryReading.h"

#include <array>

namespace vtx {
namespace {

using PowerSource = BatteryReading::PowerSource;
using ChargingState = BatteryReading::ChargingState;

constexpr double fullFrom = 0.99;
/// A raw amperage above this is a negative number whose sign was lost on the way.
constexpr std::int64_t largestAmperage = 0x3fff'ffff;
constexpr std::int64_t lostSign = std::int64_t{1} << 32;

std::optional<double> ratio(std::optional<std::int64_t> part, std::optional<std::int64_t> whole) {
    if (!part || !whole || *whole < 1) return std::nullopt;
    return static_cast<double>(*part) / static_cast<double>(*whole);
}

std::optional<std::int64_t> unlessNegative(std::optional<std::int64_t> minutes) {
    return minutes && *minutes >= 0 ? minutes : std::nullopt;
}

PowerSource sourceOf(std::optional<std::string_view> providingType) {
    if (providingType == "AC Power") return PowerSource::acAdapter;
    return providingType == "Battery Power" ? PowerSource::battery : PowerSource::unknown;
}

ChargingState stateOf(const BatteryReading& reading, bool isCharging) {
    if (isCharging) return ChargingState::charging;
    if (reading.powerSource == PowerSource::battery) return ChargingState::discharging;
    if (reading.powerSource == PowerSource::unknown) return ChargingState::unknown;
    const bool isFull = reading.chargeFraction && *reading.chargeFraction >= fullFrom;
    return isFull ? ChargingState::full : ChargingState::acIdle;
}

}  // namespace

BatteryReading BatteryReading::make(const PowerSourceFigures& source,
                                    const SmartBatteryFigures& battery) {
    BatteryReading reading;
    reading.chargeFraction = ratio(source.currentCapacity, source.maxCapacity);
    if (!reading.chargeFraction)
        reading.chargeFraction = ratio(battery.currentCapacityMAh, battery.maxCapacityMAh);
    reading.powerSource = sourceOf(source.providingType);
    reading.chargingState = stateOf(reading, source.isCharging.value_or(false));
    reading.minutesUntilFull = unlessNegative(source.minutesToFull);
    reading.minutesRemaining = unlessNegative(source.minutesToEmpty);
    reading.currentCapacityMAh = battery.currentCapacityMAh;
    reading.maxCapacityMAh = battery.maxCapacityMAh;
    reading.voltageMV = battery.voltageMV;
    reading.amperageMA = battery.amperage;
    if (reading.amperageMA > largestAmperage) *reading.amperageMA -= lostSign;
    return reading;
}

BatteryReading::HealthGrade BatteryReading::grade(std::optional<std::int64_t> currentMaxCapacity,
                                                  std::optional<std::int64_t> designCapacity) {
    const auto left = ratio(currentMaxCapacity, designCapacity);
    if (!left) return HealthGrade::unknown;
    if (*left >= 0.9) return HealthGrade::excellent;
    if (*left >= 0.8) return HealthGrade::good;
    return *left >= 0.7 ? HealthGrade::fair : HealthGrade::poor;
}

std::string_view rawValue(BatteryReading::PowerSource source) {
    constexpr std::array<std::string_view, 3> names{"battery", "acAdapter", "unknown"};
    return names.at(static_cast<std::size_t>(source));
}

std::string_view rawValue(BatteryReading::ChargingState state) {
    constexpr std::array<std::string_view, 5> names{"charging", "discharging", "full", "acIdle",
                                                    "unknown"};
    return names.at(static_cast<std::size_t>(state));
}

}  // namespace vtx
