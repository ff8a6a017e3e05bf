// SPDX-License-Identifier: MIT
#include "telemetry/CPUMonitor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/TaskScope.h"
#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

// A monitor on a bench, and its refreshes played to the end.
struct Monitored {
    explicit Monitored(MacShape shape = MacShape::standard()) : bench(std::move(shape)) {}

    TestBench bench;
    CPUMonitor monitor{bench.ports(), bench.executors()};
    TaskScope tasks{bench.main};

    void refresh() {
        tasks.spawn([this](std::stop_token) { return monitor.refresh(); });
        bench.settle();
    }
    // A baseline, a second at the loads that were set, and the reading of it.
    void refreshOverASecond() {
        refresh();
        bench.advance(seconds(1));
        refresh();
    }
};

TEST(CPUMonitor, the_first_refresh_sets_the_baseline_and_the_second_publishes) {
    Monitored m;
    m.refresh();
    EXPECT_EQ(*m.monitor.latest, std::nullopt);
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_TRUE(m.monitor.latest->has_value());
}

TEST(CPUMonitor, loads_of_cores_and_clusters_are_those_of_the_machine) {
    Monitored m;
    m.bench.mac.processors.setLoadOf(CoreKind::performance, {.user = 0.5, .system = 0.25});
    m.bench.mac.processors.setLoadOf(CoreKind::efficiency, {.nice = 0.25});
    m.refreshOverASecond();
    const CPUStats& stats = **m.monitor.latest;
    EXPECT_THAT(stats.pPerCore, Each(0.75));
    EXPECT_THAT(stats.ePerCore, Each(0.25));
    EXPECT_DOUBLE_EQ(stats.pCoreUsage, 0.75);
    EXPECT_DOUBLE_EQ(stats.eCoreUsage, 0.25);
    EXPECT_DOUBLE_EQ(stats.totalUsage, (8 * 0.75 + 4 * 0.25) / 12);
    EXPECT_EQ(stats.timestamp, m.bench.clock.now());
}

