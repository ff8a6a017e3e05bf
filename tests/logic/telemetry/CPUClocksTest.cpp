// SPDX-License-Identifier: MIT
// The clocks of a reading: the engine that measures them, and the monitor that joins them in.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/TaskScope.h"
#include "platform/simulated/Operations.h"
#include "support/Channels.h"
#include "support/TestBench.h"
#include "telemetry/CPUMonitor.h"

namespace vtx {
namespace {

using testing::Each;

constexpr auto noSample = "IOReport delta contained no CPU clock sample";

// An engine whose channels the test writes down: idle and two steps, at 600 and 1000 MHz.
struct Clocked {
    TestBench bench;
    std::shared_ptr<CPUClockMonitorEngine> engine;

    Clocked() {
        bench.mac.channels.script({coreChannel("PCPU0", {{"IDLE", 7}, {"V0", 5}, {"V1", 3}})});
        CoreLayout layout;
        layout.pCoreFrequencyStepsMHz = {600, 1000};
        engine = CPUClockMonitorEngine::make(layout);
    }
    void run(std::size_t state, std::int64_t residency) {
        bench.mac.channels.addResidency("PCPU0", state, residency);
    }
    [[nodiscard]] std::size_t emptySamples() const {
        return bench.log.count(LogLevel::debug, "CPUClockMonitor", noSample);
    }
};

TEST(CPUClockMonitorEngine, the_first_step_sets_the_baseline_and_each_next_covers_one_interval) {
    Clocked c;
    EXPECT_EQ(c.engine->nextSample(), std::nullopt);
    c.run(1, 10);
    EXPECT_EQ(c.engine->nextSample()->pCoreMHz, 600.0);
    c.run(2, 10);
    EXPECT_EQ(c.engine->nextSample()->pCoreMHz, 1000.0);
    EXPECT_EQ(c.emptySamples(), 0U);
}

TEST(CPUClockMonitorEngine, a_difference_without_any_clock_is_told_and_moves_the_baseline) {
    Clocked c;
    (void)c.engine->nextSample();
    c.run(0, 100);
    EXPECT_EQ(c.engine->nextSample(), std::nullopt);
    EXPECT_EQ(c.emptySamples(), 1U);
    c.bench.failures.failNext(operations::ioReportCreateSamplesDeltaNoList);
    EXPECT_EQ(c.engine->nextSample(), std::nullopt);
    EXPECT_EQ(c.emptySamples(), 2U);
}

TEST(CPUClockMonitorEngine, without_a_sample_the_baseline_stays) {
    Clocked c;
    (void)c.engine->nextSample();
    c.run(1, 10);
    c.bench.failures.failNext(operations::ioReportCreateSamples);
    EXPECT_EQ(c.engine->nextSample(), std::nullopt);
    c.run(2, 10);
    EXPECT_EQ(c.engine->nextSample()->pCoreMHz, 800.0);  // over both intervals
    EXPECT_EQ(c.emptySamples(), 0U);
}

TEST(CPUClockMonitorEngine, without_a_difference_the_baseline_moves_on_in_silence) {
    Clocked c;
    (void)c.engine->nextSample();
    c.run(1, 10);
    c.bench.failures.failNext(operations::ioReportCreateSamplesDelta);
    EXPECT_EQ(c.engine->nextSample(), std::nullopt);
    c.run(2, 10);
    EXPECT_EQ(c.engine->nextSample()->pCoreMHz, 1000.0);
    EXPECT_EQ(c.emptySamples(), 0U);
}

TEST(CPUClockMonitorEngine, holds_one_sample_and_its_subscription_and_nothing_after_its_end) {
    Clocked c;
    const auto& handles = c.bench.platform.instruments.handles;
    for (int i = 0; i < 4; ++i) (void)c.engine->nextSample();
    EXPECT_EQ(handles.outstanding(handles::ioReportSubscription), 1U);
    EXPECT_EQ(handles.outstanding(handles::ioReportDictionary), 2U);  // its channels, the baseline
    c.engine.reset();
    EXPECT_EQ(c.bench.platform.outstanding(), 0U);
}

TEST(CPUClockMonitorEngine, the_table_of_one_cluster_is_enough) {
    TestBench bench;
    bench.mac.channels.script({coreChannel("ECPU0", {{"IDLE", 7}, {"V0", 5}})});
    CoreLayout layout;
    layout.eCoreFrequencyStepsMHz = {400};
    const auto engine = CPUClockMonitorEngine::make(layout);
    ASSERT_TRUE(engine);
    (void)engine->nextSample();
    bench.mac.channels.addResidency("ECPU0", 1, 10);
    EXPECT_EQ(engine->nextSample()->eCoreMHz, 400.0);
}

TEST(CPUClockMonitorEngine, without_any_clock_table_the_library_is_not_even_opened) {
    TestBench bench;
    EXPECT_EQ(CPUClockMonitorEngine::make(CoreLayout{}), nullptr);
    EXPECT_EQ(bench.platform.totalCalls(), 0U);
}

// A monitor on a bench, and its refreshes played to the end.
struct Monitored {
    explicit Monitored(MacShape shape = MacShape::standard()) : bench(std::move(shape)) {}

