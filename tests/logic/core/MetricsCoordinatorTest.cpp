// SPDX-License-Identifier: MIT
#include "core/MetricsCoordinator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/PassTable.h"
#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using testing::ElementsAre;

constexpr auto category = "MetricsCoordinator";

TEST(MetricsCoordinator, begins_in_background_with_the_loop_stopped) {
    CoordinatorBench b;
    b.advance(seconds(5));
    EXPECT_EQ(*b.coordinator.pollingMode, PollingMode::background);
    EXPECT_FALSE(b.coordinator.isRunning());
    EXPECT_EQ(b.samples(), 0U);
}

TEST(MetricsCoordinator, the_first_pass_comes_at_once_and_the_next_after_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    b.advance(std::chrono::milliseconds(999));
    EXPECT_EQ(b.samples(), 1U);
    b.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(b.samples(), 2U);
}

TEST(MetricsCoordinator, sleeps_with_a_tolerance_of_a_tenth_of_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    EXPECT_THAT(b.clock.pending(), ElementsAre(ManualClock::PendingTimer{
                                       b.clock.continuous() + seconds(1), seconds(0.1)}));
}

TEST(MetricsCoordinator, the_cadence_is_the_length_of_the_pass_plus_the_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    b.main.drain();  // the pass waits for its engine
    b.clock.advanceBy(seconds(0.3));
    b.settle();
    EXPECT_EQ(b.clock.nextDeadline(), b.clock.continuous() + seconds(1));
}

TEST(MetricsCoordinator, start_says_mode_and_interval) {
    CoordinatorBench b;
    b.coordinator.start();
    EXPECT_TRUE(b.log.contains(LogLevel::info, category,
                               "MetricsCoordinator started (mode=background, interval=1.000000s)"));
}

TEST(MetricsCoordinator, starting_again_replaces_the_loop_with_a_pass_at_once) {
    CoordinatorBench b;
    b.coordinator.start();
    b.advance(seconds(0.4));
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 2U);
    b.advance(seconds(1));
    EXPECT_EQ(b.samples(), 3U);  // one loop, not two
}

TEST(MetricsCoordinator, a_loop_that_was_replaced_before_it_began_makes_no_pass) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::batterySaver);
    b.coordinator.start();
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_EQ(*b.coordinator.cpu.latest, std::nullopt);
}

TEST(MetricsCoordinator, a_pass_under_way_runs_to_its_end_when_the_loop_stops) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.advance(seconds(1));
    b.clock.advanceBy(seconds(1));
    b.main.drain();
    const auto before = *b.coordinator.cpu.latest;
    b.coordinator.stop();
    b.settle();
    EXPECT_NE(*b.coordinator.cpu.latest, before);
    b.advance(seconds(10));
    EXPECT_EQ(b.samples(), 3U);
}

TEST(MetricsCoordinator, a_change_of_mode_restarts_the_loop_with_a_pass_at_once) {
    for (const auto mode : {PollingMode::active, PollingMode::batterySaver}) {
        CoordinatorBench b;
        b.coordinator.start();
        b.advance(seconds(0.5));
        b.coordinator.setPollingMode(mode);
        b.settle();
        EXPECT_EQ(b.samples(), 2U);
        EXPECT_EQ(*b.coordinator.pollingMode, mode);
    }
}

TEST(MetricsCoordinator, the_present_mode_again_neither_restarts_nor_logs) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.log.clear();
    b.coordinator.setPollingMode(PollingMode::background);
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_TRUE(b.log.lines().empty());
}

TEST(MetricsCoordinator, a_change_of_mode_is_logged) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::suspended);
    EXPECT_TRUE(b.log.contains(LogLevel::info, category, "Polling mode → suspended"));
}

TEST(MetricsCoordinator, suspended_stops_the_loop_and_start_does_not_wake_it) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.coordinator.setPollingMode(PollingMode::suspended);
    EXPECT_FALSE(b.coordinator.isRunning());
    b.coordinator.start();
    EXPECT_FALSE(b.coordinator.isRunning());
    b.advance(seconds(60));
    EXPECT_EQ(b.samples(), 1U);
    EXPECT_TRUE(b.clock.pending().empty());
}

