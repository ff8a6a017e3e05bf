// SPDX-License-Identifier: MIT
// How sampling the processes joins the pass.
#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

struct Steps : CoordinatorBench {
    [[nodiscard]] std::size_t walks() const { return platform.calls(operations::kernProcAllSize); }
    [[nodiscard]] std::size_t rests() const { return platform.calls(operations::processesLetGo); }
    void enableHogDetector() {
        change([](auto& p) { p.hogDetectorEnabled = true; });
    }
};

TEST(ProcessStep, the_first_active_pass_samples_and_then_every_five_seconds) {
    Steps b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.walks(), 1U);
    EXPECT_FALSE(b.coordinator.processes.processes->empty());
    b.advance(seconds(4));
    EXPECT_EQ(b.walks(), 1U);
    b.advance(seconds(1));
    EXPECT_EQ(b.walks(), 2U);
    b.advance(seconds(60));
    EXPECT_EQ(b.walks(), 14U);
}

TEST(ProcessStep, five_seconds_are_enough_and_less_are_not) {
    Steps b;
    b.change([](auto& p) { p.refreshIntervalSeconds = 0.7; });
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    b.advance(seconds(4.9));  // seven passes
    EXPECT_EQ(b.walks(), 1U);
    b.advance(seconds(0.7));
    EXPECT_EQ(b.walks(), 2U);
}

TEST(ProcessStep, a_clock_that_is_set_changes_nothing_of_the_pace) {
    Steps b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    for (const int hours : {-2, 0, 48, -1000}) {
        b.clock.setWallClock(b.clock.now() + std::chrono::hours(hours));
        const std::size_t before = b.walks();
        b.advance(seconds(4));
        EXPECT_EQ(b.walks(), before) << hours;
        b.advance(seconds(1));
        EXPECT_EQ(b.walks(), before + 1) << hours;
    }
}

TEST(ProcessStep, no_idle_pass_samples_processes) {
    for (const auto mode : {PollingMode::background, PollingMode::batterySaver}) {
        Steps b;
        b.coordinator.setPollingMode(mode);
        b.coordinator.start();
        b.advance(seconds(30));
        EXPECT_EQ(b.walks(), 0U);
        EXPECT_EQ(*b.coordinator.processes.lastRefresh, std::nullopt);
    }
}

TEST(ProcessStep, compact_mode_alone_does_not_sample_processes) {
    Steps b;
    b.change([](auto& p) { p.menuBarCompact = true; });
    b.coordinator.start();
    b.advance(seconds(30));
    EXPECT_EQ(b.walks(), 0U);
}

TEST(ProcessStep, an_idle_pass_samples_processes_for_the_detector) {
    Steps b;
    b.enableHogDetector();
    b.coordinator.start();
    b.advance(seconds(9));
    EXPECT_EQ(b.walks(), 2U);
}

TEST(ProcessStep, opening_a_surface_within_five_seconds_samples_no_second_time) {
    Steps b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    b.coordinator.setPollingMode(PollingMode::background);
    b.advance(seconds(2));
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.walks(), 1U);
    b.advance(seconds(3));
    EXPECT_EQ(b.walks(), 2U);
}

TEST(ProcessStep, what_is_kept_for_samples_goes_a_while_after_the_last_need_and_once) {
    Steps b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    b.coordinator.setPollingMode(PollingMode::background);
    b.advance(seconds(14));
    EXPECT_EQ(b.rests(), 0U);
    b.advance(seconds(2));
    EXPECT_EQ(b.rests(), 1U);
    b.advance(seconds(120));
    EXPECT_EQ(b.rests(), 1U);
    EXPECT_FALSE(b.coordinator.processes.processes->empty());
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.walks(), 2U);
    EXPECT_EQ(b.rests(), 1U);
}

TEST(ProcessStep, nothing_goes_while_the_detector_needs_it_or_before_it_was_there) {
    Steps b;
    b.coordinator.start();
    b.advance(seconds(60));
    EXPECT_EQ(b.rests(), 0U);
    b.enableHogDetector();
    b.advance(seconds(60));
    EXPECT_GT(b.walks(), 0U);
    EXPECT_EQ(b.rests(), 0U);
}

