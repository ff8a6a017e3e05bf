// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "ui/models/ChartTints.h"

namespace vtx {

/// The values that the lower and the upper edge of a plot stand for.
struct ChartScale {
    double lower = 0.0;
    double upper = 1.0;

    friend bool operator==(const ChartScale&, const ChartScale&) = default;
};

/// How a value of the chart reads: at the axis, in the pills and aloud.
using ValueFormat = std::string (*)(double);

/// The figures of a window.
struct ChartStatistics {
    double min = 0.0;
    double average = 0.0;
    double max = 0.0;

    friend bool operator==(const ChartStatistics&, const ChartStatistics&) = default;
};

/// A figure under a chart with what it is.
struct ChartPill {
    std::string label;
    std::string value;

    friend bool operator==(const ChartPill&, const ChartPill&) = default;
};

/// One history as a chart: what it is called and the raw points of its window, none averaged. A
/// plain value; what draws it decides nothing. A value that is not finite counts as no point.
struct MetricChartModel {
    std::string title;
    std::string symbol;
    /// Of the window that ends with the last point, oldest first; none is later than that one.
    HistorySeries points;
    /// Of those points; absent where no value is finite.
    std::optional<ChartStatistics> figures;
    SeriesTint color;
    ChartScale yScale;
    ValueFormat valueFormat = nullptr;
    DisplayPreferences::ChartStyle style = DisplayPreferences::ChartStyle::area;
    DisplayPreferences::HistoryRange historyRange = DisplayPreferences::HistoryRange::oneMinute;

    friend bool operator==(const MetricChartModel&, const MetricChartModel&) = default;
};

/// The histories that have a chart of their own.
enum class ChartMetric { cpu, pCore, eCore, gpu, memory };

/// The chart of a history of fractions, its axis in percent: window, style and colour as the
/// preferences say.
[[nodiscard]] MetricChartModel describeChart(ChartMetric metric, std::string title,
                                             std::string symbol, const HistorySeries& history,
                                             const DisplayPreferences& preferences);

/// Absent where no value is finite.
[[nodiscard]] std::optional<ChartStatistics> statistics(const HistorySeries& points);

/// The point of the largest value, the first of several; absent where no value is finite.
[[nodiscard]] std::optional<HistoryPoint> peakPoint(const HistorySeries& points);

/// The last finite value.
[[nodiscard]] std::optional<double> lastValue(const HistorySeries& points);

/// "Min", "Avg" and "Max" with their values; none where there are no values.
[[nodiscard]] std::vector<ChartPill> pills(const MetricChartModel& chart);

/// The axis at the lower edge, the middle and the upper edge.
[[nodiscard]] std::array<std::string, 3> axisMarks(const MetricChartModel& chart);

/// What a chart says to those who do not see it, after its title: the window, the last value, and
/// the figures of the pills. In the language in force.
[[nodiscard]] std::string spokenValue(const MetricChartModel& chart);

/// The same with the title.
[[nodiscard]] std::string spokenText(const MetricChartModel& chart);

}  // namespace vtx