struct IntervalCase {
    double preference;
    PollingMode mode;
    double expected;
};

class EffectiveInterval : public testing::TestWithParam<IntervalCase> {};

TEST_P(EffectiveInterval, is_limited_and_doubled_to_save_the_battery) {
    CoordinatorBench b;
    b.change([](auto& p) { p.refreshIntervalSeconds = GetParam().preference; });
    b.coordinator.setPollingMode(GetParam().mode);
    EXPECT_DOUBLE_EQ(b.coordinator.effectiveInterval(), GetParam().expected);
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
INSTANTIATE_TEST_SUITE_P(table, EffectiveInterval,
                         testing::Values(IntervalCase{1.0, PollingMode::background, 1.0},
                                         IntervalCase{1.0, PollingMode::active, 1.0},
                                         IntervalCase{1.0, PollingMode::batterySaver, 2.0},
                                         IntervalCase{0.1, PollingMode::background, 0.5},
                                         IntervalCase{0.1, PollingMode::batterySaver, 1.0},
                                         IntervalCase{9.0, PollingMode::background, 2.0},
                                         IntervalCase{9.0, PollingMode::batterySaver, 4.0},
                                         IntervalCase{nan, PollingMode::background, 0.5},
                                         IntervalCase{infinity, PollingMode::active, 2.0},
                                         IntervalCase{-infinity, PollingMode::active, 0.5}));

TEST(MetricsCoordinator, the_interval_is_fixed_for_the_life_of_a_loop) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.change([](auto& p) { p.refreshIntervalSeconds = 2.0; });
    b.advance(seconds(1));
    EXPECT_EQ(b.samples(), 2U);
    b.coordinator.start();
    b.settle();
    b.advance(seconds(1.5));
    EXPECT_EQ(b.samples(), 3U);
}

TEST(MetricsCoordinator, an_idle_pass_in_battery_saver_asks_the_platform_for_what_background_does) {
    const auto callsIn = [](PollingMode mode) {
        CoordinatorBench b;
        b.coordinator.setPollingMode(mode);
        b.settle();
        b.platform.resetCalls();
        b.advance(seconds(2));
        EXPECT_GT(b.platform.totalCalls(), 0U);
        return b.platform.instruments.counter.all();
    };
    CoordinatorBench reference;
    reference.coordinator.start();
    reference.settle();
    reference.platform.resetCalls();
    reference.advance(seconds(1));
    EXPECT_EQ(callsIn(PollingMode::batterySaver), reference.platform.instruments.counter.all());
}

TEST(MetricsCoordinator, the_processor_is_sampled_only_while_something_asks_for_it) {
    CoordinatorBench b;
    b.needNoCPU();
    b.coordinator.start();
    b.advance(seconds(3));
    EXPECT_EQ(b.samples(), 0U);
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
}

TEST(MetricsCoordinator, each_preference_alone_keeps_the_processor_sampled) {
    for (const auto flag :
         {&DisplayPreferences::showCPU, &DisplayPreferences::menuBarLiveCPU,
          &DisplayPreferences::alertCPUEnabled, &DisplayPreferences::menuBarCompact}) {
        CoordinatorBench b;
        b.needNoCPU();
        EXPECT_FALSE(b.coordinator.needsCPU());
        b.change([flag](auto& p) { p.*flag = true; });
        EXPECT_TRUE(b.coordinator.needsCPU());
    }
}

struct NeedCase {
    Subsystem subsystem;
    std::vector<bool DisplayPreferences::*> keepers;
};

