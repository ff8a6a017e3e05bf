// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vtx {

/// Thousandths of a degree Celsius, as the kernel writes temperatures.
using MilliCelsius = std::int64_t;

/// A temperature; absent for what is no number or no temperature of a running machine: below -40
/// or above 200 degrees, which is what firmware says of a sensor that is not there.
[[nodiscard]] std::optional<MilliCelsius> parseMilliCelsius(std::string_view text);

/// One trip point of a thermal zone.
struct TripPoint {
    enum class Kind : std::uint8_t { passive, hot, critical, other };
    Kind kind = Kind::other;
    MilliCelsius temperature = 0;  ///< one of 0 or below is not in use
    MilliCelsius hysteresis = 0;   ///< 0 where the zone has none
};
[[nodiscard]] TripPoint::Kind parseTripKind(std::string_view text);

/// From which temperatures on a zone's level is fair, serious and critical; each absent where none
/// of the zone's trip points says so.
///
/// | level | from |
/// |---|---|
/// | critical | the hot trip point, or 5 degrees below the critical one where that is lower |
/// | serious | the passive one; without it 10 degrees below the critical one |
/// | fair | 5 degrees below serious |
///
/// At the passive one the kernel slows the machine down, at the critical one it shuts it down.
struct ThermalThresholds {
    std::optional<MilliCelsius> fair, serious, critical;
    MilliCelsius hysteresis = 0;  ///< a level is left this much below its threshold

    [[nodiscard]] bool isEmpty() const { return !fair && !serious && !critical; }
    friend bool operator==(const ThermalThresholds&, const ThermalThresholds&) = default;
};
[[nodiscard]] ThermalThresholds thresholdsOf(std::span<const TripPoint> trips);

/// The level, 0 to 3, of a zone at a temperature whose level was `held` before.
[[nodiscard]] int thermalLevel(MilliCelsius temperature, const ThermalThresholds& thresholds,
                               int held);

}  // namespace vtx
