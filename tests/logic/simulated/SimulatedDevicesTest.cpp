// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedDevices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedMac.h"
#include "telemetry/CoreLayout.h"

namespace vtx {
namespace {

using testing::ElementsAre;

MacShape twoCores() {
    MacShape shape = MacShape::standard(1, 1);
    shape.performanceStepsMHz = {600, 1000, 2000};
    shape.efficiencyStepsMHz = {500};
    return shape;
}

struct Machine {
    ManualClock clock;
    SimulatedMac mac{clock, twoCores()};

    // Milliseconds that the performance core was idle and in each of its steps.
    std::vector<std::int64_t> states() {
        const auto core = mac.processors.clockResidencies()[1];
        std::vector<std::int64_t> all{core.idle / 1'000'000};
        for (const auto step : core.steps) all.push_back(step / 1'000'000);
        return all;
    }
};

TEST(SimulatedProcessors, run_in_higher_steps_the_busier_they_are) {
    Machine m;
    m.mac.processors.setLoad(1, {.user = 0.25});
    m.clock.advanceBy(seconds(1));
    EXPECT_THAT(m.states(), ElementsAre(750, 0, 250, 0));
    m.mac.processors.setLoad(1, {.user = 0.5, .system = 0.3, .nice = 0.2});
    m.clock.advanceBy(seconds(1));
    EXPECT_THAT(m.states(), ElementsAre(750, 0, 250, 1000));
    m.mac.processors.setLoad(1, {.user = 0.5625});
    m.clock.advanceBy(seconds(1));
    EXPECT_THAT(m.states(), ElementsAre(1187, 0, 531, 1281));
}

TEST(SimulatedProcessors, that_are_offline_or_asleep_spend_time_in_no_state) {
    Machine m;
    m.mac.processors.setOnline(1, false);
    m.clock.advanceBy(seconds(1));
    m.mac.processors.setOnline(1, true);
    m.mac.processors.setAsleep(true);
    m.clock.advanceBy(seconds(1));
    EXPECT_THAT(m.states(), ElementsAre(0, 0, 0, 0));
}

TEST(SimulatedProcessors, with_a_single_step_run_in_that) {
    Machine m;
    m.mac.processors.setLoad(0, {.user = 1.0});
    m.clock.advanceBy(seconds(1));
    EXPECT_EQ(m.mac.processors.clockResidencies()[0].steps, std::vector{std::int64_t{1000000000}});
}

TEST(SimulatedDevices, count_the_states_of_each_core_under_the_name_of_its_cluster) {
    Machine m;
    const auto channels = devices::coreStates(m.mac.processors);
    ASSERT_EQ(channels.size(), 2U);
    EXPECT_EQ(channels[0].name, "ECPU0");
    EXPECT_EQ(channels[1].name, "PCPU1");
    EXPECT_EQ(channels[1].states.size(), 5U);
    EXPECT_EQ(channels[1].states[1].name, "IDLE");
    EXPECT_EQ(channels[1].states[2].name, "V0P2");
}

TEST(SimulatedDevices, of_a_machine_without_levels_are_not_there) {
    ManualClock clock;
    SimulatedMac mac(clock, MacShape::withoutLevels());
    EXPECT_EQ(mac.registry.at("IODeviceTree:/cpus"), SimulatedRegistry::none);
    EXPECT_TRUE(mac.registry.ofClass("AppleARMIODevice").empty());
    EXPECT_TRUE(devices::coreStates(mac.processors).empty());
}

TEST(SimulatedGraphics, tell_whole_percentages_that_live_with_the_machine) {
    Machine m;
    m.mac.graphics.setLoad({0.254, 2.0, -1.0});
    const auto statistics = m.mac.graphics.performanceStatistics();
    EXPECT_EQ(PropertyView(statistics.at("Device Utilization %")).number(), 25);
    EXPECT_EQ(PropertyView(statistics.at("Tiler Utilization %")).number(), 100);
    EXPECT_EQ(PropertyView(statistics.at("Renderer Utilization %")).number(), 0);
    m.mac.live(1);
    double lowest = 1.0;
    double highest = 0.0;
    for (int i = 0; i < 200; ++i) {
        m.clock.advanceBy(seconds(1));
        lowest = std::min(lowest, m.mac.graphics.load().device);
        highest = std::max(highest, m.mac.graphics.load().device);
    }
    EXPECT_GT(lowest, 0.0);
    EXPECT_LE(highest, 1.0);
    EXPECT_GT(highest - lowest, 0.2);
}

}  // namespace
}  // namespace vtx
