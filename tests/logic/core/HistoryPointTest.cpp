// SPDX-License-Identifier: MIT
#include "core/HistoryPoint.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vtx {
namespace {

constexpr Date noon{std::chrono::seconds{1'769'860'800}};
constexpr double hour = 3600.0;
constexpr std::size_t slack = 64;

Date at(double second) {
    return noon + std::chrono::duration_cast<Date::duration>(seconds(second));
}

/// One point a second, from `from` to `to`, each valued by its second.
HistorySeries everySecond(int from, int to) {
    HistorySeries series;
    for (int second = from; second <= to; ++second)
        series.push_back({at(second), static_cast<double>(second)});
    return series;
}

void append(HistorySeries& series, double second) {
    appendTrimmed(series, {at(second), second}, hour, slack);
}

TEST(HistoryPoint, is_equal_by_its_moment_and_its_value) {
    EXPECT_EQ((HistoryPoint{at(1), 0.5}), (HistoryPoint{at(1), 0.5}));
    EXPECT_NE((HistoryPoint{at(1), 0.5}), (HistoryPoint{at(2), 0.5}));
    EXPECT_NE((HistoryPoint{at(1), 0.5}), (HistoryPoint{at(1), 0.6}));
}

TEST(HistoryPoint, takes_sixteen_bytes) { EXPECT_EQ(sizeof(HistoryPoint), 16U); }

TEST(AppendTrimmed, the_first_point_is_kept) {
    HistorySeries series;
    append(series, 0);
    EXPECT_EQ(series, (HistorySeries{{at(0), 0.0}}));
}

TEST(AppendTrimmed, a_point_exactly_as_old_as_the_window_is_not_stale) {
    HistorySeries series{{at(0), 0.0}};
    appendTrimmed(series, {at(hour), hour}, hour, 1);
    EXPECT_EQ(series.size(), 2U);
}

TEST(AppendTrimmed, fewer_stale_points_than_the_slack_stay) {
    auto series = everySecond(0, 3600);
    for (int second = 3601; second <= 3663; ++second) append(series, second);
    EXPECT_EQ(series.front().timestamp, at(0));
    EXPECT_EQ(series.size(), 3664U);
}

TEST(AppendTrimmed, the_64th_stale_point_lets_all_64_go_at_once) {
    auto series = everySecond(0, 3663);
    append(series, 3664);
    EXPECT_EQ(series.front().timestamp, at(64));
    EXPECT_EQ(series.back().timestamp, at(3664));
    EXPECT_EQ(series.size(), 3601U);
}

TEST(AppendTrimmed, after_a_long_pause_only_the_new_point_and_what_its_window_holds_remain) {
    auto series = everySecond(0, 100);
    append(series, hour + 90);
    EXPECT_EQ(series.front().timestamp, at(90));
    EXPECT_EQ(series.size(), 12U);
}

TEST(AppendTrimmed, where_not_even_the_new_point_lies_in_the_window_it_alone_remains) {
    auto series = everySecond(0, 3);
    appendTrimmed(series, {at(4), 4.0}, -1.0, slack);
    EXPECT_EQ(series, (HistorySeries{{at(4), 4.0}}));
}

TEST(AppendTrimmed, a_clock_set_back_lets_nothing_go) {
    auto series = everySecond(0, 100);
    append(series, -86'400);
    EXPECT_EQ(series.size(), 102U);
}

TEST(AppendTrimmed, a_clock_set_forward_lets_all_earlier_points_go) {
    auto series = everySecond(0, 100);
    append(series, 86'400);
    EXPECT_EQ(series, (HistorySeries{{at(86'400), 86'400.0}}));
}

struct Pace {
    double interval;
    std::size_t atLeast;
    std::size_t atMost;
};

class SteadyPace : public ::testing::TestWithParam<Pace> {};

// At the shortest interval, the usual one and the longest.
TEST_P(SteadyPace, a_day_keeps_an_hour_and_never_more_than_the_slack_beyond) {
    const auto [interval, atLeast, atMost] = GetParam();
    HistorySeries series;
    std::size_t most = 0;
    for (int i = 0; i * interval < 86'400; ++i) {
        append(series, i * interval);
        most = std::max(most, series.size());
    }
    EXPECT_EQ(most, atMost);
    EXPECT_GE(series.size(), atLeast);
    EXPECT_EQ(trimmed(series, hour).size(), atLeast);
}

INSTANTIATE_TEST_SUITE_P(AnHour, SteadyPace,
                         ::testing::Values(Pace{0.5, 7201, 7264}, Pace{1.0, 3601, 3664},
                                           Pace{2.0, 1801, 1864}));

TEST(Trimmed, an_empty_series_stays_empty) { EXPECT_TRUE(trimmed({}, hour).empty()); }

TEST(Trimmed, keeps_the_points_of_the_window_and_their_order) {
    const auto series = everySecond(0, 100);
    EXPECT_EQ(trimmed(series, 60.0), everySecond(40, 100));
    EXPECT_EQ(trimmed(series, hour), series);
    EXPECT_EQ(trimmed(series, 0.0), everySecond(100, 100));
}

TEST(Trimmed, the_window_ends_with_the_last_point_and_not_now) {
    const auto longAgo = everySecond(-7200, -7000);
    EXPECT_EQ(trimmed(longAgo, 60.0), everySecond(-7060, -7000));
}

TEST(Trimmed, changes_nothing_of_the_series_itself) {
    const auto series = everySecond(0, 5);
    EXPECT_EQ(trimmed(series, 2.0).size(), 3U);
    EXPECT_EQ(series, everySecond(0, 5));
}

}  // namespace
}  // namespace vtx
