// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcesses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "support/TestBench.h"

namespace vtx {
namespace {

std::uint64_t usedBy(const std::vector<SimulatedProcess>& all) {
    std::uint64_t sum = 0;
    for (const auto& process : all) sum += process.cpuNanoseconds;
    return sum;
}

TEST(SimulatedProcesses, a_new_machine_runs_something_and_all_of_it_idles) {
    TestBench bench;
    const auto before = bench.mac.processes.all();
    EXPECT_GT(before.size(), 15U);
    bench.clock.advanceBy(seconds(60));
    EXPECT_EQ(usedBy(bench.mac.processes.all()), usedBy(before));
    std::set<std::int32_t> pids;
    for (const auto& process : before) pids.insert(process.pid);
    EXPECT_EQ(pids.size(), before.size());
}

TEST(SimulatedProcesses, living_ones_use_what_the_cores_do) {
    TestBench bench;
    bench.mac.live(7);
    const auto coreTicks = [&bench] {
        std::uint64_t sum = 0;
        for (const auto& core : bench.mac.processors.ticks()) sum += core[0] + core[1] + core[3];
        return sum;
    };
    const auto ticks = coreTicks();
    const auto before = usedBy(bench.mac.processes.all());
    for (int i = 0; i < 20; ++i) {
        bench.clock.advanceBy(seconds(5));
        (void)bench.mac.processes.all();
    }
    constexpr double tick = 0.01;
    const double cores = static_cast<double>(coreTicks() - ticks) * tick;
    EXPECT_GT(cores, 1.0);
    // Of each core's three states the part of a tick that has begun is not told.
    const double untold = 3 * tick * static_cast<double>(bench.mac.processors.ticks().size());
    EXPECT_NEAR(static_cast<double>(usedBy(bench.mac.processes.all()) - before) / 1e9, cores,
                untold);
}

TEST(SimulatedProcesses, living_ones_change_places) {
    TestBench bench;
    bench.mac.live(3);
    auto before = bench.mac.processes.all();
    std::set<std::string> busiest;
    for (int i = 0; i < 40; ++i) {
        bench.clock.advanceBy(seconds(15));
        const auto now = bench.mac.processes.all();
        std::size_t most = 0;
        for (std::size_t k = 0; k < now.size(); ++k)
            if (now[k].cpuNanoseconds - before[k].cpuNanoseconds >
                now[most].cpuNanoseconds - before[most].cpuNanoseconds)
                most = k;
        busiest.insert(now[most].name);
        before = now;
    }
    EXPECT_GT(busiest.size(), 2U);
}

TEST(SimulatedProcesses, nothing_runs_while_the_machine_sleeps) {
    TestBench bench;
    bench.mac.live(7);
    bench.mac.processes.change(4102, [](auto& process) { process.load = 1.0; });
    const auto before = usedBy(bench.mac.processes.all());
    bench.sleepMachine(seconds(600));
    EXPECT_EQ(usedBy(bench.mac.processes.all()), before);
}

TEST(SimulatedProcesses, the_table_is_in_the_platforms_units) {
    TestBench bench;
    bench.mac.processes.change(4102, [](auto& p) { p.cpuNanoseconds = 1'000'000'000; });
    auto& table = bench.platform.processTable;
    std::vector<KinfoProc> records(100);
    std::size_t bytes = 0;
    EXPECT_EQ(table.kernProcAll(records, bytes), 0);
    EXPECT_EQ(bytes, bench.mac.processes.count() * kinfoProcBytes);
    const auto task = table.details(4102).taskInfo;
    EXPECT_EQ(task.totalUser + task.totalSystem, 24'000'000U);
    EXPECT_EQ(table.details(77).taskInfoBytes, 0);
}

}  // namespace
}  // namespace vtx
