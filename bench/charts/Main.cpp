// SPDX-License-Identifier: MIT
// vantrix-bench-charts: what it takes to draw the chart of an hour of half seconds, all noise,
// which is the most that a chart ever shows.
#include <fmt/format.h>

#include <QImage>
#include <cstdio>
#include <random>
#include <vector>

#include "MachineFacts.h"
#include "pass/Statistics.h"
#include "pass/ThreadClock.h"
#include "ui/kit/ChartRaster.h"
#include "ui/kit/Metrics.h"

namespace vtx::bench {
namespace {

constexpr int pointCount = 7200;
constexpr int width = 360;
constexpr int rounds = 200;

std::vector<ChartPoint> noise() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> load(0.0, 1.0);
    std::vector<ChartPoint> points;
    for (int i = 0; i < pointCount; ++i) points.push_back({i * 0.5, load(random)});
    return points;
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

/// CPU time from the points to the finished picture of their marks.
Statistics measure(const std::vector<ChartPoint>& points, ChartShape shape, double scale) {
    const ChartFrame frame = frameOf(points, scale);
    const ThreadClock clock;
    Statistics times;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = clock.used();
        QImage picture(frame.width, frame.height, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        chartRaster::drawMarks(picture, ChartTrace::of(points, frame, shape), frame, shape,
                               qRgb(0x66, 0xA6, 0xFF));
        times.add(clock.used() - begin);
    }
    return times;
}

int run() {
    const MachineFacts facts = machineFacts();
    std::fputs(fmt::format("{}, {} cores, Linux {}, Qt {}\n{} points at {} wide, {} rounds\n"
                           "  {:<8}{:>8}{:>14}{:>12}\n",
                           facts.processor, facts.cores, facts.kernel, facts.toolkit, pointCount,
                           width, rounds, "style", "scale", "median ms", "p95 ms")
                   .c_str(),
               stdout);
    struct Style {
        const char* name;
        ChartShape shape;
    };
    const auto points = noise();
    for (const Style& style : {Style{"line", ChartShape::line}, Style{"area", ChartShape::area},
                               Style{"bar", ChartShape::bar}}) {
        for (const double scale : {1.0, 2.0}) {
            const Statistics times = measure(points, style.shape, scale);
            std::fputs(fmt::format("  {:<8}{:>8}{:>14.3f}{:>12.3f}\n", style.name, scale,
                                   times.median().count() / 1e3, times.p95().count() / 1e3)
                           .c_str(),
                       stdout);
        }
    }
    return 0;
}

}  // namespace
}  // namespace vtx::bench

int main() { return vtx::bench::run(); }
