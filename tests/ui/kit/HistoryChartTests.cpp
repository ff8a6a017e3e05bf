// SPDX-License-Identifier: MIT
#include "ui/kit/HistoryChart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ui/kit/Metrics.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

HistoryChartContent contentOf(std::vector<ChartPoint> points, ChartShape shape = ChartShape::area) {
    HistoryChartContent content;
    content.title = QStringLiteral("CPU total");
    content.symbol = QStringLiteral("cpu");
    content.series = {{std::move(points), shape, ColorToken::cpu}};
    content.marks = {QStringLiteral("0 %"), QStringLiteral("50 %"), QStringLiteral("100 %")};
    content.figures = {{QStringLiteral("Min"), QStringLiteral("6 %")}};
    content.placeholder = QStringLiteral("Collecting…");
    content.spokenName = content.title;
    content.spoken = QStringLiteral("Last 60 s, 20 %");
    return content;
}

std::vector<ChartPoint> minute() {
    std::vector<ChartPoint> points;
    for (int i = 0; i <= 60; ++i) points.push_back({1000.0 + i, 0.4 + 0.3 * std::sin(i / 5.0)});
    return points;
}

class HistoryChartTest : public testing::Test {
protected:
    void give(const HistoryChartContent& content) {
        chart.setContent(content);
        chart.resize(360, chart.sizeHint().height());
        test::show(chart);
    }
    /// Whether any pixel of that rectangle, in logical pixels, has the colour.
    bool shows(QColor color, QRect where, qreal scale = 2) {
        const QImage image = test::picture(chart, scale);
        const QRect area = QRectF(QPointF(where.topLeft()) * scale, QSizeF(where.size()) * scale)
                               .toRect()
                               .intersected(image.rect());
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (image.pixel(x, y) == color.rgba()) return true;
        return false;
    }
    static QColor token(ColorToken token) { return Theme::current().color(token); }
    int painted(const std::function<void()>& change) {
        test::settle();
        test::PaintRecorder recorder(chart);
        change();
        test::settle();
        return static_cast<int>(recorder.painted.size());
    }

    test::FixedTheme theme{Appearance::dark};
    HistoryChart chart;
};

TEST_F(HistoryChartTest, without_points_says_so_in_a_box_of_the_plots_height) {
    give(contentOf({}));
    EXPECT_EQ(chart.height(), 16 + 10 + 72);
    EXPECT_EQ(qAlpha(test::picture(chart, 1).pixel(20, 60)), token(ColorToken::hover).alpha());
    give(contentOf({{1, std::numeric_limits<double>::quiet_NaN()}}));
    EXPECT_EQ(chart.height(), 16 + 10 + 72);
}

TEST_F(HistoryChartTest, one_point_is_a_dot_at_the_right_edge) {
    for (const ChartShape shape : {ChartShape::line, ChartShape::area, ChartShape::bar}) {
        give(contentOf({{1000, 0.5}}, shape));
        const QRect plot = chart.plotRect();
        EXPECT_TRUE(shows(token(ColorToken::cpu), {plot.right() - 2, plot.center().y() - 2, 5, 5}));
        EXPECT_FALSE(shows(token(ColorToken::cpu), plot.adjusted(0, 0, -6, 0)));
    }
}

TEST_F(HistoryChartTest, equal_content_paints_nothing) {
    give(contentOf(minute()));
    EXPECT_EQ(painted([this] { chart.setContent(contentOf(minute())); }), 0);
}

TEST_F(HistoryChartTest, a_new_point_paints_once_and_leaves_the_title) {
    give(contentOf(minute()));
    test::settle();
    test::PaintRecorder recorder(chart);
    auto points = minute();
    points.push_back({1061, 0.9});
    chart.setContent(contentOf(points));
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_FALSE(recorder.painted[0].intersects(QRect(0, 0, 360, 16)));
}

