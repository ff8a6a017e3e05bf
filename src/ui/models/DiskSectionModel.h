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

/// One drive, with what it has moved since it was attached.
struct VolumeRowModel {
    std::string symbol;
    std::string name;
    std::string device;  ///< empty where it would say the name again
    KeyValueModel read;
    KeyValueModel write;

    friend bool operator==(const VolumeRowModel&, const VolumeRowModel&) = default;
};

/// All that the page of the drives says besides its chart.
struct DiskSectionModel {
    std::vector<FigureModel> summary;  ///< read, then write
    std::string volumesTitle;
    std::vector<VolumeRowModel> volumes;  ///< without any there is no card of them

    friend bool operator==(const DiskSectionModel&, const DiskSectionModel&) = default;
};

/// The reading is absent until there is one.
[[nodiscard]] DiskSectionModel describeDiskSection(const std::optional<DiskIOReading>& reading,
                                                   const Localization& texts);

/// Absent where it is not enabled. Both histories are in bytes a second.
[[nodiscard]] std::optional<DiskThroughputChart> describeDiskSectionChart(
    const HistorySeries& bytesRead, const HistorySeries& bytesWritten,
    const DisplayPreferences& preferences);

}  // namespace vtx
