// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "telemetry/CPUStats.h"
#include "ui/models/ChartCardModel.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// What the page of the processor is drawn from. Nothing of it is kept.
struct CPUSectionReadings {
    /// The processor's shape; absent where the machine does not tell it.
    const std::optional<CoreLayout>& layout;
    /// Absent until there is one.
    const std::optional<CPUStats>& reading;
};

/// What its charts are drawn from.
struct CPUHistories {
    const HistorySeries& total;
    const HistorySeries& pCores;
    const HistorySeries& eCores;
};

/// The clock of a cluster.
struct ClockTileModel {
    std::string current;
    std::string maximum;  ///< empty where it is not told

    friend bool operator==(const ClockTileModel&, const ClockTileModel&) = default;
};

/// The load of one core.
struct CoreBarModel {
    std::string label;
    std::string value;
    double fraction = 0.0;  ///< of the bar

    friend bool operator==(const CoreBarModel&, const CoreBarModel&) = default;
};

/// The loads of a cluster's cores, in their order.
struct PerCoreBarsModel {
    std::string title;
    std::string symbol;
    std::string count;
    std::vector<CoreBarModel> bars;

    friend bool operator==(const PerCoreBarsModel&, const PerCoreBarsModel&) = default;
};

/// The cores of one kind.
struct ClusterModel {
    std::string symbol;
    std::string title;
    std::string usage;
    Hue hue = Hue::pCore;  ///< of the usage
    SeriesTint color;      ///< of symbol and bars: the user's where there is one
    ClockTileModel clock;
    PerCoreBarsModel cores;

    friend bool operator==(const ClusterModel&, const ClusterModel&) = default;
};

/// All that the page of the processor says besides its charts.
struct CPUSectionModel {
    HeroModel hero;
    std::vector<ClusterModel> clusters;        ///< of the kinds of cores that the machine has
    std::optional<PlaceholderModel> noLayout;  ///< in the place of the clusters

    friend bool operator==(const CPUSectionModel&, const CPUSectionModel&) = default;
};

[[nodiscard]] CPUSectionModel describeCPUSection(const CPUSectionReadings& readings,
                                                 const DisplayPreferences& preferences,
                                                 const Localization& texts);

/// Those that are enabled, of the kinds of cores that the machine has; all kinds where it does not
/// tell its shape. Absent where there is none.
[[nodiscard]] std::optional<ChartCardModel> describeCPUCharts(
    const std::optional<CoreLayout>& layout, const CPUHistories& histories,
    const DisplayPreferences& preferences, const Localization& texts);

}  // namespace vtx
