// SPDX-License-Identifier: MIT
#include "ui/kit/KitCharts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>
#include <cmath>

#include "ui/kit/HistoryChart.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/SegmentedControl.h"

namespace vtx {

namespace {

QString text(const char* value) { return QString::fromUtf8(value); }

/// A minute that wanders about its middle, always the same.
std::vector<ChartPoint> minute(double middle, double swing) {
    std::vector<ChartPoint> points;
    for (int i = 0; i <= 60; ++i) {
        const double wave = std::sin(i / 6.0) * std::cos(i / 11.0) + 0.3 * std::sin(i * 2.1);
        points.push_back({static_cast<double>(i), middle + swing * wave});
    }
    return points;
}

QString percentOf(double value) { return text("%1 %").arg(std::lround(value * 100)); }

std::vector<ChartFigure> figuresOf(const std::vector<ChartPoint>& points) {
    if (points.empty()) return {};
    double sum = 0;
    for (const ChartPoint& point : points) sum += point.value;
    const auto [least, most] = std::ranges::minmax_element(points, {}, &ChartPoint::value);
    return {{text("Min"), percentOf(least->value)},
            {text("Avg"), percentOf(sum / static_cast<double>(points.size()))},
            {text("Max"), percentOf(most->value)}};
}

HistoryChartContent sample(const char* title, const char* symbol, ChartSeries series) {
    HistoryChartContent content;
    content.title = text(title);
    content.symbol = text(symbol);
    content.marks = {text("0 %"), text("50 %"), text("100 %")};
    content.figures = figuresOf(series.points);
    content.series = {std::move(series)};
    content.placeholder = text("Collecting…");
    content.spokenName = content.title;
    return content;
}

/// Half a minute, a pause, and a last stretch.
std::vector<ChartPoint> interrupted() {
    std::vector<ChartPoint> points = minute(0.4, 0.2);
    points.erase(points.begin() + 25, points.begin() + 42);
    return points;
}

HistoryChartContent twoSeries() {
    HistoryChartContent content = sample(
        "Two series", "", {minute(60, 50), ChartShape::area, ColorToken::cyan, text("Read")});
    content.series.push_back(
        {minute(30, -20), ChartShape::line, ColorToken::orange, text("Write")});
    content.upper = 200;
    content.marks = {text("0 MB/s"), text("100"), text("200")};
    return content;
}

std::vector<HistoryChartContent> samples() {
    return {
        sample("Area", "cpu", {minute(0.3, 0.2), ChartShape::area, ColorToken::cpu}),
        sample("Line", "p.circle", {minute(0.35, 0.25), ChartShape::line, ColorToken::pCore}),
        sample("Bar", "display", {minute(0.4, 0.12), ChartShape::bar, ColorToken::gpu}),
        sample("One point", "e.circle", {{{0, 0.31}}, ChartShape::area, ColorToken::eCore}),
        sample("No point", "display", {{}, ChartShape::area, ColorToken::gpu}),
        twoSeries(),
        sample("With a gap", "memorychip", {interrupted(), ChartShape::area, ColorToken::memory}),
        sample("Own colour", "cpu",
               {minute(0.3, 0.2), ChartShape::area, QColor(0xE0, 0x40, 0x90)})};
}

std::unique_ptr<SegmentedControl> segments(std::vector<QString> labels, int current) {
    auto control = std::make_unique<SegmentedControl>();
    control->setSegments(std::move(labels));
    control->setCurrent(current);
    return control;
}

}  // namespace

std::unique_ptr<QWidget> makeChartSheet() {
    auto sheet = std::make_unique<QWidget>();
    auto* grid = std::make_unique<QGridLayout>(sheet.get()).release();
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(metrics::chartGap);
    constexpr int columns = 2;
    int at = 0;
    for (HistoryChartContent& content : samples()) {
        auto chart = std::make_unique<HistoryChart>();
        chart->setContent(std::move(content));
        grid->addWidget(chart.release(), at / columns, at % columns, Qt::AlignTop);
        ++at;
    }
    auto* controls = std::make_unique<QHBoxLayout>().release();
    controls->addWidget(segments({"60s", "5m", "15m", "1h"}, 0).release());
    controls->addWidget(segments({text("Linie"), text("Fläche"), text("Balken")}, 1).release());
    auto disabled = segments({"60s", "5m"}, 0);
    disabled->setEnabled(false);
    controls->addWidget(disabled.release());
    controls->addStretch();
    grid->addLayout(controls, at / columns, 0, 1, columns);
    return sheet;
}

}  // namespace vtx
