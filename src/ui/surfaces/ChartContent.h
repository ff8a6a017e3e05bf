// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/HistoryChart.h"
#include "ui/models/ChartModel.h"
#include "ui/models/ChartThroughput.h"

// What the models say of charts, as the kit's chart takes it. Texts in the language in force.
namespace vtx {

[[nodiscard]] HistoryChartContent toKit(const MetricChartModel& model);
/// Without its title, which is that of its card.
[[nodiscard]] HistoryChartContent toKit(const DiskThroughputChart& model);

}  // namespace vtx
