// SPDX-License-Identifier: MIT
// What the coordinator makes of a pass: histories, their export, and the critical metric.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

/// A coordinator whose loop runs with an open surface.
class ActiveBench : public CoordinatorBench {
public:
    ActiveBench() {
        coordinator.setPollingMode(PollingMode::active);
        settle();
    }
};

ANEReading aneLoad(double utilization) {
    ANEReading reading;
    reading.utilization = utilization;
    return reading;
}

CPUStats cpuLoad(double total) {
    CPUStats stats;
    stats.totalUsage = total;
    return stats;
}

GPUStats gpuLoad(double utilization) {
    GPUStats stats;
    stats.deviceUtilization = utilization;
    return stats;
}

FanStats fanAt(int current, int lowest, int highest) {
    FanReading fan;
    fan.currentRPM = current;
    fan.minRPM = lowest;
    fan.maxRPM = highest;
    return {{fan}, {}};
}

DiskIOReading diskRates(std::optional<double> read, std::optional<double> written) {
    DiskIOReading reading;
    reading.bytesReadPerSecond = read;
    reading.bytesWrittenPerSecond = written;
    return reading;
}

MemoryStats memoryUse(std::uint64_t used, std::uint64_t total,
                      MemoryStats::Pressure pressure = MemoryStats::Pressure::normal) {
    MemoryStats stats;
    stats.usedBytes = used;
    stats.totalBytes = total;
    stats.pressure = pressure;
    return stats;
}

TEST(MetricHistories, start_empty) {
    CoordinatorBench b;
    EXPECT_TRUE(b.coordinator.cpuHistory->empty());
    EXPECT_TRUE(b.coordinator.gpuHistory->empty());
    EXPECT_TRUE(b.coordinator.aneHistory->empty());
}

TEST(MetricHistories, a_pass_stamps_all_series_with_its_one_moment) {
    ActiveBench b;
    b.advance(seconds(5));
    const auto& cpu = *b.coordinator.cpuHistory;
    ASSERT_EQ(cpu.size(), 5U);
    EXPECT_EQ(cpu.back().timestamp, b.clock.now());
    EXPECT_EQ(cpu.back().value, (*b.coordinator.cpu.latest)->totalUsage);
    EXPECT_EQ(b.coordinator.pCoreHistory->back(),
              (HistoryPoint{b.clock.now(), (*b.coordinator.cpu.latest)->pCoreUsage}));
    EXPECT_EQ(b.coordinator.eCoreHistory->back(),
              (HistoryPoint{b.clock.now(), (*b.coordinator.cpu.latest)->eCoreUsage}));
    EXPECT_EQ(b.coordinator.memoryHistory->back(),
              (HistoryPoint{b.clock.now(), (*b.coordinator.memory.latest)->usedFraction()}));
    EXPECT_EQ(b.coordinator.gpuHistory->back(),
              (HistoryPoint{b.clock.now(), (*b.coordinator.gpu.latest)->deviceUtilization}));
}

TEST(MetricHistories, a_metric_without_a_reading_adds_nothing) {
    ActiveBench b;
    b.advance(seconds(3));
    EXPECT_TRUE(b.coordinator.aneHistory->empty());
    b.coordinator.ane.latest = aneLoad(0.25);
    b.advance(seconds(1));
    EXPECT_EQ(*b.coordinator.aneHistory, (HistorySeries{{b.clock.now(), 0.25}}));
}

TEST(MetricHistories, each_rate_of_the_disks_is_recorded_where_it_is_there) {
    CoordinatorBench b;
    for (const auto& reading : {diskRates({}, {}), diskRates(1.5, {}), diskRates(2.5, 3.5)}) {
        b.coordinator.diskIO.latest = reading;
        b.coordinator.appendHistory(b.clock.now());
    }
    EXPECT_EQ(*b.coordinator.diskReadHistory,
              (HistorySeries{{b.clock.now(), 1.5}, {b.clock.now(), 2.5}}));
    EXPECT_EQ(*b.coordinator.diskWriteHistory, (HistorySeries{{b.clock.now(), 3.5}}));
}

