// SPDX-License-Identifier: MIT
#include "ui/models/ChartModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "language/Localization.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

HistoryPoint point(double second, double value) {
    return {Date{std::chrono::microseconds{static_cast<std::int64_t>(second * 1e6)}}, value};
}

/// One value a second, from second 0 on.
HistorySeries values(std::initializer_list<double> all) {
    HistorySeries series;
    for (const double value : all)
        series.push_back(point(static_cast<double>(series.size()), value));
    return series;
}

MetricChartModel chartOf(const HistorySeries& history, const DisplayPreferences& preferences = {}) {
    return describeChart(ChartMetric::cpu, "CPU total", "cpu", history, preferences);
}

TEST(ChartModel, shows_the_window_before_the_last_point_however_old_that_is) {
    const HistorySeries old{point(0, 0.1), point(39, 0.2), point(40, 0.3), point(100, 0.4)};
    EXPECT_EQ(chartOf(old).points, (HistorySeries{old[2], old[3]}));
    DisplayPreferences preferences;
    preferences.historyRange = DisplayPreferences::HistoryRange::fiveMinutes;
    EXPECT_EQ(chartOf(old, preferences).points, old);
}

TEST(ChartModel, what_is_later_than_the_last_point_counts_nowhere) {
    const HistorySeries setBack{point(98, 0.3), point(130, 0.9), point(99, 0.1), point(100, 0.2)};
    const auto chart = chartOf(setBack);
    EXPECT_EQ(chart.points, (HistorySeries{setBack[0], setBack[2], setBack[3]}));
    EXPECT_THAT(pills(chart), ElementsAre(ChartPill{"Min", "10 %"}, ChartPill{"Avg", "20 %"},
                                          ChartPill{"Max", "30 %"}));
}

TEST(ChartModel, takes_title_style_and_window_over) {
    DisplayPreferences preferences;
    preferences.chartStyle = DisplayPreferences::ChartStyle::bar;
    preferences.historyRange = DisplayPreferences::HistoryRange::oneHour;
    const auto chart = chartOf({}, preferences);
    EXPECT_EQ(chart.title, "CPU total");
    EXPECT_EQ(chart.symbol, "cpu");
    EXPECT_EQ(chart.style, DisplayPreferences::ChartStyle::bar);
    EXPECT_EQ(chart.historyRange, DisplayPreferences::HistoryRange::oneHour);
    EXPECT_EQ(chart.yScale, (ChartScale{0.0, 1.0}));
}

TEST(ChartModel, each_metric_has_its_theme_colour_until_the_user_has_one) {
    DisplayPreferences preferences;
    const auto colorOf = [&preferences](ChartMetric metric) {
        return describeChart(metric, {}, {}, {}, preferences).color;
    };
    const std::tuple<ChartMetric, SeriesRole, std::string DisplayPreferences::*> metrics[] = {
        {ChartMetric::cpu, SeriesRole::cpu, &DisplayPreferences::colorCPU},
        {ChartMetric::pCore, SeriesRole::pCore, &DisplayPreferences::colorPCore},
        {ChartMetric::eCore, SeriesRole::eCore, &DisplayPreferences::colorECore},
        {ChartMetric::gpu, SeriesRole::gpu, &DisplayPreferences::colorGPU},
        {ChartMetric::memory, SeriesRole::memory, &DisplayPreferences::colorMemory}};
    for (const auto& [metric, role, color] : metrics) {
        preferences = {};
        EXPECT_EQ(colorOf(metric), SeriesTint{role});
        preferences.*color = "#102030";
        EXPECT_EQ(colorOf(metric), (SeriesTint{role, RGBColor{16, 32, 48}}));
        preferences.*color = "none";
        EXPECT_EQ(colorOf(metric), SeriesTint{role});
    }
}

TEST(ChartModel, figures_are_those_of_the_values_in_the_window) {
    EXPECT_THAT(
        pills(chartOf(values({0.06, 0.55, 0.2}))),
        ElementsAre(ChartPill{"Min", "6 %"}, ChartPill{"Avg", "27 %"}, ChartPill{"Max", "55 %"}));
}

TEST(ChartModel, one_point_is_minimum_average_and_maximum) {
    EXPECT_EQ(statistics(values({0.31})), (ChartStatistics{0.31, 0.31, 0.31}));
}

TEST(ChartModel, without_a_value_there_are_no_figures) {
    EXPECT_EQ(statistics({}), std::nullopt);
    EXPECT_EQ(statistics(values({nan, infinity})), std::nullopt);
    EXPECT_THAT(pills(chartOf({})), IsEmpty());
}

TEST(ChartModel, what_is_no_number_counts_in_no_figure) {
    const auto odd = values({0.2, nan, 0.4, infinity, -infinity});
    const auto figures = statistics(odd);
    ASSERT_TRUE(figures);
    EXPECT_DOUBLE_EQ(figures->min, 0.2);
    EXPECT_DOUBLE_EQ(figures->average, 0.3);
    EXPECT_DOUBLE_EQ(figures->max, 0.4);
    EXPECT_EQ(peakPoint(odd), odd[2]);
    EXPECT_EQ(lastValue(odd), 0.4);
}

TEST(ChartModel, the_average_of_the_largest_numbers_is_a_number) {
    constexpr double large = std::numeric_limits<double>::max();
    EXPECT_DOUBLE_EQ(statistics(values({large, large}))->average, large);
}

TEST(ChartModel, the_peak_is_the_first_of_the_largest_values) {
    const auto series = values({0.1, 0.7, 0.3, 0.7});
    EXPECT_EQ(peakPoint(series), series[1]);
    EXPECT_EQ(peakPoint({}), std::nullopt);
}

TEST(ChartModel, the_axis_reads_as_the_values_do) {
    EXPECT_THAT(axisMarks(chartOf({})), ElementsAre("0 %", "50 %", "100 %"));
    MetricChartModel bare;
    EXPECT_THAT(axisMarks(bare), ElementsAre("", "", ""));
}

TEST(ChartModel, values_that_nothing_writes_have_no_pills) {
    auto chart = chartOf(values({0.1, 0.7}));
    chart.valueFormat = nullptr;
    EXPECT_THAT(pills(chart), IsEmpty());
}

class SpokenChartTest : public testing::Test {
protected:
    AppBench bench;
};

TEST_F(SpokenChartTest, says_window_last_value_and_figures) {
    EXPECT_EQ(spokenText(chartOf(values({0.06, 0.55, 0.2}))),
              "CPU total, Last 60 s, 20 %, Min 6 %, Avg 27 %, Max 55 %");
}

TEST_F(SpokenChartTest, says_nothing_of_what_is_later_than_the_last_point) {
    EXPECT_EQ(spokenValue(chartOf({point(130, 0.9), point(99, 0.1), point(100, 0.2)})),
              "Last 60 s, 20 %, Min 10 %, Avg 15 %, Max 20 %");
}

TEST_F(SpokenChartTest, says_that_there_is_nothing_yet) {
    EXPECT_EQ(spokenText(chartOf({})), "CPU total, Collecting…");
    auto unwritten = chartOf(values({0.5}));
    unwritten.valueFormat = nullptr;
    EXPECT_EQ(spokenValue(unwritten), "Collecting…");
    Localization::shared().setPreference(Language::de);
    EXPECT_NE(spokenValue(chartOf({})), "Collecting…");
}

}  // namespace
}  // namespace vtx
