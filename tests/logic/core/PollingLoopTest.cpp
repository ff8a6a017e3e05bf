// SPDX-License-Identifier: MIT
// How often the coordinator makes a pass.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;

constexpr auto category = "MetricsCoordinator";

TEST(PollingLoop, begins_in_background_with_the_loop_stopped) {
    CoordinatorBench b;
    b.advance(seconds(5));
    EXPECT_EQ(*b.coordinator.pollingMode, PollingMode::background);
    EXPECT_FALSE(b.coordinator.isRunning());
    EXPECT_EQ(b.samples(), 0U);
}

TEST(PollingLoop, the_first_pass_comes_at_once_and_the_next_after_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    b.advance(std::chrono::milliseconds(999));
    EXPECT_EQ(b.samples(), 1U);
    b.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(b.samples(), 2U);
}

TEST(PollingLoop, sleeps_with_a_tolerance_of_a_tenth_of_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    EXPECT_THAT(b.clock.pending(), ElementsAre(ManualClock::PendingTimer{
                                       b.clock.continuous() + seconds(1), seconds(0.1)}));
}

TEST(PollingLoop, the_cadence_is_the_length_of_the_pass_plus_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.main.drain();  // the pass waits for its engine
    b.clock.advanceBy(seconds(0.3));
    b.settle();
    EXPECT_EQ(b.clock.nextDeadline(), b.clock.continuous() + seconds(1));
}

TEST(PollingLoop, start_says_mode_and_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    EXPECT_TRUE(b.log.contains(LogLevel::info, category,
                               "MetricsCoordinator started (mode=background, interval=1.000000s)"));
}

TEST(PollingLoop, starting_again_replaces_the_loop_with_a_pass_at_once) {
    CoordinatorBench b;
    b.coordinator.start();
    b.advance(seconds(0.4));
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 2U);
    b.advance(seconds(1));
    EXPECT_EQ(b.samples(), 3U);  // one loop, not two
}

TEST(PollingLoop, a_loop_that_was_replaced_before_it_began_makes_no_pass) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::batterySaver);
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_EQ(*b.coordinator.cpu.latest, std::nullopt);
}

TEST(PollingLoop, a_pass_under_way_runs_to_its_end_when_the_loop_stops) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.advance(seconds(1));
    b.clock.advanceBy(seconds(1));
    b.main.drain();
    const auto before = *b.coordinator.cpu.latest;
    b.coordinator.stop();
    b.settle();
    EXPECT_NE(*b.coordinator.cpu.latest, before);
    b.advance(seconds(10));
    EXPECT_EQ(b.samples(), 3U);
}

TEST(PollingLoop, a_change_of_mode_restarts_the_loop_with_a_pass_at_once) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    std::size_t passes = 1;
    for (const auto mode :
         {PollingMode::active, PollingMode::batterySaver, PollingMode::background}) {
        b.advance(seconds(0.5));
        ASSERT_EQ(b.samples(), passes);
        b.coordinator.setPollingMode(mode);
        b.settle();
        EXPECT_EQ(b.samples(), ++passes) << name(mode);
        EXPECT_EQ(*b.coordinator.pollingMode, mode);
    }
}

TEST(PollingLoop, the_present_mode_again_neither_restarts_nor_logs) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.log.clear();
    b.coordinator.setPollingMode(PollingMode::background);
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_TRUE(b.log.lines().empty());
}

TEST(PollingLoop, a_change_of_mode_is_logged) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::suspended);
    EXPECT_TRUE(b.log.contains(LogLevel::info, category, "Polling mode → suspended"));
}

TEST(PollingLoop, runs_by_the_mode_that_an_observer_of_the_change_chose) {
    CoordinatorBench b;
    b.coordinator.start();
    const auto token = b.coordinator.pollingMode.subscribe([&b](PollingMode mode) {
        if (mode == PollingMode::suspended) b.coordinator.setPollingMode(PollingMode::background);
    });
    b.coordinator.setPollingMode(PollingMode::suspended);
    EXPECT_EQ(*b.coordinator.pollingMode, PollingMode::background);
    EXPECT_TRUE(b.coordinator.isRunning());
}

TEST(PollingLoop, suspended_stops_the_loop_and_start_does_not_wake_it) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.coordinator.setPollingMode(PollingMode::suspended);
    EXPECT_FALSE(b.coordinator.isRunning());
    b.coordinator.start();
    EXPECT_FALSE(b.coordinator.isRunning());
    b.advance(seconds(60));
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_TRUE(b.clock.pending().empty());
}

struct IntervalCase {
    double preference;
    PollingMode mode;
    double expected;
};

class EffectiveInterval : public testing::TestWithParam<IntervalCase> {};

TEST_P(EffectiveInterval, is_limited_and_doubled_to_save_the_battery) {
    CoordinatorBench b;
    b.change([](auto& p) { p.refreshIntervalSeconds = GetParam().preference; });
    b.coordinator.setPollingMode(GetParam().mode);
    EXPECT_DOUBLE_EQ(b.coordinator.effectiveInterval(), GetParam().expected);
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(table, EffectiveInterval,
                         testing::Values(IntervalCase{1.0, PollingMode::background, 1.0},
                                         IntervalCase{1.0, PollingMode::active, 1.0},
                                         IntervalCase{1.0, PollingMode::batterySaver, 2.0},
                                         IntervalCase{0.1, PollingMode::background, 0.5},
                                         IntervalCase{0.1, PollingMode::batterySaver, 1.0},
                                         IntervalCase{9.0, PollingMode::background, 2.0},
                                         IntervalCase{9.0, PollingMode::batterySaver, 4.0},
                                         IntervalCase{nan, PollingMode::background, 0.5},
                                         IntervalCase{infinity, PollingMode::active, 2.0},
                                         IntervalCase{-infinity, PollingMode::active, 0.5}));

TEST(PollingLoop, the_interval_is_fixed_for_the_life_of_a_loop) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.change([](auto& p) { p.refreshIntervalSeconds = 2.0; });
    b.advance(seconds(1));
    EXPECT_EQ(b.samples(), 2U);
    b.coordinator.start();
    b.settle();
    b.advance(seconds(1.5));
    EXPECT_EQ(b.samples(), 3U);
}

TEST(PollingLoop, two_passes_may_overlap) {
    CoordinatorBench b;
    b.coordinator.start();
    b.main.drain();
    TaskScope manual(b.main);
    manual.spawn([&](std::stop_token) { return b.coordinator.refreshAll(); });
    b.main.drain();
    b.settle();
    EXPECT_EQ(b.samples(), 2U);
}

}  // namespace
}  // namespace vtx
