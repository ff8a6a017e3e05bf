// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vtx {

/// What one battery's driver tells, in the kernel's units. A driver tells of charge or of energy,
/// of current or of power, and leaves out what it does not know.
struct BatteryFacts {
    enum class Status : std::uint8_t { unknown, charging, discharging, notCharging, full };

    Status status = Status::unknown;
    bool isPresent = true;
    std::optional<std::int64_t> capacity;                                 ///< percent, 0 to 100
    std::optional<std::int64_t> chargeNow, chargeFull, chargeFullDesign;  ///< µAh
    std::optional<std::int64_t> energyNow, energyFull, energyFullDesign;  ///< µWh
    std::optional<std::int64_t> voltageNow, voltageMinDesign, voltageMaxDesign;  ///< µV
    std::optional<std::int64_t> currentNow;  ///< µA without its sign, on which drivers disagree
    std::optional<std::int64_t> powerNow;    ///< µW, likewise
    std::optional<std::int64_t> secondsToEmpty, secondsToFull;
    std::optional<std::int64_t> cycleCount;
    std::optional<std::int64_t> temperature;  ///< tenths of a degree Celsius

    friend bool operator==(const BatteryFacts&, const BatteryFacts&) = default;
};

/// Of lines "POWER_SUPPLY_NAME=value", as in a supply's `uevent`. A line that is not understood,
/// the last one without its end included, is passed over, as is a value that no battery has.
[[nodiscard]] BatteryFacts parseBatteryFacts(std::string_view text);

/// The machine's batteries taken as one, in the units of the logic's platform.
struct BatteryState {
    std::optional<std::int64_t> percent;         ///< 0 to 100
    std::optional<bool> isCharging;              ///< absent where no battery says what it does
    bool powersMachine = false;                  ///< one discharges, and no supply is online
    std::optional<std::int64_t> minutesToEmpty;  ///< only while discharging
    std::optional<std::int64_t> minutesToFull;   ///< only while charging
    std::optional<std::int64_t> currentMAh, maxMAh, designMAh;
    std::optional<std::int64_t> voltageMV;
    std::optional<std::int64_t> amperageMA;  ///< negative while discharging
    std::optional<std::int64_t> cycleCount;
    std::optional<std::int64_t> centiCelsius;

    friend bool operator==(const BatteryState&, const BatteryState&) = default;
};

/// Merges those that are present. Energy becomes charge by the design voltage; the sign of the
/// current is the status's; a capacity that is much below what is in it is refused with it; times
/// come from energy and power where the driver gives none, and beyond a hundred hours from nowhere.
/// Voltage and temperature are those of the battery in use. Nothing is known of supplies here: the
/// batteries power the machine where one discharges.
[[nodiscard]] BatteryState mergeBatteries(std::span<const BatteryFacts> batteries);

}  // namespace vtx