std::vector<NeedCase> needCases() {
    using P = DisplayPreferences;
    return {{Subsystem::gpu, {&P::showGPU, &P::menuBarLiveGPU, &P::alertGPUEnabled}},
            {Subsystem::memory,
             {&P::showMemory, &P::menuBarLiveMemory, &P::alertMemoryEnabled,
              &P::alertPressureEnabled, &P::autoRelieveOnPressure}},
            {Subsystem::temperature, {&P::showThermal, &P::menuBarLiveTemp, &P::alertTempEnabled}},
            {Subsystem::disk, {&P::showDiskIO, &P::menuBarLiveDisk, &P::alertDiskEnabled}},
            {Subsystem::fan, {&P::showFan, &P::menuBarLiveFan, &P::alertFanEnabled}},
            {Subsystem::ane, {&P::showANE, &P::menuBarLiveANE, &P::alertANEEnabled}}};
}

// No flag of any metric is set.
DisplayPreferences nothingWanted() {
    DisplayPreferences p;
    p.showCPU = p.showThermal = p.showMemory = p.showANE = false;
    p.menuBarLiveCPU = p.menuBarLiveGPU = p.menuBarLiveMemory = p.menuBarLiveTemp = false;
    p.menuBarLiveDisk = p.menuBarLivePower = p.menuBarLiveFan = p.menuBarLiveANE = false;
    return p;
}

TEST(MetricsCoordinator, each_keeper_alone_keeps_its_subsystem_and_no_other) {
    CoordinatorBench b;
    for (const auto& wanted : needCases()) {
        for (const auto keeper : wanted.keepers) {
            auto p = nothingWanted();
            p.*keeper = true;
            b.coordinator.preferences = p;
            for (const auto& asked : needCases())
                EXPECT_EQ(b.coordinator.needsSubsystem(asked.subsystem),
                          asked.subsystem == wanted.subsystem);
        }
    }
}

TEST(MetricsCoordinator, power_preferences_keep_nothing_alive) {
    CoordinatorBench b;
    auto p = nothingWanted();
    p.showPower = p.menuBarLivePower = p.alertPowerEnabled = true;
    b.coordinator.preferences = p;
    for (const auto& asked : needCases())
        EXPECT_FALSE(b.coordinator.needsSubsystem(asked.subsystem));
    EXPECT_FALSE(b.coordinator.needsCPU());
}

TEST(MetricsCoordinator, compact_mode_an_open_surface_and_the_thermal_level_need_everything) {
    CoordinatorBench b;
    auto p = nothingWanted();
    b.coordinator.preferences = p;
    EXPECT_TRUE(b.coordinator.needsSubsystem(Subsystem::thermal));
    p.menuBarCompact = true;
    b.coordinator.preferences = p;
    for (const auto& asked : needCases())
        EXPECT_TRUE(b.coordinator.needsSubsystem(asked.subsystem));
    b.coordinator.preferences = nothingWanted();
    b.coordinator.setPollingMode(PollingMode::active);
    for (const auto& asked : needCases())
        EXPECT_TRUE(b.coordinator.needsSubsystem(asked.subsystem));
}

// Where each sampler stands in a pass. The table may lack a sampler, but may not reorder any.
TEST(PassTable, samplers_stand_in_their_laid_down_order_and_phase) {
    using enum PassPhase;
    const std::vector<std::pair<std::string, PassPhase>> laidDown{
        {"cpu", concurrent}, {"gpu", concurrent},     {"memory", concurrent},
        {"thermal", main},   {"temperature", main},   {"diskIO", main},
        {"fan", main},       {"network", activeOnly}, {"battery", activeOnly}};
    auto place = laidDown.begin();
    for (const PassRow& row : passTable()) {
        place = std::find(place, laidDown.end(),
                          std::pair<std::string, PassPhase>(row.name, row.phase));
        ASSERT_NE(place, laidDown.end()) << row.name;
        EXPECT_EQ(row.refresh != nullptr, row.phase == concurrent) << row.name;
        EXPECT_EQ(row.refreshNow != nullptr, row.phase != concurrent) << row.name;
    }
    EXPECT_FALSE(passTable().empty());
}