TEST_F(HistoryChartTest, a_users_own_colour_replaces_line_and_symbol) {
    auto content = contentOf(minute(), ChartShape::line);
    content.series[0].color = QColor(255, 128, 0);
    give(content);
    EXPECT_TRUE(shows(QColor(255, 128, 0), chart.plotRect()));
    EXPECT_FALSE(shows(token(ColorToken::cpu), chart.rect()));
    EXPECT_TRUE(shows(QColor(255, 128, 0), {0, 0, 16, 16}));
}

TEST_F(HistoryChartTest, the_theme_colour_follows_the_appearance) {
    give(contentOf(minute(), ChartShape::line));
    EXPECT_TRUE(shows(token(ColorToken::cpu), chart.plotRect()));
    theme.set(Appearance::light);
    EXPECT_TRUE(shows(QColor(0x1D, 0x63, 0xC9), chart.plotRect()));
}

TEST_F(HistoryChartTest, two_series_have_a_legend_in_their_shapes) {
    auto content = contentOf(minute());
    content.series[0].name = QStringLiteral("Read");
    content.series.push_back({{{1000, 0.1}, {1060, 0.2}},
                              ChartShape::line,
                              ColorToken::orange,
                              QStringLiteral("Write")});
    give(content);
    const QRect foot(0, chart.height() - metrics::chartPillHeight, 150, metrics::chartPillHeight);
    EXPECT_TRUE(shows(token(ColorToken::cpu), foot));
    EXPECT_TRUE(shows(token(ColorToken::orange), foot));
    EXPECT_TRUE(shows(token(ColorToken::orange), chart.plotRect()));
}

TEST_F(HistoryChartTest, the_peak_wears_a_ring_in_the_colour_of_the_card) {
    give(contentOf(minute(), ChartShape::bar));
    EXPECT_TRUE(shows(token(ColorToken::card), chart.plotRect(), 4));
}

TEST_F(HistoryChartTest, speaks_its_title_and_its_course) {
    give(contentOf(minute()));
    auto* spoken = QAccessible::queryAccessibleInterface(&chart);
    EXPECT_EQ(spoken->role(), QAccessible::Chart);
    EXPECT_EQ(spoken->text(QAccessible::Name), "CPU total");
    EXPECT_EQ(spoken->text(QAccessible::Description), "Last 60 s, 20 %");
}

TEST_F(HistoryChartTest, hidden_it_lets_its_points_go_and_draws_them_when_given_again) {
    give(contentOf(minute(), ChartShape::line));
    EXPECT_TRUE(shows(token(ColorToken::cpu), chart.plotRect()));
    chart.hide();
    test::show(chart);
    EXPECT_FALSE(shows(token(ColorToken::cpu), chart.plotRect()));
    chart.setContent(contentOf(minute(), ChartShape::line));
    EXPECT_TRUE(shows(token(ColorToken::cpu), chart.plotRect()));
}

TEST_F(HistoryChartTest, draws_seven_thousand_points_at_every_scale) {
    std::vector<ChartPoint> points;
    for (int i = 0; i <= 7200; ++i) points.push_back({i * 0.5, (i % 97) / 100.0});
    auto content = contentOf(points);
    content.windowSeconds = 3600;
    give(content);
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0})
        EXPECT_TRUE(shows(token(ColorToken::cpu), chart.plotRect(), scale)) << scale;
}

TEST_F(HistoryChartTest, hostile_values_and_sizes_draw_something_or_nothing) {
    const double infinity = std::numeric_limits<double>::infinity();
    auto content = contentOf({{infinity, 0.5}, {-infinity, 1e308}, {5, -1e308}, {4, 2}, {9, 0.5}});
    content.upper = infinity;
    give(content);
    chart.resize(0, 0);
    test::picture(chart, 1);
    chart.resize(20, 90);
    test::picture(chart, 2);
    EXPECT_TRUE(chart.plotRect().isEmpty());
}

}  // namespace
}  // namespace vtx
