// SPDX-License-Identifier: MIT
#include "core/MetricsCoordinator.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

constexpr auto category = "MetricsCoordinator";

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
    b.dropSensors();
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

TEST(MetricsCoordinator, a_graphics_reading_tells_the_coordinators_observers) {
    CoordinatorBench b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    b.coordinator.gpu.latest = GPUStats{};
    b.advance(seconds(1));
    EXPECT_EQ(told, 1);
}

TEST(MetricsCoordinator, temperatures_and_fans_tell_the_coordinators_observers) {
    CoordinatorBench b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    b.coordinator.temperature.latest = TemperatureReading{};
    b.advance(seconds(1));
    EXPECT_EQ(told, 1);
    b.coordinator.fan.latest = FanStats{};
    b.advance(seconds(1));
    EXPECT_EQ(told, 2);
}

TEST(MetricsCoordinator, the_first_temperature_is_there_before_any_pass) {
    CoordinatorBench b;
    EXPECT_TRUE(*b.coordinator.temperature.latest);
    EXPECT_TRUE(b.coordinator.fan.latest->fans.empty());
}

}  // namespace
}  // namespace vtx
