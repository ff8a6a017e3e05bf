// SPDX-License-Identifier: MIT
// What a pass samples.
#include "core/PassTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

TEST(PassNeeds, an_idle_pass_in_battery_saver_asks_the_platform_for_what_background_does) {
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
    const auto expected = reference.platform.instruments.counter.all();
    EXPECT_EQ(callsIn(PollingMode::batterySaver), expected);
}

TEST(PassNeeds, the_processor_is_sampled_only_while_something_asks_for_it) {
    CoordinatorBench b;
    b.needNoCPU();
    b.coordinator.start();
    b.advance(seconds(3));
    EXPECT_EQ(b.samples(), 0U);
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.samples(), 1U);
}

TEST(PassNeeds, each_preference_alone_keeps_the_processor_sampled) {
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

TEST(PassNeeds, each_keeper_alone_keeps_its_subsystem_and_no_other) {
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

TEST(PassNeeds, power_preferences_keep_nothing_alive) {
    CoordinatorBench b;
    auto p = nothingWanted();
    p.showPower = p.menuBarLivePower = p.alertPowerEnabled = true;
    b.coordinator.preferences = p;
    for (const auto& asked : needCases())
        EXPECT_FALSE(b.coordinator.needsSubsystem(asked.subsystem));
    EXPECT_FALSE(b.coordinator.needsCPU());
}

TEST(PassNeeds, compact_mode_an_open_surface_and_the_thermal_level_need_everything) {
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

TEST(PassNeeds, an_idle_pass_samples_the_memory_where_a_preference_asks_for_it) {
    for (bool DisplayPreferences::* const wish :
         {&DisplayPreferences::showMemory, &DisplayPreferences::menuBarLiveMemory,
          &DisplayPreferences::alertMemoryEnabled, &DisplayPreferences::alertPressureEnabled,
          &DisplayPreferences::autoRelieveOnPressure, &DisplayPreferences::menuBarCompact}) {
        CoordinatorBench b;
        b.coordinator.preferences = nothingWanted();
        b.coordinator.start();
        b.settle();
        EXPECT_EQ(*b.coordinator.memory.latest, std::nullopt);
        b.change([wish](auto& p) { p.*wish = true; });
        b.advance(seconds(1));
        EXPECT_TRUE(b.coordinator.memory.latest->has_value());
    }
}

TEST(PassNeeds, the_thermal_level_is_read_in_every_pass) {
    CoordinatorBench b;
    b.coordinator.preferences = nothingWanted();
    b.coordinator.start();
    b.settle();
    const auto before = b.coordinator.thermal.latest->timestamp;
    b.advance(seconds(1));
    EXPECT_GT(b.coordinator.thermal.latest->timestamp, before);
}

TEST(PassNeeds, a_battery_is_read_without_a_temperature_where_none_was_read_yet) {
    CoordinatorBench b;
    b.coordinator.temperature.latest = std::nullopt;
    b.coordinator.refreshBattery();
    ASSERT_TRUE(b.coordinator.battery.latest->has_value());
    EXPECT_EQ(b.coordinator.battery.latest->value().temperatureC, std::nullopt);
}

TEST(PassNeeds, the_battery_is_sampled_while_a_surface_is_open_and_never_else) {
    CoordinatorBench b;
    b.mac.setLowPowerMode(true);
    b.change([](auto& p) { p.menuBarCompact = true; });
    b.coordinator.start();
    b.advance(seconds(3));
    EXPECT_EQ(*b.coordinator.battery.latest, std::nullopt);
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    ASSERT_TRUE(b.coordinator.battery.latest->has_value());
    EXPECT_TRUE(b.coordinator.battery.latest->value().lowPowerModeEnabled);
    ASSERT_TRUE(b.coordinator.temperature.latest->has_value());
    EXPECT_EQ(b.coordinator.battery.latest->value().temperatureC,
              b.coordinator.temperature.latest->value().batteryC);
    EXPECT_TRUE(b.coordinator.battery.latest->value().temperatureC);
}

// The surfaces may close while the samplers before it run.
TEST(PassNeeds, the_mode_is_read_again_before_what_only_open_surfaces_want) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    const auto before = b.coordinator.battery.latest->value().timestamp;
    auto closing =
        b.coordinator.thermal.latest.subscribe([&b, isFirst = true](const auto&) mutable {
            if (!std::exchange(isFirst, false)) b.coordinator.pollingMode = PollingMode::background;
        });
    b.advance(seconds(1));
    EXPECT_EQ(b.coordinator.battery.latest->value().timestamp, before);
    closing = b.coordinator.thermal.latest.subscribe(
        [&b](const auto&) { b.coordinator.pollingMode = PollingMode::active; });
    b.coordinator.pollingMode = PollingMode::background;
    b.advance(seconds(1));
    EXPECT_GT(b.coordinator.battery.latest->value().timestamp, before);
}

TEST(PassNeeds, an_idle_pass_samples_the_graphics_where_a_preference_asks_for_it) {
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

TEST(PassNeeds, an_idle_pass_samples_the_drives_where_a_preference_asks_for_it) {
    for (bool DisplayPreferences::* const wish :
         {&DisplayPreferences::showDiskIO, &DisplayPreferences::menuBarLiveDisk,
          &DisplayPreferences::alertDiskEnabled, &DisplayPreferences::menuBarCompact}) {
        CoordinatorBench b;
        b.coordinator.preferences = nothingWanted();
        b.coordinator.start();
        b.settle();
        EXPECT_EQ(*b.coordinator.diskIO.latest, std::nullopt);
        b.change([wish](auto& p) { p.*wish = true; });
        b.advance(seconds(1));
        EXPECT_TRUE(b.coordinator.diskIO.latest->has_value());
    }
}

TEST(PassNeeds, the_network_is_sampled_in_active_alone_whatever_the_preferences) {
    CoordinatorBench b;
    b.change([](auto& p) { p.menuBarCompact = true; });
    for (const auto mode : {PollingMode::background, PollingMode::batterySaver}) {
        b.coordinator.setPollingMode(mode);
        b.advance(seconds(10));
        EXPECT_EQ(*b.coordinator.network.latest, std::nullopt);
    }
    b.coordinator.setPollingMode(PollingMode::active);
    b.advance(seconds(1));
    ASSERT_TRUE(b.coordinator.network.latest->has_value());
    EXPECT_TRUE((*b.coordinator.network.latest)->bytesInPerSecond);
}

TEST(PassNeeds, the_network_stops_with_the_machines_sleep_until_a_surface_is_opened_again) {
    CoordinatorBench b;
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    b.sleepMachine(seconds(600));
    b.platform.resetCalls();
    b.advance(seconds(10));
    EXPECT_GT(b.samples(), 0U);
    EXPECT_EQ(b.platform.calls("getifaddrs"), 0U);
    EXPECT_EQ(b.platform.instruments.handles.outstanding(handles::interfaceList), 0U);
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.platform.calls("getifaddrs"), 1U);
}

TEST(PassTable, a_change_of_the_drives_or_the_network_is_the_coordinators_too) {
    CoordinatorBench b;
    int told = 0;
    const auto token = b.coordinator.objectWillChange.subscribe([&told] { ++told; });
    b.coordinator.diskIO.refresh();
    b.advance(seconds(1));
    EXPECT_EQ(told, 1);
    b.coordinator.network.refresh();
    b.advance(seconds(1));
    EXPECT_EQ(told, 2);
}

// How often an idle pass reads a key, with this one wish or with none.
std::size_t readsOf(std::string_view key, bool DisplayPreferences::* wish) {
    CoordinatorBench b;
    auto p = nothingWanted();
    if (wish) p.*wish = true;
    b.coordinator.preferences = p;
    const auto before = b.mac.smc.key(key).reads;
    b.coordinator.start();
    b.settle();
    return b.mac.smc.key(key).reads - before;
}

TEST(PassNeeds, an_idle_pass_samples_the_temperature_where_a_preference_asks_for_it) {
    using P = DisplayPreferences;
    EXPECT_EQ(readsOf("Tp01", nullptr), 0U);
    for (const auto wish :
         {&P::showThermal, &P::menuBarLiveTemp, &P::alertTempEnabled, &P::menuBarCompact})
        EXPECT_EQ(readsOf("Tp01", wish), 1U);
    EXPECT_EQ(readsOf("Tp01", &P::showFan), 0U);
}

TEST(PassNeeds, an_idle_pass_samples_the_fans_where_a_preference_asks_for_it) {
    using P = DisplayPreferences;
    EXPECT_EQ(readsOf("F0Ac", nullptr), 0U);
    for (const auto wish :
         {&P::showFan, &P::menuBarLiveFan, &P::alertFanEnabled, &P::menuBarCompact})
        EXPECT_EQ(readsOf("F0Ac", wish), 1U);
    EXPECT_EQ(readsOf("F0Ac", &P::showThermal), 0U);
}

TEST(PassNeeds, an_open_surface_samples_temperature_and_fans) {
    CoordinatorBench b;
    b.coordinator.preferences = nothingWanted();
    b.coordinator.setPollingMode(PollingMode::active);
    b.settle();
    EXPECT_EQ(b.coordinator.fan.latest->fans.size(), 2U);
    EXPECT_EQ((*b.coordinator.temperature.latest)->timestamp, b.clock.now());
}

}  // namespace
}  // namespace vtx