    TestBench bench;
    std::optional<CPUMonitor> monitor{std::in_place, bench.ports(), bench.executors()};
    TaskScope tasks{bench.main};

    void refresh() {
        tasks.spawn([this](std::stop_token) { return monitor->refresh(); });
        bench.settle();
    }
    void refreshOverASecond() {
        refresh();
        bench.advance(seconds(1));
        refresh();
    }
    const CPUStats& stats() { return **monitor->latest; }
};

TEST(CPUMonitor, a_reading_carries_the_clocks_of_both_clusters_and_their_time) {
    Monitored m;
    m.bench.mac.processors.setLoadOf(CoreKind::performance, {.user = 1.0});
    m.bench.mac.processors.setLoadOf(CoreKind::efficiency, {.user = 0.25});
    m.refresh();
    m.bench.advance(seconds(1));
    m.tasks.spawn([&m](std::stop_token) { return m.monitor->refresh(); });
    m.bench.main.drain();
    m.bench.engine.runOne();  // the loads
    m.bench.clock.advanceBy(seconds(0.25));
    m.bench.settle();
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, 3204.0);
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, 1332.0);
    EXPECT_EQ(m.stats().timestamp, m.bench.clock.now());
    EXPECT_THAT(m.stats().pPerCore, Each(1.0));
}

TEST(CPUMonitor, clocks_come_and_go_while_loads_flow) {
    Monitored m;
    m.bench.mac.processors.setLoadOfAll({.user = 1.0});
    m.refreshOverASecond();
    EXPECT_TRUE(m.stats().pCoreCurrentFrequencyMHz);
    m.bench.mac.processors.setLoadOfAll({});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ(m.stats().timestamp, m.bench.clock.now());
    EXPECT_EQ(m.stats().totalUsage, 0.0);
}

TEST(CPUMonitor, a_cluster_that_idles_has_no_clock_beside_the_other_one) {
    Monitored m;
    m.bench.mac.processors.setLoadOf(CoreKind::performance, {.user = 1.0});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, 3204.0);
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, std::nullopt);
}

TEST(CPUMonitor, a_clock_that_was_told_once_is_remembered_for_as_long_as_it_lives) {
    Monitored m;
    m.bench.mac.processors.setLoadOfAll({});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().seenClocks, (SeenClocks{false, false}));
    m.bench.mac.processors.setLoadOf(CoreKind::performance, {.user = 1.0});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().seenClocks, (SeenClocks{true, false}));
    m.bench.mac.processors.setLoadOfAll({});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ(m.stats().seenClocks, (SeenClocks{true, false}));
    m.bench.mac.processors.setLoadOf(CoreKind::efficiency, {.user = 1.0});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().seenClocks, (SeenClocks{true, true}));
}

TEST(CPUMonitor, a_step_without_loads_publishes_nothing_but_moves_the_clocks_baseline) {
    Monitored m;
    m.bench.mac.processors.setLoadOfAll({.user = 1.0});
    m.refreshOverASecond();
    const auto before = *m.monitor->latest;
    m.bench.failures.failNext(operations::hostProcessorInfo);
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_EQ(*m.monitor->latest, before);
    m.bench.mac.processors.setLoadOfAll({.user = 0.25});
    m.bench.advance(seconds(1));
    m.refresh();
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, 1332.0);  // of the last second alone
    EXPECT_NEAR(m.stats().totalUsage, 0.625, 1e-9);         // of both
}

