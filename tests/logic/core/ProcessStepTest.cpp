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
    const auto cpu = b.coordinator.cpu.objectWillChange.subscribe([&] { told.push_back("cpu"); });
    const auto gpu = b.coordinator.gpu.objectWillChange.subscribe([&] { told.push_back("gpu"); });
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
    tasks.spawn([&b](std::stop_token) { return b.coordinator.refreshAll(); });
    b.settle();
    EXPECT_EQ(b.walks(), 1U);
}

TEST(ProcessStep, a_change_of_the_list_is_a_change_of_the_coordinator) {
    Steps b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    TaskScope tasks(b.main);
    tasks.spawn([&b](std::stop_token) { return b.coordinator.processes.refresh(); });
    b.settle();
    EXPECT_EQ(told, 1);  // at once for the first, within the throttle for the rest
    b.advance(seconds(0.05));
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace vtx