TEST(MetricHistories, memory_is_recorded_as_the_used_part_of_its_total) {
    CoordinatorBench b;
    std::vector<double> recorded;
    for (const auto& stats : {memoryUse(4, 16), memoryUse(17, 16), memoryUse(5, 0)}) {
        b.coordinator.memory.latest = stats;
        b.coordinator.appendHistory(b.clock.now());
        recorded.push_back(b.coordinator.memoryHistory->back().value);
    }
    EXPECT_EQ(recorded, (std::vector<double>{0.25, 1.0, 0.0}));
}

TEST(MetricHistories, nothing_grows_while_all_is_closed_whatever_the_preferences_say) {
    for (const auto mode : {PollingMode::background, PollingMode::batterySaver}) {
        CoordinatorBench b;
        b.change([](auto& p) { p.showGPU = p.showANE = p.menuBarCompact = true; });
        b.coordinator.setPollingMode(mode);
        b.advance(seconds(20));
        EXPECT_TRUE(b.coordinator.cpuHistory->empty());
        EXPECT_TRUE(b.coordinator.gpuHistory->empty());
    }
}

// For as long as the time to which it was set back has not come again, no point of before is old.
TEST(MetricHistories, a_clock_that_was_set_back_for_long_does_not_let_them_grow_without_end) {
    constexpr int pointsOfAnHour = 7200;  // at the shortest interval
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.5);
    const auto live = [&b](int points) {
        for (int i = 0; i < points; ++i) {
            b.clock.advanceBy(seconds(0.5));
            b.coordinator.appendHistory(b.clock.now());
        }
    };
    live(100);
    b.clock.setWallClock(b.clock.now() - std::chrono::days(400));
    live(5 * pointsOfAnHour);
    const auto& cpu = *b.coordinator.cpuHistory;
    EXPECT_LE(cpu.size(), 2U * pointsOfAnHour);
    EXPECT_GE(trimmed(cpu, 3600.0).size(), pointsOfAnHour + 1U) << "the last hour is there";
    EXPECT_EQ(cpu.back().timestamp, b.clock.now());
}

TEST(MetricHistories, they_survive_a_pause_and_go_on_with_a_gap) {
    ActiveBench b;
    b.advance(seconds(10));
    const auto before = *b.coordinator.cpuHistory;
    b.coordinator.setPollingMode(PollingMode::background);
    b.advance(seconds(100));
    EXPECT_EQ(*b.coordinator.cpuHistory, before);
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.coordinator.cpuHistory->size(), before.size() + 1);
    EXPECT_EQ(b.coordinator.cpuHistory->back().timestamp - before.back().timestamp,
              std::chrono::seconds(100));
}

TEST(MetricHistories, the_mode_in_which_a_pass_began_decides) {
    for (const auto mode : {PollingMode::background, PollingMode::active}) {
        CoordinatorBench b;
        b.coordinator.setPollingMode(mode);
        b.advance(seconds(2));
        const auto before = b.coordinator.cpuHistory->size();
        auto pass = b.coordinator.refreshAll();
        pass.start(b.main);
        b.coordinator.setPollingMode(PollingMode::suspended);
        b.settle();
        EXPECT_EQ(b.coordinator.cpuHistory->size() - before, mode == PollingMode::active ? 1U : 0U);
    }
}

TEST(MetricHistories, a_point_is_told_once) {
    CoordinatorBench b;
    b.coordinator.gpu.latest = gpuLoad(0.5);
    std::vector<std::size_t> sizes;
    const auto token = b.coordinator.gpuHistory.subscribe(
        [&](const HistorySeries& series) { sizes.push_back(series.size()); });
    b.coordinator.appendHistory(b.clock.now());
    EXPECT_EQ(sizes, (std::vector<std::size_t>{0, 1}));
}

// The smallest machine without an SMC, since there are very many passes.
TEST(MetricHistories, a_day_with_an_open_surface_keeps_one_hour) {
    AppBench b(MacShape::withoutLevels(1));
    b.failures.failAlways(operations::serviceOpen);
    MetricsCoordinator coordinator(std::make_unique<Services>(b.ports(), b.executors()), b.ports(),
                                   b.executors());
    coordinator.preferences.modify([](auto& p) { p.refreshIntervalSeconds = 2.0; });
    coordinator.setPollingMode(PollingMode::active);
    b.advance(std::chrono::hours(24));
    EXPECT_GE(coordinator.cpuHistory->size(), 1801U);
    EXPECT_LE(coordinator.cpuHistory->size(), 1864U);
    EXPECT_EQ(trimmed(*coordinator.cpuHistory, 3600.0).size(), 1801U);
}

