// SPDX-License-Identifier: MIT
#include "ui/kit/ChartRaster.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

#include "ui/kit/Metrics.h"

namespace vtx {
namespace {

constexpr QRgb blue = 0xFF66A6FF;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

ChartFrame frameOf(int width, double scale, double windowSeconds) {
    ChartFrame frame;
    frame.width = static_cast<int>(width * scale);
    frame.height = static_cast<int>(metrics::chartHeight * scale);
    frame.top = metrics::chartClear * scale;
    frame.bottom = (metrics::chartHeight - metrics::chartClear) * scale;
    frame.endSeconds = windowSeconds;
    frame.windowSeconds = windowSeconds;
    frame.pixelsPerUnit = scale;
    return frame;
}

QImage blank(const ChartFrame& frame) {
    QImage picture(frame.width, frame.height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

/// A load that wanders, with noise upon it; one value at each spacing from 0 to the window's end.
std::vector<ChartPoint> load(double windowSeconds, double spacing, double noise) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> by(-noise, noise);
    std::vector<ChartPoint> points;
    const int count = static_cast<int>(windowSeconds / spacing);
    for (int i = 0; i <= count; ++i) {
        const double calm = 0.45 + 0.3 * std::sin(i * 12.0 / count);
        points.push_back({i * spacing, std::clamp(calm + by(random), 0.0, 1.0)});
    }
    return points;
}

/// The share that opaque marks take of each pixel, counted in `fine` times `fine` samples.
class Samples {
public:
    static constexpr int fine = 16;

    explicit Samples(const ChartFrame& frame)
        : image_(frame.width * fine, frame.height * fine, QImage::Format_Grayscale8) {
        image_.fill(Qt::black);
    }

    template <class F>
    void mark(F&& draw) {
        QPainter painter(&image_);
        painter.scale(fine, fine);
        draw(painter);
    }

    [[nodiscard]] double share(int x, int y) const {
        int count = 0;
        for (int row = y * fine; row < (y + 1) * fine; ++row) {
            const uchar* const line = image_.constScanLine(row) + x * fine;
            count +=
                static_cast<int>(std::count_if(line, line + fine, [](int v) { return v > 127; }));
        }
        return count / static_cast<double>(fine * fine);
    }

private:
    QImage image_;
};

template <class F>
void forEachSegment(const ChartTrace& trace, F&& draw) {
    std::size_t at = 0;
    for (const std::size_t end : trace.runEnds) {
        const auto point = [&](std::size_t i) {
            return QPointF(trace.places[i].x, trace.places[i].y);
        };
        draw(point(at), point(at));
        while (++at < end) draw(point(at - 1), point(at));
    }
}

void markLines(QPainter& painter, const ChartTrace& trace, const ChartFrame& frame) {
    painter.setPen(QPen(Qt::white, metrics::strokeLine * frame.pixelsPerUnit, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    forEachSegment(trace, [&](QPointF from, QPointF to) {
        if (from == to)
            painter.drawPoint(from);
        else
            painter.drawLine(from, to);
    });
}

void markAreas(QPainter& painter, const ChartTrace& trace, const ChartFrame& frame) {
    forEachSegment(trace, [&](QPointF from, QPointF to) {
        QPainterPath below(from);
        below.lineTo(to);
        below.lineTo(to.x(), frame.bottom);
        below.lineTo(from.x(), frame.bottom);
        painter.fillPath(below, Qt::white);
    });
}

void markBars(QPainter& painter, const ChartTrace& trace, const ChartFrame& frame) {
    const double gap = metrics::chartBarGap * frame.pixelsPerUnit;
    const bool isApart = trace.slot >= 2 * gap;
    const double radius = isApart ? metrics::chartBarRadius * frame.pixelsPerUnit : 0;
    painter.setClipRect(QRectF(0, 0, frame.width, frame.bottom));
    for (const ChartPlace& bar : trace.places) {
        QRectF mark(QPointF(bar.x - trace.slot, bar.y), QPointF(bar.x, frame.height + radius));
        if (isApart) mark.setLeft(mark.left() + gap);
        if (trace.slot < 1) {
            mark.setLeft(std::floor(mark.left()));
            mark.setRight(std::ceil(mark.right()));
        }
        QPainterPath path;
        path.addRoundedRect(mark, radius, radius);
        painter.fillPath(path, Qt::white);
    }
}

/// The same marks, each of them drawn by the toolkit.
QImage everyMark(const ChartTrace& trace, const ChartFrame& frame, ChartShape shape) {
    Samples over(frame);
    Samples under(frame);
    const bool isBar = shape == ChartShape::bar;
    over.mark([&](QPainter& p) { isBar ? markBars(p, trace, frame) : markLines(p, trace, frame); });
    if (shape == ChartShape::area) under.mark([&](QPainter& p) { markAreas(p, trace, frame); });
    double highest = frame.bottom;
    for (const ChartPlace& place : trace.places) highest = std::min(highest, place.y);
    QImage picture = blank(frame);
    for (int y = 0; y < frame.height; ++y) {
        const double down = std::clamp((y + 0.5 - highest) / (frame.bottom - highest), 0.0, 1.0);
        const double fade = metrics::chartAreaTop * (1 - down) + metrics::chartAreaBottom * down;
        for (int x = 0; x < frame.width; ++x) {
            const double top = over.share(x, y) * (isBar ? metrics::chartBarOpacity : 1.0F);
            QColor color(blue);
            color.setAlphaF(static_cast<float>(top + under.share(x, y) * fade * (1 - top)));
            picture.setPixelColor(x, y, color);
        }
    }
    return picture;
}

/// Of the channels of two pictures, 0 to 255 each.
struct Difference {
    double mean = 0;
    int largest = 0;
};

Difference differenceOf(const QImage& first, const QImage& second) {
    Difference difference;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QRgb a = first.pixel(x, y);
            const QRgb b = second.pixel(x, y);
            const int here =
                std::max({std::abs(qAlpha(a) - qAlpha(b)),
                          std::abs(qBlue(a) * qAlpha(a) - qBlue(b) * qAlpha(b)) / 255});
            difference.mean += here;
            difference.largest = std::max(difference.largest, here);
        }
    }
    difference.mean /= first.width() * first.height();
    return difference;
}

QImage drawn(const ChartTrace& trace, const ChartFrame& frame, ChartShape shape) {
    QImage picture = blank(frame);
    chartRaster::drawMarks(picture, trace, frame, shape, blue);
    return picture;
}

struct Case {
    const char* name;
    ChartShape shape;
    double windowSeconds;
    double spacing;
    double noise;
    double scale;
    // What the pictures may differ by, of 255.
    double mean;
    int largest;
};

class EveryMarkTest : public testing::TestWithParam<Case> {};

TEST_P(EveryMarkTest, the_columns_look_as_if_every_mark_were_drawn) {
    const Case& one = GetParam();
    const ChartFrame frame = frameOf(264, one.scale, one.windowSeconds);
    const auto points = load(one.windowSeconds, one.spacing, one.noise);
    const auto trace = ChartTrace::of(points, frame, one.shape);
    const auto difference =
        differenceOf(drawn(trace, frame, one.shape), everyMark(trace, frame, one.shape));
    RecordProperty("mean", std::to_string(difference.mean));
    EXPECT_LE(difference.mean, one.mean);
    EXPECT_LE(difference.largest, one.largest);
}

constexpr auto line = ChartShape::line;
constexpr auto area = ChartShape::area;
constexpr auto bar = ChartShape::bar;

INSTANTIATE_TEST_SUITE_P(charts, EveryMarkTest,
                         testing::Values(Case{"line_minute", line, 60, 1, 0.1, 1, 0.7, 40},
                                         Case{"line_minute_at_2", line, 60, 0.5, 0.1, 2, 0.7, 40},
                                         Case{"line_hour", line, 3600, 0.5, 0.05, 1, 0.7, 40},
                                         Case{"line_hour_noisy", line, 3600, 0.5, 0.5, 2, 0.7, 128},
                                         Case{"area_minute", area, 60, 1, 0.1, 1, 0.7, 40},
                                         Case{"area_quarter", area, 900, 1, 0.1, 1.5, 0.7, 128},
                                         Case{"area_hour", area, 3600, 0.5, 0.05, 1, 0.7, 40},
                                         Case{"area_hour_noisy", area, 3600, 0.5, 0.5, 1, 0.7, 128},
                                         Case{"bar_minute", bar, 60, 1, 0.1, 1, 1.6, 40},
                                         Case{"bar_minute_at_2", bar, 60, 1, 0.1, 2, 1.6, 40},
                                         Case{"bar_five_minutes", bar, 300, 2, 0.1, 1.25, 1.6, 40},
                                         Case{"bar_hour", bar, 3600, 0.5, 0.05, 1, 1.6, 40}),
                         [](const auto& each) { return std::string(each.param.name); });

/// How far up the marks reach about a column; the picture's height where there are none.
int topOf(const QImage& picture, int column) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = column - 1; x <= column + 1; ++x)
            if (qAlpha(picture.pixel(x, y)) >= 128) return y;
    return picture.height();
}

TEST(ChartRaster, a_single_spike_among_thousands_of_points_is_seen) {
    const ChartFrame frame = frameOf(264, 1, 3600);
    for (const ChartShape shape : {line, area, bar}) {
        std::vector<ChartPoint> points = load(3600, 0.5, 0);
        for (ChartPoint& point : points) point.value = 0.1;
        points[3601].value = 0.9;
        const auto picture = drawn(ChartTrace::of(points, frame, shape), frame, shape);
        EXPECT_LE(topOf(picture, 132), frame.top + 0.1 * 64 + 1);
    }
}

TEST(ChartRaster, a_gap_in_time_stays_empty) {
    const ChartFrame frame = frameOf(240, 1, 60);
    std::vector<ChartPoint> points;
    for (int i = 0; i <= 60; ++i)
        if (i < 20 || i > 40) points.push_back({static_cast<double>(i), 0.5});
    for (const ChartShape shape : {line, area, bar}) {
        const auto picture = drawn(ChartTrace::of(points, frame, shape), frame, shape);
        EXPECT_LT(topOf(picture, 40), 40);
        EXPECT_EQ(topOf(picture, 120), picture.height());
        EXPECT_LT(topOf(picture, 200), 40);
    }
}

TEST(ChartRaster, a_reading_that_came_late_is_no_gap) {
    const ChartFrame frame = frameOf(240, 1, 60);
    const std::vector<ChartPoint> points{{52, 0.5}, {55, 0.5}, {60, 0.5}};
    EXPECT_EQ(ChartTrace::of(points, frame, line).runEnds.size(), 1U);
    const std::vector<ChartPoint> apart{{52, 0.5}, {54.9, 0.5}, {60, 0.5}};
    EXPECT_EQ(ChartTrace::of(apart, frame, line).runEnds.size(), 2U);
}

TEST(ChartRaster, the_newest_point_is_at_the_right_edge_and_the_window_reaches_the_left_one) {
    const ChartFrame frame = frameOf(240, 1, 60);
    const auto trace = ChartTrace::of(load(60, 1, 0.1), frame, line);
    EXPECT_DOUBLE_EQ(trace.places.front().x, 0);
    EXPECT_DOUBLE_EQ(trace.places.back().x, 240);
    const auto bars = ChartTrace::of(load(60, 1, 0.1), frame, bar);
    EXPECT_NEAR(bars.places.front().x - bars.slot, 0, 1e-9) << "the first bar has its room";
    EXPECT_DOUBLE_EQ(bars.places.back().x, 240);
}

TEST(ChartRaster, a_value_off_the_scale_is_at_its_edge) {
    const ChartFrame frame = frameOf(240, 1, 60);
    const std::vector<ChartPoint> points{{58, 7}, {59, -3}, {60, 1e300}};
    const auto trace = ChartTrace::of(points, frame, line);
    EXPECT_DOUBLE_EQ(trace.places[0].y, frame.top);
    EXPECT_DOUBLE_EQ(trace.places[1].y, frame.bottom);
    EXPECT_DOUBLE_EQ(trace.places[2].y, frame.top);
}

TEST(ChartRaster, the_peak_is_the_first_of_the_largest_and_in_the_middle_of_its_bar) {
    const ChartFrame frame = frameOf(240, 1, 60);
    const std::vector<ChartPoint> points{{57, 0.1}, {58, 0.7}, {59, 0.7}, {60, 0.2}};
    EXPECT_DOUBLE_EQ(ChartTrace::of(points, frame, line).peak->x, 232);
    const auto bars = ChartTrace::of(points, frame, bar);
    EXPECT_DOUBLE_EQ(bars.peak->x, bars.places[1].x - bars.slot / 2);
}

TEST(ChartRaster, nothing_hostile_harms) {
    const std::vector<std::vector<ChartPoint>> all{
        {},
        {{nan, nan}, {infinity, infinity}},
        {{60, nan}, {60, infinity}, {60, -infinity}},
        {{60, 0.5}, {59, 0.2}, {61, 0.1}, {60, 0.9}, {-1e300, 0.3}, {60, 0.4}},
        {{60, 0.1}, {60, 0.9}},
        {{nan, 0.1}, {60, 0.5}, {59, 1e308}, {60, -1e308}}};
    for (const auto& points : all) {
        for (const ChartShape shape : {line, area, bar}) {
            for (const double scale : {1.0, 1.25, 2.0}) {
                ChartFrame frame = frameOf(240, scale, 60);
                drawn(ChartTrace::of(points, frame, shape), frame, shape);
                frame.upper = nan;
                drawn(ChartTrace::of(points, frame, shape), frame, shape);
                frame.windowSeconds = 0;
                frame.lower = frame.upper = infinity;
                drawn(ChartTrace::of(points, frame, shape), frame, shape);
            }
        }
    }
    const ChartFrame frame = frameOf(240, 1, 60);
    EXPECT_EQ(ChartTrace::of(all[1], frame, line).places.size(), 0U);
    EXPECT_EQ(ChartTrace::of(all[3], frame, line).places.size(), 4U);
}

}  // namespace
}  // namespace vtx