TEST(CPUMonitor, without_a_source_of_clocks_readings_flow_with_both_frequencies_absent) {
    Monitored m(MacShape::withoutLevels());
    m.refreshOverASecond();
    EXPECT_EQ((*m.monitor.latest)->pCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ((*m.monitor.latest)->eCoreCurrentFrequencyMHz, std::nullopt);
}

TEST(CPUMonitor, counters_that_wrap_between_two_samples_change_nothing) {
    Monitored m;
    m.bench.mac.processors.setTicks({4294967290, 4294967290, 4294967290, 4294967290});
    m.bench.mac.processors.setLoadOfAll({.user = 0.4});
    m.refreshOverASecond();
    EXPECT_THAT((*m.monitor.latest)->perCoreUsage, Each(testing::DoubleEq(0.4)));
}

TEST(CPUMonitor, a_machine_without_levels_has_performance_cores_only) {
    Monitored m(MacShape::withoutLevels(6));
    ASSERT_TRUE(m.monitor.layout());
    m.refreshOverASecond();
    EXPECT_EQ((*m.monitor.latest)->pPerCore.size(), 6U);
    EXPECT_THAT((*m.monitor.latest)->ePerCore, IsEmpty());
    EXPECT_EQ((*m.monitor.latest)->eCoreUsage, 0.0);
}

TEST(CPUMonitor, it_says_once_what_it_found) {
    const Monitored m;
    EXPECT_TRUE(m.bench.log.contains(LogLevel::info, "CPUMonitor",
                                     "CPUMonitor ready — 8 P-cores, 4 E-cores"));
}

TEST(CPUMonitor, without_a_layout_it_is_disabled_for_good) {
    TestBench bench;
    bench.failures.failAlways("sysctlbyname:hw.nperflevels");
    bench.failures.failAlways("sysctlbyname:hw.logicalcpu");
    CPUMonitor monitor(bench.ports(), bench.executors());
    TaskScope tasks(bench.main);
    tasks.spawn([&](std::stop_token) { return monitor.refresh(); });
    bench.settle();
    EXPECT_EQ(monitor.layout(), std::nullopt);
    EXPECT_EQ(*monitor.latest, std::nullopt);
    EXPECT_EQ(bench.platform.calls(operations::hostProcessorInfo), 0U);
    EXPECT_TRUE(bench.log.contains(
        LogLevel::error, "CPUMonitor",
        "CPUMonitor disabled — could not detect core layout (non-Apple-Silicon?)"));
}

TEST(CPUMonitor, a_failed_read_keeps_the_reading_and_the_baseline) {
    Monitored m;
    m.bench.mac.processors.setLoadOfAll({.user = 0.2});
    m.refreshOverASecond();
    const auto before = *m.monitor.latest;
    m.bench.failures.failNext(operations::hostProcessorInfo, 1, 5);
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_EQ(*m.monitor.latest, before);
    EXPECT_TRUE(
        m.bench.log.contains(LogLevel::error, "CPUMonitor", "host_processor_info failed: kr=5"));
    m.bench.mac.processors.setLoadOfAll({.user = 0.6});
    m.bench.advance(seconds(1));
    m.refresh();  // over both seconds, since the baseline stayed
    EXPECT_NEAR((*m.monitor.latest)->totalUsage, 0.4, 1e-9);
}

TEST(CPUMonitor, a_null_array_is_a_failed_read) {
    Monitored m;
    m.bench.failures.failNext(operations::hostProcessorInfoNull);
    m.refresh();
    EXPECT_TRUE(m.bench.log.contains("host_processor_info failed: kr=0"));
}

class ImplausibleCounts : public testing::TestWithParam<std::string_view> {};

TEST_P(ImplausibleCounts, give_no_sample_and_still_release_the_kernels_array) {
    Monitored m;
    m.refreshOverASecond();
    const auto before = *m.monitor.latest;
    m.bench.failures.failNext(GetParam());
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_EQ(*m.monitor.latest, before);
    EXPECT_TRUE(m.bench.log.contains("host_processor_info returned implausible counts: cpus="));
    EXPECT_EQ(m.bench.platform.instruments.handles.outstanding(handles::kernelArray), 0U);
    EXPECT_EQ(m.bench.platform.calls(operations::vmDeallocate), 3U);
}

INSTANTIATE_TEST_SUITE_P(answers, ImplausibleCounts,
                         testing::Values(operations::hostProcessorInfoFewEntries,
                                         operations::hostProcessorInfoZeroProcessors));

TEST(CPUMonitor, surplus_entries_are_accepted) {
    Monitored m;
    m.refresh();
    m.bench.failures.failNext(operations::hostProcessorInfoSurplusEntries);
    m.bench.mac.processors.setLoadOfAll({.user = 0.3});
    m.bench.advance(seconds(1));
    m.refresh();
    ASSERT_TRUE(m.monitor.latest->has_value());
    EXPECT_THAT((*m.monitor.latest)->perCoreUsage, Each(testing::DoubleEq(0.3)));
}

TEST(CPUMonitor, processors_that_went_away_publish_nothing_until_they_are_back) {
    Monitored m;
    m.bench.mac.processors.setLoadOfAll({.user = 0.5});
    m.refreshOverASecond();
    const auto before = *m.monitor.latest;
    m.bench.mac.processors.setProcessorCount(10);
    for (int i = 0; i < 3; ++i) {
        m.bench.advance(seconds(1));
        m.refresh();
    }
    EXPECT_EQ(*m.monitor.latest, before);
    m.bench.mac.processors.setProcessorCount(12);
    m.bench.advance(seconds(1));
    m.refresh();  // a new baseline: the lengths differ once more
    EXPECT_EQ(*m.monitor.latest, before);
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_NE(*m.monitor.latest, before);
    EXPECT_NEAR((*m.monitor.latest)->totalUsage, 0.5, 1e-9);
}

TEST(CPUMonitor, every_array_of_the_kernel_is_given_back) {
    Monitored m;
    for (int i = 0; i < 5; ++i) m.refresh();
    EXPECT_EQ(m.bench.platform.calls(operations::hostProcessorInfo), 5U);
    EXPECT_EQ(m.bench.platform.instruments.handles.outstanding(handles::kernelArray), 0U);
}

TEST(CPUMonitor, a_refresh_publishes_on_the_main_executor_after_the_engine_is_done) {
    Monitored m;
    m.refresh();
    m.bench.advance(seconds(1));
    m.tasks.spawn([&](std::stop_token) { return m.monitor.refresh(); });
    m.bench.main.drain();
    EXPECT_EQ(*m.monitor.latest, std::nullopt);
    m.bench.engine.drain();
    EXPECT_EQ(*m.monitor.latest, std::nullopt);
    m.bench.main.drain();
    EXPECT_TRUE(m.monitor.latest->has_value());
}

TEST(CPUMonitor, a_published_reading_tells_observers_once) {
    Monitored m;
    int changes = 0;
    const auto token = m.monitor.objectWillChange.subscribe([&] { ++changes; });
    m.refreshOverASecond();
    EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace vtx
