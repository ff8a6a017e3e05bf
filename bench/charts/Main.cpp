// SPDX-License-Identifier: MIT
// vantrix-bench-charts: what it takes to describe and to draw the chart of an hour of half seconds,
// all noise, which is the most that a chart ever shows. Both together are to stay within 2 ms.
#include <fmt/format.h>

#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>
#include <string>
#include <vector>

#include "Figures.h"
#include "MachineFacts.h"
#include "base/Shared.h"
#include "language/Localization.h"
#include "pass/Statistics.h"
#include "pass/ThreadClock.h"
#include "platform/Locale.h"
#include "ui/kit/ChartRaster.h"
#include "ui/kit/Metrics.h"
#include "ui/models/ChartModel.h"
#include "ui/surfaces/ChartContent.h"

namespace vtx::bench {
namespace {

constexpr int pointCount = 7200;
constexpr int width = 360;
constexpr int rounds = 200;

/// A user who reads English.
class English final : public Locale {
public:
    [[nodiscard]] std::vector<std::string> preferredLanguages() const override { return {"en"}; }
    [[nodiscard]] std::string collationKey(std::string_view text) const override {
        return std::string(text);
    }
    [[nodiscard]] std::string lowercased(std::string_view text) const override {
        return std::string(text);
    }
    [[nodiscard]] std::string timeOfDay(Date) const override { return {}; }
};

HistorySeries noise() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> load(0.0, 1.0);
    HistorySeries history;
    for (int i = 0; i < pointCount; ++i)
        history.push_back({Date{std::chrono::milliseconds{500 * i}}, load(random)});
    return history;
}

/// What a page does at each new point, before anything is drawn.
HistoryChartContent describe(const HistorySeries& history, DisplayPreferences::ChartStyle style) {
    DisplayPreferences preferences;
    preferences.chartStyle = style;
    preferences.historyRange = DisplayPreferences::HistoryRange::oneHour;
    return chartContent(describeChart(ChartMetric::cpu, "CPU total", "cpu", history, preferences));
}

ChartFrame frameOf(const std::vector<ChartPoint>& points, double scale) {
    ChartFrame frame;
    frame.width = static_cast<int>(width * scale);
    frame.height = static_cast<int>(metrics::chartHeight * scale);
    frame.top = metrics::chartClear * scale;
    frame.bottom = (metrics::chartHeight - metrics::chartClear) * scale;
    frame.endSeconds = points.back().seconds;
    frame.windowSeconds = 3600;
    frame.pixelsPerUnit = scale;
    return frame;
}

/// CPU time of each step and of both.
struct Times {
    Statistics content;
    Statistics picture;
    Statistics both;
};

Times measure(const HistorySeries& history, DisplayPreferences::ChartStyle style, double scale) {
    const ThreadClock clock;
    Times times;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = clock.used();
        const HistoryChartContent content = describe(history, style);
        const auto described = clock.used();
        const ChartSeries& series = content.series.front();
        const ChartFrame frame = frameOf(series.points, scale);
        QImage picture(frame.width, frame.height, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        chartRaster::drawMarks(picture, ChartTrace::of(series.points, frame, series.shape), frame,
                               series.shape, qRgb(0x66, 0xA6, 0xFF));
        const auto end = clock.used();
        times.content.add(described - begin);
        times.picture.add(end - described);
        times.both.add(end - begin);
    }
    return times;
}

void print(const std::string& text) { std::fputs(text.c_str(), stdout); }

int run(const std::vector<std::string>& arguments) {
    const bool saves = arguments.size() == 2 && arguments[0] == "--figures";
    if (!arguments.empty() && !saves) {
        print("Usage: vantrix-bench-charts [--figures FILE]\n");
        return arguments[0] == "--help" ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    double slowest = 0;
    const English locale;
    Shared<Localization>::setFactory([&locale] { return std::make_unique<Localization>(locale); });
    const MachineFacts facts = machineFacts();
    print(
        fmt::format("{}, {} cores, Linux {}, Qt {}\n{} points at {} wide, {} rounds; ms\n"
                    "  {:<8}{:>8}{:>12}{:>12}{:>12}{:>12}\n",
                    facts.processor, facts.cores, facts.kernel, facts.toolkit, pointCount, width,
                    rounds, "style", "scale", "described", "drawn", "both", "both p95"));
    using Style = DisplayPreferences::ChartStyle;
    const HistorySeries history = noise();
    for (const auto& [name, style] :
         {std::pair("line", Style::line), std::pair("area", Style::area),
          std::pair("bar", Style::bar)}) {
        for (const double scale : {1.0, 2.0}) {
            const Times times = measure(history, style, scale);
            print(fmt::format("  {:<8}{:>8}{:>12.3f}{:>12.3f}{:>12.3f}{:>12.3f}\n", name, scale,
                              times.content.median().count() / 1e3,
                              times.picture.median().count() / 1e3,
                              times.both.median().count() / 1e3, times.both.p95().count() / 1e3));
            slowest = std::max(slowest, times.both.median().count() / 1e3);
        }
    }
    Shared<Localization>::reset();
    if (saves) saveFigures({{figureNames::hourChart, slowest}}, arguments[1]);
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace vtx::bench

int main(int argc, char** argv) {
    try {
        return vtx::bench::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantrix-bench-charts: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
