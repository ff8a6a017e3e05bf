// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "telemetry/DiskIOReading.h"
#include "ui/models/ChartThroughput.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// What the page of the drives is drawn from. The histories are looked at, not kept.
struct DiskSectionReadings {
    /// Absent until there is one.
    const std::optional<DiskIOReading>& reading;
    const HistorySeries& read;  ///< bytes per second, as the next one
    const HistorySeries& write;
};

/// One drive, with what it has moved since it was attached.
struct VolumeRowModel {
    std::string symbol;
    std::string name;
    std::string device;  ///< empty where it would say the name again
    KeyValueModel read;
    KeyValueModel write;

    friend bool operator==(const VolumeRowModel&, const VolumeRowModel&) = default;
};

/// All that the page of the drives says.
struct DiskSectionModel {
    std::vector<FigureModel> summary;  ///< read, then write
    std::string volumesTitle;
    std::vector<VolumeRowModel> volumes;  ///< without any there is no card of them
    std::optional<DiskThroughputChart> chart;

    friend bool operator==(const DiskSectionModel&, const DiskSectionModel&) = default;
};

[[nodiscard]] DiskSectionModel describeDiskSection(const DiskSectionReadings& readings,
                                                   const DisplayPreferences& preferences,
                                                   const Localization& texts);

}  // namespace vtx
