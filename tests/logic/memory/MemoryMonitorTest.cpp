// SPDX-License-Identifier: MIT
#include "memory/MemoryMonitor.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "base/TaskScope.h"
#include "platform/MemoryPressureSource.h"
#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;

constexpr auto category = "MemoryMonitor";

// A monitor on a bench, and its refreshes played to the end.
struct Monitored {
    TestBench bench;
    std::optional<MemoryMonitor> monitor;
    TaskScope tasks{bench.main};

    Monitored() { make(); }
    void make() { monitor.emplace(bench.ports(), bench.executors()); }
    void refresh() {
        tasks.spawn([this](std::stop_token) { return monitor->refresh(); });
        bench.settle();
    }
    void tell(std::uint32_t data) {
        bench.mac.memory.setPressure(data);
        bench.settle();
    }
    [[nodiscard]] const std::optional<MemoryStats>& latest() const { return *monitor->latest; }
};

TEST(MemoryMonitor, the_first_refresh_publishes_what_the_kernel_counts) {
    Monitored m;
    m.bench.mac.memory.setPages({.free = 100,
                                 .active = 300,
                                 .inactive = 70,
                                 .wired = 50,
                                 .speculative = 20,
                                 .compressor = 10});
    m.bench.mac.memory.setSwap(4096, 1024);
    EXPECT_EQ(m.latest(), std::nullopt);
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->totalBytes, std::uint64_t{16} << 30);
    EXPECT_EQ(m.latest()->usedBytes, 5'898'240U);
    EXPECT_EQ(m.latest()->freeBytes, 1'966'080U);
    EXPECT_EQ(m.latest()->inactiveBytes, 70U * 16'384);
    EXPECT_EQ(m.latest()->swapTotalBytes, 4096U);
    EXPECT_EQ(m.latest()->swapUsedBytes, 1024U);
    EXPECT_EQ(m.latest()->timestamp, m.bench.clock.now());
}

TEST(MemoryMonitor, a_refresh_asks_the_kernel_twice_and_nothing_else) {
    Monitored m;
    m.bench.platform.resetCalls();
    m.refresh();
    EXPECT_EQ(m.bench.platform.instruments.counter.all(),
              (CallCounter::Counts{{"host_statistics64", 1}, {"sysctlbyname:vm.swapusage", 1}}));
}

TEST(MemoryMonitor, a_failing_swap_read_still_gives_a_reading_and_is_said_each_time) {
    Monitored m;
    m.bench.mac.memory.setSwap(4096, 1024);
    m.bench.failures.failNext("sysctlbyname:vm.swapusage", 2, EPERM);
    m.refresh();
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->swapTotalBytes, 0U);
    EXPECT_EQ(m.latest()->swapUsedBytes, 0U);
    EXPECT_EQ(m.bench.log.count(LogLevel::error, category, "sysctl vm.swapusage failed: errno=1"),
              2U);
}

TEST(MemoryMonitor, failing_statistics_leave_the_last_reading_with_its_time) {
    Monitored m;
    m.refresh();
    const auto before = m.latest();
    m.bench.advance(seconds(1));
    m.bench.failures.failNext(operations::hostStatistics64, 1, 46);
    m.refresh();
    EXPECT_EQ(m.latest(), before);
    EXPECT_TRUE(m.bench.log.contains(LogLevel::error, category, "host_statistics64 failed: kr=46"));
    m.refresh();
    EXPECT_EQ(m.latest()->timestamp, m.bench.clock.now());
}

TEST(MemoryMonitor, a_total_that_cannot_be_read_is_zero) {
    Monitored m;
    m.bench.failures.failNext("sysctlbyname:hw.memsize");
    m.make();
    m.refresh();
    ASSERT_TRUE(m.latest());
    EXPECT_EQ(m.latest()->totalBytes, 0U);
    EXPECT_EQ(m.latest()->usedFraction(), 0.0);
}

TEST(MemoryMonitor, a_page_size_that_cannot_be_read_or_is_zero_is_that_of_the_usual_processors) {
    for (const auto operation : {operations::hostPageSize, operations::hostPageSizeZero}) {
        TestBench bench;
        bench.failures.failNext(operation);
        EXPECT_EQ(MemoryMonitorEngine(bench.ports()).pageSize(), 16'384U) << operation;
    }
}

TEST(MemoryMonitor, an_event_with_both_bits_is_critical) {
    Monitored m;
    m.tell(memoryPressureWarn | memoryPressureCritical);
    EXPECT_EQ(*m.monitor->pressure, Pressure::critical);
}

TEST(MemoryMonitor, each_combination_of_bits_has_its_level) {
    for (std::uint32_t data = 1; data < 8; ++data) {
        Monitored m;
        m.tell(data);
        const auto expected = data >= 4   ? Pressure::critical
                              : data >= 2 ? Pressure::warning
                                          : Pressure::normal;
        EXPECT_EQ(*m.monitor->pressure, expected) << data;
    }
}

TEST(MemoryMonitor, an_event_with_the_normal_bit_alone_is_normal_again) {
    Monitored m;
    m.tell(memoryPressureWarn);
    EXPECT_EQ(*m.monitor->pressure, Pressure::warning);
    m.tell(memoryPressureNormal);
    EXPECT_EQ(*m.monitor->pressure, Pressure::normal);
}

TEST(MemoryMonitor, the_level_is_normal_until_the_kernel_tells_another_one) {
    Monitored m;
    m.refresh();
    EXPECT_EQ(*m.monitor->pressure, Pressure::normal);
    EXPECT_EQ(m.latest()->pressure, Pressure::normal);
}

TEST(MemoryMonitor, an_event_reaches_the_main_executor_and_needs_no_refresh) {
    Monitored m;
    m.bench.mac.memory.setPressure(memoryPressureWarn);
    EXPECT_EQ(*m.monitor->pressure, Pressure::normal);
    m.bench.main.drain();
    EXPECT_EQ(*m.monitor->pressure, Pressure::warning);
    EXPECT_EQ(m.latest(), std::nullopt);
}

TEST(MemoryMonitor, a_reading_copies_the_level_at_which_its_refresh_began) {
    Monitored m;
    m.tasks.spawn([&m](std::stop_token) { return m.monitor->refresh(); });
    m.bench.main.drain();
    m.bench.mac.memory.setPressure(memoryPressureCritical);
    m.bench.settle();
    EXPECT_EQ(*m.monitor->pressure, Pressure::critical);
    EXPECT_EQ(m.latest()->pressure, Pressure::normal);
    m.refresh();
    EXPECT_EQ(m.latest()->pressure, Pressure::critical);
}

TEST(MemoryMonitor, an_event_after_the_monitor_has_gone_does_nothing) {
    Monitored m;
    m.bench.mac.memory.setPressure(memoryPressureWarn);  // is under way
    m.monitor.reset();
    m.tell(memoryPressureCritical);
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
    EXPECT_EQ(m.bench.platform.calls(operations::memoryPressureCancel), 1U);
}

TEST(MemoryMonitor, without_a_source_of_events_it_samples_all_the_same) {
    Monitored m;
    m.monitor.reset();
    m.bench.failures.failNext(operations::memoryPressureCreate);
    m.make();
    m.refresh();
    EXPECT_TRUE(m.latest());
    m.tell(memoryPressureCritical);
    EXPECT_EQ(*m.monitor->pressure, Pressure::normal);
}

TEST(MemoryMonitor, between_events_nothing_waits) {
    Monitored m;
    m.refresh();
    EXPECT_TRUE(m.bench.clock.pending().empty());
}

}  // namespace
}  // namespace vtx
