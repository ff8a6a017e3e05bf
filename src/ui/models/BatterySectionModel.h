// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "telemetry/BatteryReading.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// What the page of the battery is drawn from.
struct BatterySectionReadings {
    bool isAvailable = true;
    /// Absent until there is one.
    std::optional<BatteryReading> reading;
    /// What the machine tells of its battery at start.
    std::optional<std::int64_t> designCapacityMAh;
    std::optional<std::int64_t> cycleCount;
};

/// How full the battery is.
struct BatteryChargeModel {
    HeroModel hero;
    double fraction = 0.0;  ///< of the bar
    Hue tint = Hue::accent;
    std::string lowPowerMode;  ///< empty where that is off
    std::string lowPowerSymbol;

    friend bool operator==(const BatteryChargeModel&, const BatteryChargeModel&) = default;
};

/// How much the battery still holds of what it held when new.
struct BatteryHealthModel {
    std::string title;
    PillModel grade;
    std::vector<KeyValueModel> rows;

    friend bool operator==(const BatteryHealthModel&, const BatteryHealthModel&) = default;
};

/// All that the page of the battery says.
struct BatterySectionModel {
    std::optional<PlaceholderModel> placeholder;  ///< alone where it is there
    /// Not empty before the first reading; then it stands alone.
    std::string collecting;

    BatteryChargeModel charge;
    std::vector<KeyValueModel> status;
    BatteryHealthModel health;
    std::vector<KeyValueModel> details;  ///< empty where the battery tells none of them

    friend bool operator==(const BatterySectionModel&, const BatterySectionModel&) = default;
};

[[nodiscard]] BatterySectionModel describeBatterySection(const BatterySectionReadings& readings,
                                                         const Localization& texts);

/// The colour of the charge: green while it is charging or full, else by how much there is.
[[nodiscard]] Hue chargeTint(std::optional<double> fraction, BatteryReading::ChargingState state);

}  // namespace vtx