TEST(CPUMonitor, a_refresh_without_loads_still_ends_after_the_clocks) {
    Monitored m;
    m.bench.failures.failNext(operations::hostProcessorInfo);
    bool hasEnded = false;
    m.tasks.spawn([&](std::stop_token) -> Task<> {
        co_await m.monitor->refresh();
        hasEnded = true;
    });
    m.bench.main.drain();
    m.bench.engine.runOne();  // the loads
    m.bench.main.drain();
    EXPECT_FALSE(hasEnded);
    m.bench.settle();
    EXPECT_TRUE(hasEnded);
}

class NoClocks : public testing::TestWithParam<std::string_view> {};

TEST_P(NoClocks, leave_readings_flowing_without_them_for_good) {
    TestBench bench;
    bench.failures.failNext(GetParam());
    CPUMonitor monitor(bench.ports(), bench.executors());
    EXPECT_FALSE(bench.failures.hasUnused());
    bench.mac.processors.setLoadOfAll({.user = 1.0});
    TaskScope tasks(bench.main);
    for (int i = 0; i < 3; ++i) {
        tasks.spawn([&monitor](std::stop_token) { return monitor.refresh(); });
        bench.advance(seconds(1));
    }
    ASSERT_TRUE(monitor.latest->has_value());
    EXPECT_EQ((*monitor.latest)->pCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ((*monitor.latest)->totalUsage, 1.0);
    EXPECT_EQ(bench.platform.outstanding(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    sources, NoClocks,
    testing::Values("dlopen:/usr/lib/libIOReport.dylib", "dlsym:IOReportStateGetResidency",
                    operations::ioReportCopyChannels, operations::cfDictionaryCreateMutableCopy,
                    operations::ioReportCreateSubscription,
                    operations::ioReportCreateSubscriptionNoChannels, operations::serviceMatching));

TEST(CPUMonitor, a_third_cluster_and_tables_in_another_unit_change_nothing) {
    Monitored m(MacShape::threeClusters());
    m.bench.mac.processors.setLoadOfAll({.user = 1.0});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().layout.pCoreMaxMHz, 4512.0);
    EXPECT_EQ(m.stats().layout.eCoreMaxMHz, 2064.0);
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, 4512.0);
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, 2064.0);
}

TEST(CPUMonitor, a_machine_with_one_level_has_one_clock) {
    Monitored m(MacShape::singleLevel());
    m.bench.mac.processors.setLoadOfAll({.user = 1.0});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().layout.eCoreMaxMHz, std::nullopt);
    EXPECT_EQ(m.stats().pCoreCurrentFrequencyMHz, 3204.0);
    EXPECT_EQ(m.stats().eCoreCurrentFrequencyMHz, std::nullopt);
}

TEST(CPUMonitor, a_device_tree_with_holes_still_splits_the_loads_by_cluster) {
    MacShape shape = MacShape::standard(4, 2);
    shape.missingFromTree = {3};
    Monitored m(shape);
    m.bench.mac.processors.setLoadOf(CoreKind::performance, {.user = 0.5});
    m.refreshOverASecond();
    EXPECT_EQ(m.stats().layout.clusterMap.size(), 6U);
    EXPECT_EQ(m.stats().pPerCore.size(), 4U);
    EXPECT_THAT(m.stats().ePerCore, Each(0.0));
}

TEST(CPUMonitor, loads_and_clocks_are_asked_for_side_by_side) {
    Monitored m;
    m.tasks.spawn([&m](std::stop_token) { return m.monitor->refresh(); });
    m.bench.main.drain();
    EXPECT_TRUE(m.bench.engine.runOne());
    EXPECT_TRUE(m.bench.engine.runOne());
    EXPECT_FALSE(m.bench.engine.runOne());
    EXPECT_EQ(m.bench.platform.calls(operations::hostProcessorInfo), 1U);
    EXPECT_EQ(m.bench.platform.calls(operations::ioReportCreateSamples), 1U);
    m.bench.settle();
}

TEST(CPUMonitor, a_refresh_that_is_dropped_on_its_way_harms_and_holds_nothing) {
    Monitored m;
    m.refresh();
    {
        TaskScope dropped(m.bench.main);
        dropped.spawn([&m](std::stop_token) { return m.monitor->refresh(); });
        m.bench.main.drain();
    }
    m.monitor.reset();
    m.bench.settle();
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
}

TEST(CPUMonitor, nothing_is_held_once_it_is_gone) {
    Monitored m;
    for (int i = 0; i < 3; ++i) m.refreshOverASecond();
    m.monitor.reset();
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
}

}  // namespace
}  // namespace vtx
