// SPDX-License-Identifier: MIT
#include "processes/BackgroundHogDetector.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/Snapshots.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using Configuration = BackgroundHogDetector::Configuration;

constexpr std::int32_t pid = 200;
constexpr double busy = 0.5;
constexpr double idle = 0.01;

/// An enabled detector that sees one process of the user.
struct Detectors : testing::Test {
    Detectors() { detector.isEnabled = true; }

    TestBench bench;
    BackgroundHogDetector detector{bench.ports()};
    std::vector<ProcessSnapshot> listed{snapshotOf(pid)};

    void observe(double cpu) {
        listed.front().cpuPercent = cpu;
        detector.observe(listed);
    }
    /// Observes at once and then every five seconds, for so long.
    void observeFor(double span, double cpu) {
        observe(cpu);
        for (double at = 5.0; at <= span; at += 5.0) after(5.0, cpu);
    }
    void after(double span, double cpu) {
        bench.clock.advanceBy(seconds(span));
        observe(cpu);
    }
    void reportFrom(double leastSeconds) {
        detector.configuration = Configuration{.minDurationSeconds = leastSeconds};
    }
    [[nodiscard]] std::vector<std::int32_t> hogs() const {
        std::vector<std::int32_t> pids;
        for (const auto& hog : *detector.hogs) pids.push_back(hog.pid);
        return pids;
    }
    [[nodiscard]] const HogReport& hog() const { return detector.hogs->at(0); }
    [[nodiscard]] double activeSeconds() const {
        return detector.hogs->empty() ? -1.0 : hog().activeSeconds;
    }
};

TEST_F(Detectors, a_disabled_one_with_nothing_to_clear_tells_nobody_and_asks_nothing) {
    detector.isEnabled = false;
    int told = 0;
    const auto token = detector.objectWillChange.subscribe([&told] { ++told; });
    observe(busy);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(bench.platform.totalCalls(), 0U);
}

TEST_F(Detectors, an_enabled_one_publishes_at_every_call) {
    int told = 0;
    const auto token = detector.hogs.subscribe([&told](const auto&) { ++told; });
    observe(idle);
    observe(idle);
    EXPECT_EQ(told, 3) << "the value at hand, and two calls";
}

TEST_F(Detectors, five_minutes_of_activity_make_a_hog) {
    observeFor(295, busy);
    EXPECT_TRUE(hogs().empty());
    after(5, busy);
    EXPECT_EQ(hogs(), std::vector{pid});
    EXPECT_EQ(hog().activeSeconds, 300.0);
}

TEST_F(Detectors, a_report_tells_the_process_as_it_is_now) {
    const Date start = bench.clock.now();
    observeFor(300, busy);
    listed.front().name = "renamed";
    listed.front().residentMemoryBytes = 77;
    after(5, 0.9);
    const HogReport expected{pid,   "renamed", "/opt/node", hog().averageCPU, 0.9,
                             305.0, 77,        start,       bench.clock.now()};
    EXPECT_EQ(hog(), expected);
    EXPECT_NEAR(hog().averageCPU, (61 * 0.5 + 0.9) / 62, 1e-12);
}

TEST_F(Detectors, a_process_just_at_the_threshold_is_active) {
    reportFrom(5);
    observeFor(5, 0.15);
    EXPECT_EQ(activeSeconds(), 5.0);
}

TEST_F(Detectors, a_gap_of_thirty_seconds_adds_nothing_and_a_shorter_one_itself) {
    reportFrom(0);
    observe(busy);
    after(30.0, busy);
    EXPECT_EQ(activeSeconds(), 0.0);
    after(29.9, busy);
    EXPECT_NEAR(activeSeconds(), 29.9, 1e-9);
}

TEST_F(Detectors, a_short_rest_between_two_active_moments_counts_as_active) {
    reportFrom(0);
    observe(busy);
    for (int i = 0; i < 3; ++i) after(5, idle);
    after(5, busy);
    EXPECT_EQ(activeSeconds(), 20.0);
}

