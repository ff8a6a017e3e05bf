// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "memory/MemoryStats.h"
#include "smc/TemperatureReading.h"
#include "telemetry/CPUStats.h"
#include "telemetry/GPUStats.h"
#include "telemetry/ThermalStats.h"

namespace vtx {

/// What the mini widget is drawn from; each part is absent until it was read.
struct MiniWidgetReadings {
    std::optional<CPUStats> cpu;
    std::optional<GPUStats> gpu;
    std::optional<MemoryStats> memory;
    std::optional<TemperatureReading> temperature;
    ThermalStats thermal;
};

/// Whose colour a figure of the mini widget has.
enum class MiniWidgetTint { cpu, gpu, memory, temperature, pCore, eCore };

/// One line: what is measured, how much, and how much of its bar that fills.
struct MiniWidgetRow {
    std::string_view label;
    std::string value;
    MiniWidgetTint tint = MiniWidgetTint::cpu;
    std::optional<double> share;  ///< from 0 to 1; absent: there is no bar

    friend bool operator==(const MiniWidgetRow&, const MiniWidgetRow&) = default;
};

/// The load of one kind of cores, as a whole number of percent without the sign.
struct MiniWidgetChip {
    std::string_view label;
    std::string value;
    MiniWidgetTint tint = MiniWidgetTint::pCore;

    friend bool operator==(const MiniWidgetChip&, const MiniWidgetChip&) = default;
};

/// All that the mini widget says. Its words are the same in every language.
struct MiniWidgetModel {
    std::string_view title = "Live";
    std::string time;  ///< of the newest reading
    std::array<MiniWidgetRow, 4> rows;
    std::array<MiniWidgetChip, 2> chips;

    friend bool operator==(const MiniWidgetModel&, const MiniWidgetModel&) = default;
};

/// `timeOfDay` writes hour, minute and second as the user does.
MiniWidgetModel describeMiniWidget(const MiniWidgetReadings& readings,
                                   const std::function<std::string(Date)>& timeOfDay);

}  // namespace vtx