TEST(ProcessStep, comes_after_the_samplers_that_run_side_by_side) {
    Steps b;
    std::vector<std::string> told;
    const auto cpu =
        b.coordinator.cpu.objectWillChange.subscribe([&] { told.emplace_back("cpu"); });
    const auto gpu =
        b.coordinator.gpu.objectWillChange.subscribe([&] { told.emplace_back("gpu"); });
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();  // the processor has a baseline now
    b.advance(seconds(4));
    told.clear();
    const auto processes = b.coordinator.processes.processes.subscribe(
        [&](const auto&) { told.emplace_back("processes"); });
    told.clear();
    b.advance(seconds(1));
    EXPECT_EQ(told.back(), "processes");
    EXPECT_EQ(std::ranges::count(told, "processes"), 1);
    EXPECT_EQ(told.size(), 3U);
}

TEST(ProcessStep, passes_that_overlap_sample_once) {
    Steps b;
    b.coordinator.setPollingMode(PollingMode::active);
    TaskScope tasks(b.main);
    tasks.spawn([&b](const std::stop_token&) { return b.coordinator.refreshAll(); });
    b.settle();
    EXPECT_EQ(b.walks(), 1U);
}

TEST(ProcessStep, scores_the_energy_of_what_was_listed_and_keeps_the_scores_while_idle) {
    Steps b;
    b.mac.processes.change(4102, [](auto& p) { p.load = 0.5; });
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.coordinator.energyByPID->size(), b.coordinator.processes.processes->size());
    b.advance(seconds(5));
    EXPECT_NEAR(b.coordinator.energyByPID->at(4102).score, 50.0, 0.1);
    b.coordinator.setPollingMode(PollingMode::background);
    b.advance(seconds(60));
    EXPECT_NEAR(b.coordinator.energyByPID->at(4102).score, 50.0, 0.1);
}

TEST(ProcessStep, the_detector_observes_after_the_energy_was_scored) {
    Steps b;
    b.enableHogDetector();
    std::vector<std::string> told;
    const auto energy =
        b.coordinator.energyByPID.subscribe([&](const auto&) { told.emplace_back("energy"); });
    const auto hogs =
        b.coordinator.hogDetector.hogs.subscribe([&](const auto&) { told.emplace_back("hogs"); });
    told.clear();
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(told, (std::vector<std::string>{"energy", "hogs"}));
}

TEST(ProcessStep, a_disabled_detector_costs_no_question_and_tells_nothing) {
    Steps b;
    int told = -1;
    const auto hogs = b.coordinator.hogDetector.hogs.subscribe([&](const auto&) { ++told; });
    b.coordinator.setPollingMode(PollingMode::active);
    b.advance(seconds(60));
    EXPECT_EQ(told, 0);
    EXPECT_EQ(b.platform.calls(operations::frontmostApplication), 0U);
}

TEST(ProcessStep, preferences_reach_the_detector_at_start_and_at_each_change) {
    Steps b;
    const auto& detector = b.coordinator.hogDetector;
    EXPECT_FALSE(*detector.isEnabled);
    EXPECT_EQ(*detector.configuration, BackgroundHogDetector::Configuration{});
    b.change([](auto& p) {
        p.hogDetectorEnabled = true;
        p.hogCPUThreshold = 0.4;
        p.hogMinDurationSeconds = 60;
    });
    EXPECT_TRUE(*detector.isEnabled);
    EXPECT_EQ(*detector.configuration, (BackgroundHogDetector::Configuration{0.4, 60.0, 1800.0}));
}

TEST(ProcessStep, a_process_that_is_busy_in_the_background_is_found_with_every_surface_closed) {
    Steps b;
    b.enableHogDetector();
    b.mac.processes.change(3874, [](auto& p) { p.load = 2.0; });
    b.coordinator.start();
    b.advance(seconds(320));
    ASSERT_EQ(b.coordinator.hogDetector.hogs->size(), 1U);
    const HogReport& hog = b.coordinator.hogDetector.hogs->front();
    EXPECT_EQ(hog.name, "Xcode");
    EXPECT_NEAR(hog.averageCPU, 2.0, 0.01);
}

TEST(ProcessStep, a_change_of_the_list_is_a_change_of_the_coordinator) {
    Steps b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    TaskScope tasks(b.main);
    tasks.spawn([&b](const std::stop_token&) { return b.coordinator.processes.refresh(); });
    b.settle();
    EXPECT_EQ(told, 1);  // at once for the first, within the throttle for the rest
    b.advance(seconds(0.05));
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace vtx