TEST_F(Detectors, both_sides_of_a_break_count) {
    reportFrom(0);
    observeFor(60, busy);
    bench.clock.sleepMachine(std::chrono::minutes(10));
    observeFor(40, busy);
    EXPECT_EQ(activeSeconds(), 100.0);
}

TEST_F(Detectors, one_active_observation_is_no_time) {
    reportFrom(0);
    observe(busy);
    EXPECT_EQ(activeSeconds(), 0.0);
    EXPECT_EQ(hog().averageCPU, busy);
    reportFrom(0.001);
    observe(idle);
    EXPECT_TRUE(hogs().empty());
}

TEST_F(Detectors, without_a_least_time_every_process_is_reported) {
    reportFrom(0);
    observe(idle);
    EXPECT_EQ(activeSeconds(), 0.0);
    EXPECT_EQ(hog().averageCPU, 0.0);
    EXPECT_EQ(hog().peakCPU, idle);
}

TEST_F(Detectors, an_observation_as_old_as_the_window_stays_and_an_older_one_goes) {
    reportFrom(0);
    observe(0.9);
    after(1800.0, idle);
    EXPECT_EQ(hog().peakCPU, 0.9);
    EXPECT_EQ(hog().firstObserved, ManualClock::start);
    after(0.000001, idle);
    EXPECT_EQ(hog().peakCPU, idle);
}

TEST_F(Detectors, activity_that_left_the_window_no_longer_counts) {
    observeFor(300, busy);
    EXPECT_EQ(activeSeconds(), 300.0);
    for (int i = 0; i < 299; ++i) after(5, idle);
    EXPECT_EQ(activeSeconds(), 300.0);
    for (int i = 0; i < 2; ++i) after(5, idle);
    EXPECT_TRUE(hogs().empty());
}

TEST_F(Detectors, a_clock_that_is_set_changes_nothing_of_what_was_observed) {
    for (const int hours : {-48, 2}) {
        observeFor(300, busy);
        bench.clock.setWallClock(bench.clock.now() + std::chrono::hours(hours));
        after(5, busy);
        EXPECT_EQ(activeSeconds(), 305.0) << hours;
        EXPECT_EQ(hog().lastObserved, bench.clock.now());
        EXPECT_EQ(hog().lastObserved - hog().firstObserved, std::chrono::seconds(305));
        after(1801, idle);
        EXPECT_TRUE(hogs().empty()) << hours;
        detector.observe({});  // it ends, and begins anew
    }
}

TEST_F(Detectors, the_longest_active_comes_first_and_equals_by_their_numbers) {
    listed = {snapshotOf(400, busy), snapshotOf(300, busy), snapshotOf(pid, idle)};
    reportFrom(0);
    detector.observe(listed);
    bench.clock.advanceBy(seconds(5));
    detector.observe(listed);
    EXPECT_EQ(hogs(), (std::vector{300, 400, pid}));
}

TEST_F(Detectors, processes_of_others_are_never_observed) {
    reportFrom(0);
    listed.front().uid = 0;
    observeFor(600, 4.0);
    EXPECT_TRUE(hogs().empty());
}

TEST_F(Detectors, the_application_in_front_is_not_observed) {
    reportFrom(0);
    bench.mac.frontmostApplication = pid;
    observeFor(600, 4.0);
    EXPECT_TRUE(hogs().empty());
    bench.mac.frontmostApplication = 1;
    observe(busy);
    EXPECT_EQ(hogs(), std::vector{pid});
}

TEST_F(Detectors, a_hog_that_comes_to_the_front_stays_with_its_figures_while_time_goes_on) {
    observeFor(300, busy);
    bench.mac.frontmostApplication = pid;
    after(3600, idle);
    EXPECT_EQ(activeSeconds(), 300.0);
    EXPECT_EQ(hog().lastObserved, bench.clock.now());
    bench.mac.frontmostApplication.reset();
    after(5, idle);
    EXPECT_TRUE(hogs().empty());
}

