// SPDX-License-Identifier: MIT
#include "ui/models/ChartModel.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/models/ChartRange.h"
#include "ui/models/ChartWindow.h"
#include "ui/models/Formatters.h"

namespace vtx {
namespace {

std::string wholePercent(double fraction) { return percent(fraction); }

SeriesTint colorOf(ChartMetric metric, const DisplayPreferences& preferences) {
    switch (metric) {
        case ChartMetric::pCore:
            return ChartTints::color(preferences.colorPCore, {SeriesRole::pCore});
        case ChartMetric::eCore:
            return ChartTints::color(preferences.colorECore, {SeriesRole::eCore});
        case ChartMetric::gpu:
            return ChartTints::color(preferences.colorGPU, {SeriesRole::gpu});
        case ChartMetric::memory:
            return ChartTints::color(preferences.colorMemory, {SeriesRole::memory});
        case ChartMetric::cpu:
            break;
    }
    return ChartTints::color(preferences.colorCPU, {SeriesRole::cpu});
}

}  // namespace

MetricChartModel describeChart(ChartMetric metric, std::string title, std::string symbol,
                               const HistorySeries& history,
                               const DisplayPreferences& preferences) {
    MetricChartModel chart;
    chart.title = std::move(title);
    chart.symbol = std::move(symbol);
    if (!history.empty())
        chart.points =
            chartWindow(history, history.back().timestamp, seconds(preferences.historyRange));
    chart.figures = statistics(chart.points);
    chart.color = colorOf(metric, preferences);
    chart.valueFormat = wholePercent;
    chart.style = preferences.chartStyle;
    chart.historyRange = preferences.historyRange;
    return chart;
}

std::optional<ChartStatistics> statistics(const HistorySeries& points) {
    std::optional<ChartStatistics> figures;
    // A running mean: a sum of large values could leave the range of the type.
    double count = 0.0;
    for (const HistoryPoint& each : points) {
        const double value = each.value;
        if (!std::isfinite(value)) continue;
        if (!figures) figures = ChartStatistics{value, value, value};
        figures->min = std::min(figures->min, value);
        figures->max = std::max(figures->max, value);
        count += 1.0;
        figures->average += value / count - figures->average / count;
    }
    return figures;
}

std::optional<HistoryPoint> peakPoint(const HistorySeries& points) {
    const HistoryPoint* peak = nullptr;
    for (const HistoryPoint& each : points)
        if (std::isfinite(each.value) && (!peak || each.value > peak->value)) peak = &each;
    return peak ? std::optional(*peak) : std::nullopt;
}

std::optional<double> lastValue(const HistorySeries& points) {
    const auto last = std::find_if(points.rbegin(), points.rend(), [](const HistoryPoint& each) {
        return std::isfinite(each.value);
    });
    return last == points.rend() ? std::nullopt : std::optional(last->value);
}

std::vector<ChartPill> pills(const MetricChartModel& chart) {
    const auto& figures = chart.figures;
    if (!figures || !chart.valueFormat) return {};
    return {{"Min", chart.valueFormat(figures->min)},
            {"Avg", chart.valueFormat(figures->average)},
            {"Max", chart.valueFormat(figures->max)}};
}

std::array<std::string, 3> axisMarks(const MetricChartModel& chart) {
    if (!chart.valueFormat) return {};
    const auto& [lower, upper] = chart.yScale;
    return {chart.valueFormat(lower), chart.valueFormat(lower + (upper - lower) / 2.0),
            chart.valueFormat(upper)};
}

std::string spokenValue(const MetricChartModel& chart) {
    const auto last = lastValue(chart.points);
    if (!last || !chart.valueFormat) return collectingText();
    std::string text =
        fmt::format("{}, {}", historyTitle(chart.historyRange), chart.valueFormat(*last));
    for (const ChartPill& each : pills(chart))
        text += fmt::format(", {} {}", each.label, each.value);
    return text;
}

std::string spokenText(const MetricChartModel& chart) {
    return fmt::format("{}, {}", chart.title, spokenValue(chart));
}

}  // namespace vtx
