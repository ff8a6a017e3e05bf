// SPDX-License-Identifier: MIT
#include "processes/AppEnergyService.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/Snapshots.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

/// A machine on which two processes run, idle and without having used anything.
struct AppEnergyServices : testing::Test {
    AppEnergyServices() {
        bench.mac.processes.removeAll();
        for (const auto& process : listed) {
            SimulatedProcess running;
            running.pid = process.pid;
            bench.mac.processes.add(running);
        }
    }

    TestBench bench;
    AppEnergyService service{bench.platform.processTable, bench.clock};
    std::vector<ProcessSnapshot> listed{snapshotOf(200), snapshotOf(300)};

    void change(const std::function<void(SimulatedProcess&)>& edit) {
        bench.mac.processes.change(200, edit);
    }
    /// What the first process costs, after that many seconds.
    AppEnergyImpact impactAfter(double span) {
        bench.clock.advanceBy(seconds(span));
        return service.compute(listed).at(200);
    }
};

constexpr AppEnergyImpact nothing{};

TEST_F(AppEnergyServices, the_first_call_knows_no_rates) {
    change([](auto& p) { p.cpuNanoseconds = 9'000'000'000; });
    EXPECT_EQ(impactAfter(5), nothing);
}

TEST_F(AppEnergyServices, a_core_busy_for_the_whole_interval_is_a_hundred_percent) {
    (void)service.compute(listed);
    change([](auto& p) { p.load = 1.0; });
    const auto impact = impactAfter(5);
    EXPECT_NEAR(impact.cpuComponent, 100.0, 0.001);
    EXPECT_NEAR(impact.score, 100.0, 0.001);
    EXPECT_EQ(impact.wakeupsPerSecond, 0.0);
}

TEST_F(AppEnergyServices, wake_ups_count_by_the_second_and_by_their_weights) {
    (void)service.compute(listed);
    change([](auto& p) {
        p.pkgIdleWakeups = 500;
        p.interruptWakeups = 1000;
    });
    const auto impact = impactAfter(5);
    EXPECT_DOUBLE_EQ(impact.wakeupsPerSecond, 100.0);
    EXPECT_DOUBLE_EQ(impact.score, 100.0 * 0.2 + 200.0 * 0.05);
    EXPECT_EQ(impact.cpuComponent, 0.0);
}

TEST_F(AppEnergyServices, billed_energy_adds_the_same_however_much_it_is) {
    (void)service.compute(listed);
    EXPECT_EQ(impactAfter(5), nothing);
    for (const std::uint64_t billed : {1ULL, 1'000'000ULL, 1'000'000ULL}) {
        change([billed](auto& p) { p.billedEnergy = billed; });
        const auto impact = impactAfter(5);
        EXPECT_EQ(impact.gpuComponent, 5.0);
        EXPECT_EQ(impact.score, 5.0);
    }
}

TEST_F(AppEnergyServices, billed_energy_counts_on_the_first_call_too) {
    change([](auto& p) { p.billedEnergy = 7; });
    EXPECT_EQ(impactAfter(0).score, 5.0);
}

TEST_F(AppEnergyServices, two_calls_at_one_moment_give_no_rates) {
    (void)service.compute(listed);
    change([](auto& p) {
        p.cpuNanoseconds = 1'000'000'000;
        p.pkgIdleWakeups = p.interruptWakeups = 50;
    });
    EXPECT_EQ(impactAfter(0), nothing);
}

TEST_F(AppEnergyServices, a_clock_that_was_set_back_gives_no_rates_once) {
    (void)service.compute(listed);
    change([](auto& p) { p.load = 0.5; });
    bench.clock.setWallClock(bench.clock.now() - std::chrono::hours(1));
    EXPECT_EQ(impactAfter(5), nothing);
    EXPECT_NEAR(impactAfter(5).cpuComponent, 50.0, 0.001);
}

TEST_F(AppEnergyServices, a_clock_that_is_set_within_an_interval_changes_no_rate) {
    change([](auto& p) { p.load = 0.5; });
    for (const auto by : {std::chrono::milliseconds(-4990), std::chrono::milliseconds(7'200'000)}) {
        (void)service.compute(listed);
        bench.clock.setWallClock(bench.clock.now() + by);
        EXPECT_NEAR(impactAfter(5).cpuComponent, 50.0, 0.001) << by.count();
    }
}

TEST_F(AppEnergyServices, of_a_counter_that_fell_only_that_difference_is_nothing) {
    change([](auto& p) {
        p.pkgIdleWakeups = 1000;
        p.interruptWakeups = 100;
    });
    (void)service.compute(listed);
    change([](auto& p) {
        p.pkgIdleWakeups = 3;
        p.interruptWakeups = 200;
        p.load = 1.0;
    });
    const auto impact = impactAfter(10);
    EXPECT_EQ(impact.wakeupsPerSecond, 0.0);
    EXPECT_NEAR(impact.cpuComponent, 100.0, 0.001);
    EXPECT_NEAR(impact.score, 100.0 + 10 * 0.05, 0.001);
}

TEST_F(AppEnergyServices, processor_time_that_fell_is_nothing) {
    change([](auto& p) { p.cpuNanoseconds = 9'000'000'000; });
    (void)service.compute(listed);
    change([](auto& p) { p.cpuNanoseconds = 1'000; });
    EXPECT_EQ(impactAfter(5), nothing);
}

TEST_F(AppEnergyServices, a_process_that_refuses_is_left_out_and_loses_its_baseline) {
    (void)service.compute(listed);
    change([](auto& p) { p.refusesRusage = true; });
    bench.clock.advanceBy(seconds(5));
    const auto impacts = service.compute(listed);
    EXPECT_FALSE(impacts.contains(200));
    EXPECT_TRUE(impacts.contains(300));
    change([](auto& p) {
        p.refusesRusage = false;
        p.cpuNanoseconds = 4'000'000'000;
    });
    EXPECT_EQ(impactAfter(5), nothing);
    change([](auto& p) { p.load = 1.0; });
    EXPECT_NEAR(impactAfter(5).cpuComponent, 100.0, 0.001);
}

TEST_F(AppEnergyServices, a_process_that_is_not_listed_loses_its_baseline) {
    (void)service.compute(listed);
    bench.clock.advanceBy(seconds(5));
    (void)service.compute(std::span(listed).last(1));
    change([](auto& p) { p.cpuNanoseconds = 4'000'000'000; });
    EXPECT_EQ(impactAfter(5), nothing);
}

TEST_F(AppEnergyServices, an_empty_list_moves_the_time_on) {
    (void)service.compute(listed);
    bench.clock.advanceBy(seconds(5));
    EXPECT_TRUE(service.compute({}).empty());
    (void)service.compute(listed);
    change([](auto& p) { p.load = 1.0; });
    EXPECT_NEAR(impactAfter(5).cpuComponent, 100.0, 0.001);
}

TEST_F(AppEnergyServices, nothing_naps) {
    for (const auto& [pid, impact] : service.compute(listed)) EXPECT_FALSE(impact.isInAppNap);
}

TEST_F(AppEnergyServices, asks_once_for_each_process) {
    (void)service.compute(listed);
    EXPECT_EQ(bench.platform.calls(operations::procPidRusage), 2U);
}

}  // namespace
}  // namespace vtx
