// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "telemetry/GPUStats.h"
#include "ui/models/ChartCardModel.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// What the page of the graphics is drawn from. Nothing of it is kept.
struct GPUSectionReadings {
    bool isAvailable = true;
    /// Absent until there is one.
    const std::optional<GPUStats>& reading;
};

/// A part of the graphics with its load.
struct GPUComponentModel {
    std::string symbol;
    std::string title;
    std::string value;
    /// Of the symbol: the user's where there is one; absent where the load is not told.
    std::optional<SeriesTint> color;

    friend bool operator==(const GPUComponentModel&, const GPUComponentModel&) = default;
};

/// All that the page of the graphics says besides its chart.
struct GPUSectionModel {
    std::optional<PlaceholderModel> placeholder;  ///< alone where it is there
    HeroModel hero;
    std::string componentsTitle;
    std::vector<GPUComponentModel> components;

    friend bool operator==(const GPUSectionModel&, const GPUSectionModel&) = default;
};

[[nodiscard]] GPUSectionModel describeGPUSection(const GPUSectionReadings& readings,
                                                 const DisplayPreferences& preferences,
                                                 const Localization& texts);

/// Absent where it is not enabled, and where the machine tells no load of its graphics.
[[nodiscard]] std::optional<ChartCardModel> describeGPUCharts(bool isAvailable,
                                                              const HistorySeries& history,
                                                              const DisplayPreferences& preferences,
                                                              const Localization& texts);

}  // namespace vtx