TEST(MetricHistories, every_series_keeps_one_hour_of_the_passes_of_a_day) {
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.5);
    b.coordinator.gpu.latest = gpuLoad(0.5);
    b.coordinator.memory.latest = memoryUse(1, 2);
    b.coordinator.diskIO.latest = diskRates(1e6, 1e6);
    b.coordinator.ane.latest = aneLoad(0.5);
    for (int second = 0; second < 86'400; ++second)
        b.coordinator.appendHistory(ManualClock::start + std::chrono::seconds(second));
    for (const auto* history :
         {&b.coordinator.cpuHistory, &b.coordinator.pCoreHistory, &b.coordinator.eCoreHistory,
          &b.coordinator.gpuHistory, &b.coordinator.memoryHistory, &b.coordinator.diskReadHistory,
          &b.coordinator.diskWriteHistory, &b.coordinator.aneHistory}) {
        EXPECT_GE((*history)->size(), 3601U);
        EXPECT_LE((*history)->size(), 3664U);
        EXPECT_EQ(trimmed(**history, 3600.0).size(), 3601U);
    }
}

TEST(MetricHistories, the_export_holds_the_last_hour_whatever_the_charts_show) {
    CoordinatorBench b;
    b.change([](auto& p) { p.historyRange = DisplayPreferences::HistoryRange::oneMinute; });
    b.coordinator.cpu.latest = cpuLoad(0.1234);
    for (int second = 0; second <= 3620; ++second)
        b.coordinator.appendHistory(ManualClock::start + std::chrono::seconds(second));

    const std::string text = b.coordinator.exportHistoryCSV();

    EXPECT_EQ(std::ranges::count(text, '\n'), 1 + 3601);
    EXPECT_NE(text.find("\n2025-01-15T12:00:20.000Z,12.340,0.000,0.000,,,,,\n"), std::string::npos);
    EXPECT_EQ(text.find("T12:00:19.000Z"), std::string::npos);
}

TEST(MetricHistories, an_export_before_the_first_point_is_the_header_alone) {
    CoordinatorBench b;
    const std::string text = b.coordinator.exportHistoryCSV();
    EXPECT_EQ(std::ranges::count(text, '\n'), 1);
    EXPECT_TRUE(text.starts_with("timestamp,cpu_percent,"));
}

struct Switch {
    const char* id;
    bool DisplayPreferences::* shows;
};

TEST(MetricEnabled, each_tile_by_its_own_switch) {
    using P = DisplayPreferences;
    const std::vector<Switch> switches{{"cpu", &P::showCPU},       {"gpu", &P::showGPU},
                                       {"memory", &P::showMemory}, {"thermal", &P::showThermal},
                                       {"disk", &P::showDiskIO},   {"fan", &P::showFan}};
    CoordinatorBench b;
    for (const auto& [id, shows] : switches) {
        b.change([&, flag = shows](auto& p) {
            for (const auto& each : switches) p.*each.shows = false;
            p.*flag = true;
        });
        for (const auto& each : switches)
            EXPECT_EQ(b.coordinator.isMetricEnabled(each.id), each.shows == shows) << each.id;
    }
}

TEST(MetricEnabled, the_graphics_only_where_the_machine_tells_their_load) {
    CoordinatorBench b;
    b.change([](auto& p) { p.showGPU = true; });
    EXPECT_TRUE(b.coordinator.isMetricEnabled("gpu"));
    b.coordinator.gpu.isAvailable = false;
    EXPECT_FALSE(b.coordinator.isMetricEnabled("gpu"));
}

TEST(MetricEnabled, the_neural_engine_and_what_is_no_tile_never) {
    CoordinatorBench b;
    b.change([](auto& p) { p.showANE = p.showPower = true; });
    for (const auto* id : {"ane", "power", "", "CPU", "cpu "})
        EXPECT_FALSE(b.coordinator.isMetricEnabled(id)) << id;
}