TEST_F(Detectors, asks_once_a_call_who_is_in_front_and_never_while_disabled) {
    observe(busy);
    EXPECT_EQ(bench.platform.calls(operations::frontmostApplication), 1U);
    detector.isEnabled = false;
    observe(busy);
    EXPECT_EQ(bench.platform.calls(operations::frontmostApplication), 1U);
}

TEST_F(Detectors, a_process_that_ended_is_forgotten_at_once) {
    observeFor(300, busy);
    const Date first = hog().firstObserved;
    detector.observe({});
    EXPECT_TRUE(hogs().empty());
    observeFor(300, busy);
    EXPECT_EQ(activeSeconds(), 300.0);
    EXPECT_GT(hog().firstObserved, first);
}

TEST_F(Detectors, a_hog_that_returns_shows_when_it_was_first_reported) {
    observeFor(300, busy);
    for (int i = 0; i < 400; ++i) after(5, idle);
    EXPECT_TRUE(hogs().empty());
    for (int i = 0; i < 61; ++i) after(5, busy);
    EXPECT_EQ(hog().firstObserved, ManualClock::start);
}

TEST_F(Detectors, disabling_forgets_and_publishes_once) {
    observeFor(300, busy);
    detector.isEnabled = false;
    int told = -1;
    const auto token = detector.hogs.subscribe([&told](const auto&) { ++told; });
    after(5, busy);
    after(5, busy);
    EXPECT_TRUE(hogs().empty());
    EXPECT_EQ(told, 1);
    detector.isEnabled = true;
    after(5, busy);
    EXPECT_TRUE(hogs().empty()) << "it begins anew";
}

TEST_F(Detectors, what_was_reported_before_disabling_keeps_its_first_time) {
    observeFor(300, busy);
    detector.isEnabled = false;
    after(5, busy);
    detector.observe({});  // it ends meanwhile; another one takes over its number
    detector.isEnabled = true;
    observeFor(300, busy);
    EXPECT_EQ(hog().firstObserved, ManualClock::start);
}

TEST_F(Detectors, a_new_threshold_applies_to_what_was_observed_before) {
    observeFor(300, 0.3);
    detector.configuration = Configuration{.cpuThreshold = 0.4};
    observe(0.3);
    EXPECT_TRUE(hogs().empty());
    detector.configuration = Configuration{.cpuThreshold = 0.2};
    observe(0.3);
    EXPECT_EQ(activeSeconds(), 300.0);
}

TEST_F(Detectors, a_list_that_is_refreshed_too_seldom_never_makes_a_hog) {
    detector.configuration = Configuration{.minDurationSeconds = 1};
    for (int i = 0; i < 100; ++i) after(30, busy);
    EXPECT_TRUE(hogs().empty());
}

TEST_F(Detectors, a_process_that_ends_is_forgotten_and_those_behind_it_are_not) {
    reportFrom(0);
    listed = {snapshotOf(pid, busy), snapshotOf(300, busy)};
    detector.observe(listed);
    bench.clock.advanceBy(seconds(5));
    detector.observe(std::span(listed).last(1));
    EXPECT_EQ(hogs(), std::vector{300});
    EXPECT_EQ(hog().activeSeconds, 5.0);
    bench.clock.advanceBy(seconds(5));
    detector.observe(listed);
    EXPECT_EQ(hogs(), (std::vector{300, pid}));
    EXPECT_EQ(detector.hogs->at(0).activeSeconds, 10.0);
    EXPECT_EQ(detector.hogs->at(1).activeSeconds, 0.0);
    EXPECT_EQ(detector.hogs->at(1).firstObserved, bench.clock.now());
}

}  // namespace
}  // namespace vtx