TEST(MetricsCoordinator, an_idle_pass_samples_the_graphics_where_a_preference_asks_for_it) {
    for (bool DisplayPreferences::* const wish :
         {&DisplayPreferences::showGPU, &DisplayPreferences::menuBarLiveGPU,
          &DisplayPreferences::alertGPUEnabled, &DisplayPreferences::menuBarCompact}) {
        CoordinatorBench b;
        b.coordinator.preferences = nothingWanted();
        b.coordinator.start();
        b.settle();
        EXPECT_EQ(*b.coordinator.gpu.latest, std::nullopt);
        b.change([wish](auto& p) { p.*wish = true; });
        b.advance(seconds(1));
        EXPECT_TRUE(b.coordinator.gpu.latest->has_value());
    }
}

TEST(MetricsCoordinator, a_graphics_reading_tells_the_coordinators_observers) {
    CoordinatorBench b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    b.coordinator.gpu.latest = GPUStats{};
    b.advance(seconds(1));
    EXPECT_EQ(told, 1);
}

TEST(MetricsCoordinator, two_passes_may_overlap) {
    CoordinatorBench b;
    b.coordinator.start();
    b.main.drain();
    TaskScope manual(b.main);
    manual.spawn([&](std::stop_token) { return b.coordinator.refreshAll(); });
    b.main.drain();
    b.settle();
    EXPECT_EQ(b.samples(), 2U);
}

TEST(MetricsCoordinator, preferences_come_from_the_store) {
    DisplayPreferences stored;
    stored.menuBarCompact = true;
    SimulatedUserDefaults writer;
    stored.save(writer);
    CoordinatorBench b(writer.stored);
    EXPECT_TRUE(b.coordinator.preferences->menuBarCompact);
    EXPECT_EQ(b.platform.userDefaults.writes, 0);
}

TEST(MetricsCoordinator, each_change_of_a_preference_is_saved_at_once) {
    CoordinatorBench b;
    b.change([](auto& p) { p.showGPU = true; });
    EXPECT_EQ(b.platform.userDefaults.writes, 1);
    EXPECT_TRUE(DisplayPreferences::load(b.platform.userDefaults).showGPU);
}

TEST(MetricsCoordinator, assigning_the_same_preferences_neither_saves_nor_pushes) {
    CoordinatorBench b;
    int pushes = 0;
    const auto token = Localization::shared().objectWillChange.subscribe([&pushes] { ++pushes; });
    b.coordinator.preferences = DisplayPreferences(*b.coordinator.preferences);
    b.coordinator.preferences = DisplayPreferences(*b.coordinator.preferences);
    EXPECT_EQ(b.platform.userDefaults.writes, 0);
    EXPECT_EQ(pushes, 0);
}

TEST(MetricsCoordinator, a_failing_store_is_silent_and_the_preference_stays_in_force) {
    CoordinatorBench b;
    b.platform.userDefaults.failsToStore = true;
    b.change([](auto& p) { p.showGPU = true; });
    EXPECT_TRUE(b.coordinator.preferences->showGPU);
}

TEST(MetricsCoordinator, the_stored_language_is_in_force_from_the_start_and_on_each_change) {
    DisplayPreferences stored;
    stored.languageCode = "de";
    SimulatedUserDefaults writer;
    stored.save(writer);
    CoordinatorBench b(writer.stored);
    EXPECT_EQ(*Localization::shared().effective, Language::de);
    b.change([](auto& p) { p.languageCode = "ja"; });
    EXPECT_EQ(*Localization::shared().effective, Language::ja);
    b.change([](auto& p) { p.languageCode = "xx"; });
    EXPECT_EQ(*Localization::shared().effective, Language::en);
}

TEST(MetricsCoordinator, sleep_suspends_and_wake_always_leads_to_background) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.mac.setPower(SimulatedPower::battery);
    b.sleepMachine(seconds(3600));
    EXPECT_EQ(*b.coordinator.pollingMode, PollingMode::background);
    EXPECT_TRUE(b.log.contains(LogLevel::info, category, "Polling mode → suspended"));
    EXPECT_TRUE(b.coordinator.isRunning());
}

