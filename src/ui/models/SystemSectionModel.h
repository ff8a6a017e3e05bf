// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;
struct SystemInfo;

/// What the page of the machine says: cards for chip, memory, graphics, battery, cooling and model.
/// All is fixed at start but the battery's temperature.
[[nodiscard]] std::vector<KeyValueCardModel> describeSystemSection(
    const SystemInfo& machine, std::optional<double> batteryTemperatureC,
    const Localization& texts);

}  // namespace vtx
