// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/HistoryChart.h"
#include "ui/models/ChartModel.h"
#include "ui/models/ChartThroughput.h"

namespace vtx {

/// A series' colour as the kit draws it.
[[nodiscard]] SeriesColor seriesColor(const SeriesTint& tint);

/// What a chart's model shows in the kit's chart. Texts in the language in force.
[[nodiscard]] HistoryChartContent chartContent(const MetricChartModel& chart);

/// The disks' chart, without its title, which its card has.
[[nodiscard]] HistoryChartContent chartContent(const DiskThroughputChart& chart);

}  // namespace vtx