TEST(MetricsCoordinator, while_the_machine_sleeps_there_are_no_passes) {
    CoordinatorBench b;
    b.coordinator.start();
    b.settle();
    b.mac.sleep();
    b.advance(seconds(100));
    EXPECT_EQ(b.samples(), 1U);
}

TEST(MetricsCoordinator, a_test_run_does_not_observe_the_machines_sleep) {
    const auto observersWhen = [](const std::function<void(SimulatedMac&)>& prepare) {
        AppBench b;
        prepare(b.mac);
        const MetricsCoordinator coordinator(std::make_unique<Services>(b.ports(), b.executors()),
                                             b.ports(), b.executors());
        return b.platform.instruments.handles.outstanding(handles::willSleep) +
               b.platform.instruments.handles.outstanding(handles::didWake);
    };
    EXPECT_EQ(observersWhen([](auto&) {}), 2U);
    EXPECT_EQ(observersWhen([](auto& mac) { mac.environment["XCTestConfigurationFilePath"] = ""; }),
              0U);
    EXPECT_EQ(observersWhen([](auto& mac) {
                  mac.loadedBundlePaths = {"/Library/a.bundle", "/tmp/Vantrix.xctest"};
              }),
              0U);
    EXPECT_EQ(observersWhen([](auto& mac) { mac.loadedBundlePaths = {"/a.xctest/b"}; }), 2U);
}

TEST(MetricsCoordinator, nothing_stays_behind_when_it_goes) {
    AppBench b;
    {
        MetricsCoordinator coordinator(std::make_unique<Services>(b.ports(), b.executors()),
                                       b.ports(), b.executors());
        coordinator.start();
        b.main.drain();  // a pass waits for the engine
    }
    b.settle();
    EXPECT_EQ(b.platform.outstanding(), 0U);
    EXPECT_TRUE(b.clock.pending().empty());
}

TEST(MetricsCoordinator, battery_power_is_told_by_its_exact_name) {
    AppBench b;
    EXPECT_FALSE(MetricsCoordinator::isOnBattery(b.ports()));
    b.mac.setPower(SimulatedPower::battery);
    EXPECT_TRUE(MetricsCoordinator::isOnBattery(b.ports()));
    b.failures.failNext(operations::powerSourcesType);
    EXPECT_FALSE(MetricsCoordinator::isOnBattery(b.ports()));
    EXPECT_EQ(b.platform.outstanding(), 0U);
}

using MetricsCoordinatorDeathTest = testing::Test;

TEST(MetricsCoordinatorDeathTest, a_platform_without_power_sources_is_fatal) {
    AppBench b;
    b.failures.failAlways(operations::powerSourcesNull);
    EXPECT_DEATH(static_cast<void>(MetricsCoordinator::isOnBattery(b.ports())), "power sources");
}

TEST(MetricsCoordinator, changes_of_monitors_reach_its_observers_once_in_50_milliseconds) {
    CoordinatorBench b;
    int changes = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&changes] { ++changes; });
    for (int i = 0; i < 5; ++i) b.coordinator.cpu.latest = CPUStats{};
    EXPECT_EQ(changes, 0);
    b.settle();
    EXPECT_EQ(changes, 1);
    b.coordinator.cpu.latest = CPUStats{};
    b.coordinator.cpu.latest = CPUStats{};
    b.advance(std::chrono::milliseconds(49));
    EXPECT_EQ(changes, 1);
    b.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(changes, 2);
}

TEST(MetricsCoordinator, while_nobody_observes_it_monitors_changes_start_no_timer) {
    CoordinatorBench b;
    for (int i = 0; i < 5; ++i) {
        b.coordinator.cpu.latest = CPUStats{};
        b.settle();
    }
    EXPECT_TRUE(b.clock.pending().empty());
}

}  // namespace
}  // namespace vtx
