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

/// What the page of the graphics is drawn from. The history is looked at, not kept.
struct GPUSectionReadings {
    bool isAvailable = true;
    /// Absent until there is one.
    const std::optional<GPUStats>& reading;
    const HistorySeries& history;
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

/// All that the page of the graphics says.
struct GPUSectionModel {
    std::optional<PlaceholderModel> placeholder;  ///< alone where it is there
    HeroModel hero;
    std::string componentsTitle;
    std::vector<GPUComponentModel> components;
    std::optional<ChartCardModel> charts;

    friend bool operator==(const GPUSectionModel&, const GPUSectionModel&) = default;
};

[[nodiscard]] GPUSectionModel describeGPUSection(const GPUSectionReadings& readings,
                                                 const DisplayPreferences& preferences,
                                                 const Localization& texts);

}  // namespace vtx
