// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "memory/MemoryStats.h"
#include "ui/models/ChartCardModel.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;
struct ProcessSnapshot;

/// What the page of the memory is drawn from. Nothing of it is kept.
struct MemorySectionReadings {
    /// Absent until there is one.
    const std::optional<MemoryStats>& reading;
    /// In force now.
    MemoryStats::Pressure pressure = MemoryStats::Pressure::normal;
    /// The user's own processes, largest first.
    std::span<const ProcessSnapshot> consumers;
};

/// What the memory is made of: wired, active, compressed, inactive and free, as parts of the total.
struct MemoryCompositionModel {
    std::array<double, 5> fractions{};
    std::string spoken;

    friend bool operator==(const MemoryCompositionModel&, const MemoryCompositionModel&) = default;
};

/// How much of the memory is used, and for what.
struct MemorySummaryModel {
    HeroModel hero;
    PillModel pressure;
    MemoryCompositionModel composition;
    KeyValueModel available;
    std::vector<KeyValueModel> parts;  ///< those of the composition in its order, then swap

    friend bool operator==(const MemorySummaryModel&, const MemorySummaryModel&) = default;
};

/// What is said while memory runs short.
struct PressureBannerModel {
    std::string symbol;
    std::string title;
    PillModel status;  ///< its colour is the banner's
    std::string body;

    friend bool operator==(const PressureBannerModel&, const PressureBannerModel&) = default;
};

/// One process with its memory.
struct ConsumerRowModel {
    std::string name;
    std::string size;
    double fraction = 0.0;  ///< of the total memory

    friend bool operator==(const ConsumerRowModel&, const ConsumerRowModel&) = default;
};

/// All that the page of the memory says besides its chart.
struct MemorySectionModel {
    /// Not empty before the first reading; then it stands in the place of the summary.
    std::string collecting;
    MemorySummaryModel summary;
    std::optional<PressureBannerModel> banner;  ///< absent while the pressure is normal
    std::string consumersTitle;
    std::vector<ConsumerRowModel> consumers;
    std::string noConsumers;  ///< empty where there are some
    SeriesTint color;         ///< of the consumers' bars

    friend bool operator==(const MemorySectionModel&, const MemorySectionModel&) = default;
};

[[nodiscard]] MemorySectionModel describeMemorySection(const MemorySectionReadings& readings,
                                                       const DisplayPreferences& preferences,
                                                       const Localization& texts);

/// Absent where it is not enabled.
[[nodiscard]] std::optional<ChartCardModel> describeMemoryCharts(
    const HistorySeries& history, const DisplayPreferences& preferences, const Localization& texts);

}  // namespace vtx
