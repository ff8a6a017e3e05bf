// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "telemetry/CoreLayout.h"
#include "ui/models/ChartModel.h"

namespace vtx {

/// Where the charts' points are found; none of them is owned, and none may be null.
struct OverviewHistories {
    const HistorySeries* cpu = nullptr;
    const HistorySeries* pCore = nullptr;
    const HistorySeries* eCore = nullptr;
    const HistorySeries* gpu = nullptr;
    const HistorySeries* memory = nullptr;
};

enum class GPUSampling { available, unavailable };

/// The metrics whose charts the overview shows, in its order: those that are enabled, the graphics
/// only while the machine tells their load, each kind of core unless the machine is known to lack
/// it.
[[nodiscard]] std::vector<ChartMetric> overviewCharts(const DisplayPreferences& preferences,
                                                      GPUSampling gpu,
                                                      const std::optional<CoreLayout>& layout);

/// One of them, with the points of its window.
[[nodiscard]] MetricChartModel describeOverviewChart(ChartMetric metric,
                                                     const OverviewHistories& histories,
                                                     const DisplayPreferences& preferences);

}  // namespace vtx
