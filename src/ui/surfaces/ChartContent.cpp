// SPDX-License-Identifier: MIT
#include "ui/surfaces/ChartContent.h"

#include "ui/models/ChartRange.h"
#include "ui/surfaces/KitContent.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

using Style = DisplayPreferences::ChartStyle;

ChartShape shapeOf(Style style) {
    if (style == Style::line) return ChartShape::line;
    return style == Style::bar ? ChartShape::bar : ChartShape::area;
}

std::vector<ChartPoint> pointsOf(const HistorySeries& series) {
    std::vector<ChartPoint> points;
    points.reserve(series.size());
    for (const HistoryPoint& point : series)
        points.push_back({toSeconds(point.timestamp.time_since_epoch()), point.value});
    return points;
}

std::array<QString, 3> marksOf(const std::array<std::string, 3>& marks) {
    return {qt(marks[0]), qt(marks[1]), qt(marks[2])};
}

}  // namespace

HistoryChartContent toKit(const MetricChartModel& model) {
    HistoryChartContent content{
        .title = qt(model.title),
        .symbol = qt(model.symbol),
        .series = {{pointsOf(model.points), shapeOf(model.style), colorOf(model.color)}},
        .windowSeconds = seconds(model.historyRange),
        .lower = model.yScale.lower,
        .upper = model.yScale.upper,
        .marks = marksOf(axisMarks(model)),
        .placeholder = qt(collectingText()),
        .spokenName = qt(model.title),
        .spoken = qt(spokenValue(model))};
    for (const ChartPill& pill : pills(model))
        content.figures.push_back({qt(pill.label), qt(pill.value)});
    return content;
}

HistoryChartContent toKit(const DiskThroughputChart& model) {
    return {.series = {{pointsOf(model.read), ChartShape::area, colorOf(model.readColor),
                        qt(model.readTitle)},
                       {pointsOf(model.write), ChartShape::line, colorOf(model.writeColor),
                        qt(model.writeTitle)}},
            .windowSeconds = seconds(model.historyRange),
            .lower = 0.0,
            .upper = model.ceiling,
            .marks = marksOf(axisMarks(model)),
            .placeholder = qt(collectingText()),
            .spokenName = qt(model.title),
            .spoken = qt(spokenValue(model))};
}

}  // namespace vtx