TEST(CriticalMetricOfThePass, starts_as_the_processor) {
    CoordinatorBench b;
    EXPECT_EQ(*b.coordinator.criticalMetric, "cpu");
}

/// Shows that metric and no other, so that no reading of the bench's machine takes part.
void showOnly(CoordinatorBench& b, bool DisplayPreferences::* metric) {
    b.change([metric](auto& p) {
        p.showCPU = p.showGPU = p.showMemory = p.showThermal = p.showDiskIO = p.showFan = false;
        p.*metric = true;
    });
}

TEST(CriticalMetricOfThePass, without_readings_or_switches_is_the_first_of_the_priority) {
    CoordinatorBench b;
    showOnly(b, &DisplayPreferences::showCPU);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "thermal");
    b.coordinator.cpu.latest = cpuLoad(0.9);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.change([](auto& p) { p.showCPU = false; });
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "thermal");
    b.change([](auto& p) { p.compactPriority = {}; });
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
}

TEST(CriticalMetricOfThePass, is_the_busiest_of_what_is_shown) {
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.3);
    b.coordinator.gpu.latest = gpuLoad(0.7);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.change([](auto& p) { p.showGPU = true; });
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "gpu");
}

TEST(CriticalMetricOfThePass, the_temperature_ranks_by_the_hottest_of_the_processor) {
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.3);
    TemperatureReading warm;
    b.coordinator.temperature.latest = warm;
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    warm.cpuMaxC = 70.0;
    b.coordinator.temperature.latest = warm;
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    warm.cpuMaxC = 71.0;
    b.coordinator.temperature.latest = warm;
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "thermal");
}

TEST(CriticalMetricOfThePass, a_temperature_of_the_battery_alone_ranks_nothing) {
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.01);
    b.coordinator.temperature.latest = TemperatureReading{{}, 45.0, {}};
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.coordinator.temperature.latest = std::nullopt;
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
}

TEST(CriticalMetricOfThePass, fans_rank_by_their_mean_load_where_they_have_one) {
    CoordinatorBench b;
    b.change([](auto& p) { p.showFan = true; });
    b.coordinator.cpu.latest = cpuLoad(0.3);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.coordinator.fan.latest = fanAt(2000, 1000, 3000);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "fan");
}

TEST(CriticalMetricOfThePass, disks_rank_by_both_rates_together_and_not_by_one) {
    CoordinatorBench b;
    b.change([](auto& p) { p.showDiskIO = true; });
    b.coordinator.cpu.latest = cpuLoad(0.3);
    b.coordinator.diskIO.latest = diskRates(5e8, {});
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.coordinator.diskIO.latest = diskRates(1e8, 1e8);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "disk");
}

TEST(CriticalMetricOfThePass, memory_under_critical_pressure_wins_over_a_higher_load) {
    CoordinatorBench b;
    b.coordinator.cpu.latest = cpuLoad(0.3);
    b.coordinator.memory.latest = memoryUse(2, 10);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.coordinator.memory.latest = memoryUse(2, 10, MemoryStats::Pressure::critical);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "memory");
    b.coordinator.memory.latest = memoryUse(3, 10);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "memory");
}

TEST(CriticalMetricOfThePass, the_neural_engine_never_wins_by_its_load) {
    CoordinatorBench b;
    showOnly(b, &DisplayPreferences::showCPU);
    b.change([](auto& p) { p.compactPriority = {"ane", "cpu"}; });
    b.coordinator.ane.latest = aneLoad(1.0);
    b.coordinator.cpu.latest = cpuLoad(0.0);
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "cpu");
    b.change([](auto& p) { p.showCPU = false; });
    EXPECT_EQ(b.coordinator.resolveCriticalMetric(), "ane");
}

TEST(CriticalMetricOfThePass, is_resolved_in_every_mode_and_told_only_when_it_changes) {
    CoordinatorBench b;
    std::vector<std::string> told;
    const auto token =
        b.coordinator.criticalMetric.subscribe([&](const std::string& id) { told.push_back(id); });
    b.change([](auto& p) { p.showCPU = p.showMemory = p.showThermal = false; });
    b.coordinator.start();
    b.advance(seconds(5));
    EXPECT_EQ(told, (std::vector<std::string>{"cpu", "thermal"}));
}

}  // namespace
}  // namespace vtx
