// SPDX-License-Identifier: MIT
#include "telemetry/ThermalMonitor.h"

#include <gtest/gtest.h>

#include "support/TestBench.h"

namespace vtx {
namespace {

using Level = ThermalStats::Level;

constexpr auto category = "ThermalMonitor";

TEST(ThermalStats, states_have_their_levels_and_any_other_is_nominal) {
    EXPECT_EQ(thermalLevelOf(0), Level::nominal);
    EXPECT_EQ(thermalLevelOf(1), Level::fair);
    EXPECT_EQ(thermalLevelOf(2), Level::serious);
    EXPECT_EQ(thermalLevelOf(3), Level::critical);
    for (const std::int64_t state : {4, -1, 1'000'000})
        EXPECT_EQ(thermalLevelOf(state), Level::nominal);
}

TEST(ThermalStats, levels_are_stored_by_their_names) {
    std::string names;
    for (const auto level : ThermalStats::allLevels) names.append(rawValue(level)).append(" ");
    EXPECT_EQ(names, "nominal fair serious critical ");
}

TEST(ThermalMonitor, has_a_reading_from_the_start_and_says_so) {
    TestBench bench;
    bench.mac.setThermalState(1);
    const ThermalMonitor monitor(bench.ports());
    EXPECT_EQ(*monitor.latest, (ThermalStats{Level::fair, bench.clock.now()}));
    EXPECT_EQ(bench.log.count(LogLevel::info, category, "ThermalMonitor ready (initial=fair)"), 1U);
}

TEST(ThermalMonitor, a_state_that_is_not_known_reads_as_nominal) {
    TestBench bench;
    ThermalMonitor monitor(bench.ports());
    bench.mac.setThermalState(3);
    EXPECT_EQ(monitor.latest->level, Level::critical);
    bench.mac.setThermalState(4);
    EXPECT_EQ(monitor.latest->level, Level::nominal);
}

TEST(ThermalMonitor, two_refreshes_at_one_level_both_tell_and_differ_in_their_time) {
    TestBench bench;
    ThermalMonitor monitor(bench.ports());
    int told = 0;
    const auto token = monitor.objectWillChange.subscribe([&told] { ++told; });
    monitor.refresh();
    const auto first = *monitor.latest;
    bench.advance(seconds(1));
    monitor.refresh();
    EXPECT_EQ(told, 2);
    EXPECT_EQ(monitor.latest->level, first.level);
    EXPECT_GT(monitor.latest->timestamp, first.timestamp);
}

TEST(ThermalMonitor, a_notification_between_two_ticks_changes_the_reading_at_once) {
    TestBench bench;
    const ThermalMonitor monitor(bench.ports());
    bench.advance(seconds(1));
    bench.mac.setThermalState(2);
    EXPECT_EQ(*monitor.latest, (ThermalStats{Level::serious, bench.clock.now()}));
}

TEST(ThermalMonitor, every_notification_is_said_even_without_a_change) {
    TestBench bench;
    const ThermalMonitor monitor(bench.ports());
    bench.mac.setThermalState(2);
    bench.mac.setThermalState(2);
    EXPECT_EQ(bench.log.count(LogLevel::info, category, "Thermal state → serious"), 2U);
}

TEST(ThermalMonitor, once_it_has_gone_nothing_is_observed) {
    TestBench bench;
    std::optional<ThermalMonitor> monitor(std::in_place, bench.ports());
    EXPECT_EQ(bench.platform.instruments.handles.outstanding(handles::thermalStateDidChange), 1U);
    monitor.reset();
    bench.mac.setThermalState(2);
    EXPECT_EQ(bench.platform.outstanding(), 0U);
}

}  // namespace
}  // namespace vtx
