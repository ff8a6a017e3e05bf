// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "memory/MemoryStats.h"
#include "smc/TemperatureReading.h"
#include "telemetry/CPUStats.h"
#include "telemetry/GPUStats.h"
#include "ui/models/Formatters.h"
#include "ui/models/PressureNotice.h"

namespace vtx {

/// What the overview is drawn from. Nothing of it is kept.
struct OverviewReadings {
    /// The processor's shape; absent where the machine does not tell it.
    const std::optional<CoreLayout>& layout;
    /// Absent until there is a reading.
    const std::optional<CPUStats>& cpu;
    /// Absent until there is one, and on a machine that tells no load of its graphics.
    const std::optional<GPUStats>& gpu;
    /// Absent until there is one, and on a machine without sensors.
    const std::optional<TemperatureReading>& temperature;
    /// Absent until there is one.
    const std::optional<MemoryStats>& memory;
    MemoryStats::Pressure pressure = MemoryStats::Pressure::normal;
    /// Who uses most memory, largest first; asked for only while memory runs short.
    const std::vector<ProcessSnapshot>& consumers;
};

/// One live row: a symbol, what it is, how much it is.
struct MetricRowModel {
    std::string_view symbol;
    std::string title;
    std::string value;
    Tint tint = Tint::primary;

    friend bool operator==(const MetricRowModel&, const MetricRowModel&) = default;
};

/// All that the overview says besides its charts.
struct OverviewModel {
    /// Leads the page while memory runs short.
    std::optional<PressureNotice> pressure;
    std::string_view liveTitle = "Now";
    std::vector<MetricRowModel> liveRows;

    friend bool operator==(const OverviewModel&, const OverviewModel&) = default;
};

OverviewModel describeOverview(const OverviewReadings& readings);

}  // namespace vtx
