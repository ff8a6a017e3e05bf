// SPDX-License-Identifier: MIT
#include "ui/models/ChartThroughput.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;

constexpr double mib = 1048576.0;

HistoryPoint point(int second, double value) { return {Date{std::chrono::seconds{second}}, value}; }

class DiskThroughputTest : public testing::Test {
protected:
    AppBench bench;
    DisplayPreferences preferences;
};

TEST_F(DiskThroughputTest, values_are_in_units_of_two_to_the_twenty) {
    const auto chart = describeDiskChart({point(1, 38.5 * mib)}, {point(1, mib / 2)}, preferences);
    EXPECT_EQ(chart.read, (HistorySeries{point(1, 38.5)}));
    EXPECT_EQ(chart.write, (HistorySeries{point(1, 0.5)}));
}

TEST_F(DiskThroughputTest, both_series_share_the_window_of_the_later_one) {
    const auto late = describeDiskChart({point(0, 0), point(100, 0)},
                                        {point(0, 0), point(41, 0), point(60, 0)}, preferences);
    EXPECT_EQ(late.read, (HistorySeries{point(100, 0)}));
    EXPECT_EQ(late.write, (HistorySeries{point(41, 0), point(60, 0)}));
    const auto early = describeDiskChart({point(0, 0)}, {point(100, 0)}, preferences);
    EXPECT_TRUE(early.read.empty());
    EXPECT_EQ(early.write, (HistorySeries{point(100, 0)}));
}

TEST_F(DiskThroughputTest, the_higher_of_both_peaks_sets_the_ceiling) {
    const auto chart = describeDiskChart({point(1, 20 * mib)}, {point(1, 158 * mib)}, preferences);
    EXPECT_EQ(chart.ceiling, 200);
    EXPECT_THAT(axisMarks(chart), ElementsAre("0 MB/s", "100", "200"));
}

TEST_F(DiskThroughputTest, the_ceiling_falls_when_the_peak_has_left_the_window) {
    const HistorySeries read{point(0, 158 * mib), point(30, 3 * mib)};
    EXPECT_EQ(describeDiskChart(read, {}, preferences).ceiling, 200);
    HistorySeries later = read;
    later.push_back(point(61, 3 * mib));
    EXPECT_EQ(describeDiskChart(later, {}, preferences).ceiling, 5);
}

TEST_F(DiskThroughputTest, what_is_later_than_the_last_points_sets_no_ceiling) {
    const HistorySeries setBack{point(130, 158 * mib), point(100, 3 * mib)};
    for (const auto& chart :
         {describeDiskChart(setBack, {}, preferences), describeDiskChart({}, setBack, preferences),
          describeDiskChart(setBack, {point(100, mib)}, preferences)}) {
        EXPECT_EQ(chart.ceiling, 5);
        EXPECT_THAT(spokenValue(chart), testing::HasSubstr("3.0 MB/s, Max 3.0 MB/s"));
    }
}

TEST(ThroughputCeiling, is_the_next_of_one_two_and_five_above_the_peak) {
    const auto of = throughputCeiling;
    EXPECT_EQ(of(1.0), 2.0);
    EXPECT_EQ(of(1.99), 2.0);
    EXPECT_EQ(of(2.0), 5.0);
    EXPECT_EQ(of(4.99), 5.0);
    EXPECT_EQ(of(5.0), 10.0);
    EXPECT_EQ(of(9.99), 10.0);
    EXPECT_EQ(of(10.0), 20.0);
    EXPECT_EQ(of(512.0), 1000.0);
    EXPECT_EQ(of(7000.0), 10000.0);
}

TEST(ThroughputCeiling, an_idle_disk_has_one_unit) {
    for (const double peak : {0.0, 0.004, 0.99, -3.0}) EXPECT_EQ(throughputCeiling(peak), 1.0);
}

TEST(ThroughputCeiling, stays_a_number) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(throughputCeiling(largest), largest);
    EXPECT_EQ(throughputCeiling(std::numeric_limits<double>::infinity()), 1.0);
    EXPECT_EQ(throughputCeiling(std::numeric_limits<double>::quiet_NaN()), 1.0);
}

TEST_F(DiskThroughputTest, a_small_scale_is_marked_in_tenths) {
    EXPECT_THAT(axisMarks(describeDiskChart({}, {}, preferences)),
                ElementsAre("0 MB/s", "0.5", "1"));
    EXPECT_THAT(axisMarks(describeDiskChart({point(1, 3 * mib)}, {}, preferences)),
                ElementsAre("0 MB/s", "2.5", "5"));
}

TEST_F(DiskThroughputTest, the_users_disk_colour_is_that_of_reading) {
    preferences.colorDisk = "FF8000";
    const auto chart = describeDiskChart({}, {}, preferences);
    EXPECT_EQ(chart.readColor, (SeriesTint{SeriesRole::cyan, RGBColor{255, 128, 0}}));
    EXPECT_EQ(chart.writeColor, (SeriesTint{SeriesRole::orange}));
}

TEST_F(DiskThroughputTest, a_value_that_is_no_number_sets_no_ceiling) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(describeDiskChart({point(1, infinity), point(2, 3 * mib)}, {}, preferences).ceiling,
              5);
}

TEST_F(DiskThroughputTest, says_window_and_each_series) {
    const auto chart =
        describeDiskChart({point(1, 3 * mib), point(2, mib)}, {point(2, mib / 2)}, preferences);
    EXPECT_EQ(spokenValue(chart),
              "Last 60 s, Read 1.0 MB/s, Max 3.0 MB/s, Write 0.5 MB/s, Max 0.5 MB/s");
    EXPECT_EQ(spokenValue(describeDiskChart({}, {}, preferences)), "Collecting…");
    EXPECT_EQ(spokenValue(describeDiskChart({}, {point(2, mib)}, preferences)),
              "Last 60 s, Write 1.0 MB/s, Max 1.0 MB/s");
}

}  // namespace
}  // namespace vtx
