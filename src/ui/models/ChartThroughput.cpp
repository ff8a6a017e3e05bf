// SPDX-License-Identifier: MIT
#include "ui/models/ChartThroughput.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "language/Localization.h"
#include "ui/models/ChartModel.h"
#include "ui/models/ChartRange.h"
#include "ui/models/ChartWindow.h"

namespace vtx {
namespace {

constexpr double bytesPerMB = 1048576.0;

/// One window for both: the series that ended first shows what it has of it.
Date endOf(const HistorySeries& read, const HistorySeries& write) {
    Date end = Date::min();
    for (const HistorySeries* series : {&read, &write})
        if (!series->empty()) end = std::max(end, series->back().timestamp);
    return end;
}

double peakOf(const HistorySeries& read, const HistorySeries& write) {
    double peak = 0.0;
    for (const HistorySeries* series : {&read, &write})
        if (const auto point = peakPoint(*series)) peak = std::max(peak, point->value);
    return peak;
}

std::string bare(double value) {
    return std::floor(value) == value ? fmt::format("{:.0f}", value) : fmt::format("{:.1f}", value);
}

void addSeries(std::string& text, std::string_view title, const HistorySeries& series) {
    const auto last = lastValue(series);
    const auto peak = peakPoint(series);
    if (last && peak)
        text += fmt::format(", {} {:.1f} MB/s, Max {:.1f} MB/s", title, *last, peak->value);
}

}  // namespace

DiskThroughputChart describeDiskChart(const HistorySeries& bytesRead,
                                      const HistorySeries& bytesWritten,
                                      const DisplayPreferences& preferences) {
    const auto text = [](L10n::Key key) { return std::string(Localization::shared().string(key)); };
    const double window = seconds(preferences.historyRange);
    DiskThroughputChart chart;
    chart.title = text(L10n::Key::disk_history);
    chart.readTitle = text(L10n::Key::disk_read);
    chart.writeTitle = text(L10n::Key::disk_write);
    if (!bytesRead.empty() || !bytesWritten.empty()) {
        const Date end = endOf(bytesRead, bytesWritten);
        chart.read = chartWindow(bytesRead, end, window, bytesPerMB);
        chart.write = chartWindow(bytesWritten, end, window, bytesPerMB);
    }
    chart.readColor = ChartTints::color(preferences.colorDisk, {SeriesRole::cyan});
    chart.ceiling = throughputCeiling(peakOf(chart.read, chart.write));
    chart.historyRange = preferences.historyRange;
    return chart;
}

double throughputCeiling(double peakMBPerSecond) {
    constexpr double lowest = 1.0;
    if (!std::isfinite(peakMBPerSecond) || peakMBPerSecond < lowest) return lowest;
    double power = 1.0;
    while (power * 10.0 <= peakMBPerSecond) power *= 10.0;
    double ceiling = power * 10.0;
    for (const double step : {5.0, 2.0})
        if (step * power > peakMBPerSecond) ceiling = step * power;
    // Nothing stands above the largest numbers that there are.
    return std::isfinite(ceiling) ? ceiling : peakMBPerSecond;
}

std::array<std::string, 3> axisMarks(const DiskThroughputChart& chart) {
    return {"0 MB/s", bare(chart.ceiling / 2.0), bare(chart.ceiling)};
}

std::string spokenValue(const DiskThroughputChart& chart) {
    if (!lastValue(chart.read) && !lastValue(chart.write)) return collectingText();
    std::string text = historyTitle(chart.historyRange);
    addSeries(text, chart.readTitle, chart.read);
    addSeries(text, chart.writeTitle, chart.write);
    return text;
}

}  // namespace vtx
