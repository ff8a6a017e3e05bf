// SPDX-License-Identifier: MIT
#include "ui/surfaces/ChartContent.h"

#include "ui/models/ChartRange.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

namespace {

ColorToken tokenOf(SeriesRole role) {
    switch (role) {
        case SeriesRole::pCore:
            return ColorToken::pCore;
        case SeriesRole::eCore:
            return ColorToken::eCore;
        case SeriesRole::gpu:
            return ColorToken::gpu;
        case SeriesRole::memory:
            return ColorToken::memory;
        case SeriesRole::cyan:
            return ColorToken::cyan;
        case SeriesRole::orange:
            return ColorToken::orange;
        case SeriesRole::yellow:
            return ColorToken::yellow;
        case SeriesRole::accent:
            return ColorToken::accent;
        case SeriesRole::cpu:
            break;
    }
    return ColorToken::cpu;
}

ChartShape shapeOf(DisplayPreferences::ChartStyle style) {
    switch (style) {
        case DisplayPreferences::ChartStyle::line:
            return ChartShape::line;
        case DisplayPreferences::ChartStyle::bar:
            return ChartShape::bar;
        case DisplayPreferences::ChartStyle::area:
            break;
    }
    return ChartShape::area;
}

std::vector<ChartPoint> pointsOf(const HistorySeries& series) {
    std::vector<ChartPoint> points;
    points.reserve(series.size());
    for (const HistoryPoint& each : series) {
        const auto moment = static_cast<double>(each.timestamp.time_since_epoch().count());
        points.push_back({moment / 1e6, each.value});
    }
    return points;
}

template <class Chart>
std::array<QString, 3> marksOf(const Chart& chart) {
    const std::array<std::string, 3> marks = axisMarks(chart);
    return {qt(marks[0]), qt(marks[1]), qt(marks[2])};
}

}  // namespace

SeriesColor seriesColor(const SeriesTint& tint) {
    if (!tint.own) return tokenOf(tint.role);
    return QColor(tint.own->red, tint.own->green, tint.own->blue);
}

HistoryChartContent chartContent(const MetricChartModel& chart) {
    HistoryChartContent content;
    content.title = qt(chart.title);
    content.note = qt(chart.note);
    content.symbol = qt(chart.symbol);
    content.series = {{pointsOf(chart.points), shapeOf(chart.style), seriesColor(chart.color), {}}};
    content.windowSeconds = seconds(chart.historyRange);
    content.lower = chart.yScale.lower;
    content.upper = chart.yScale.upper;
    content.marks = marksOf(chart);
    for (const ChartPill& pill : pills(chart))
        content.figures.push_back({qt(pill.label), qt(pill.value)});
    content.placeholder = qt(collectingText());
    content.spokenName = qt(spokenName(chart));
    content.spoken = qt(spokenValue(chart));
    return content;
}

HistoryChartContent chartContent(const DiskThroughputChart& chart) {
    HistoryChartContent content;
    content.series = {
        {pointsOf(chart.read), ChartShape::area, seriesColor(chart.readColor), qt(chart.readTitle)},
        {pointsOf(chart.write), ChartShape::line, seriesColor(chart.writeColor),
         qt(chart.writeTitle)}};
    content.windowSeconds = seconds(chart.historyRange);
    content.upper = chart.ceiling;
    content.marks = marksOf(chart);
    content.placeholder = qt(collectingText());
    content.spokenName = qt(chart.title);
    content.spoken = qt(spokenValue(chart));
    return content;
}

}  // namespace vtx
