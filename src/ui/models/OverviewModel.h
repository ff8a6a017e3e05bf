// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "smc/TemperatureReading.h"
#include "telemetry/CPUStats.h"
#include "telemetry/GPUStats.h"
#include "ui/models/Formatters.h"

namespace vtx {

/// What the overview is drawn from.
struct OverviewReadings {
    /// The processor's shape; absent where the machine does not tell it.
    std::optional<CoreLayout> layout;
    /// Absent until there is a reading.
    std::optional<CPUStats> cpu;
    /// Absent until there is one, and on a machine that tells no load of its graphics.
    std::optional<GPUStats> gpu = std::nullopt;
    /// Absent until there is one, and on a machine without sensors.
    std::optional<TemperatureReading> temperature = std::nullopt;
};

/// One live row: a symbol, what it is, how much it is.
struct MetricRowModel {
    std::string_view symbol;
    std::string title;
    std::string value;
    Tint tint = Tint::primary;

    friend bool operator==(const MetricRowModel&, const MetricRowModel&) = default;
};

/// All that the overview says.
struct OverviewModel {
    std::string_view liveTitle = "Now";
    std::vector<MetricRowModel> liveRows;

    friend bool operator==(const OverviewModel&, const OverviewModel&) = default;
};

OverviewModel describeOverview(const OverviewReadings& readings);

}  // namespace vtx
