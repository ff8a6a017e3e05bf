// SPDX-License-Identifier: MIT
#include "telemetry/BatteryMonitor.h"

#include <gtest/gtest.h>

#include "platform/simulated/Operations.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using State = BatteryReading::ChargingState;

struct Monitored {
    explicit Monitored(MacShape shape = MacShape::laptop()) : bench(std::move(shape)) {}
    TestBench bench;
    BatteryMonitor monitor{bench.ports()};

    const BatteryReading& refresh() {
        monitor.refresh(std::nullopt, false);
        return monitor.latest->value();
    }
};

TEST(BatteryMonitor, a_refresh_merges_both_views_and_what_the_caller_knows) {
    Monitored m;
    m.bench.mac.setPower(SimulatedPower::battery);
    BatteryFigures figures;
    figures.minutesToEmpty = 125;
    figures.amperage = -1500;
    m.bench.mac.setBattery(figures);
    EXPECT_TRUE(m.monitor.isAvailable());
    EXPECT_EQ(*m.monitor.latest, std::nullopt);
    m.monitor.refresh(31.5, true);
    BatteryReading expected;
    expected.chargeFraction = 0.8;
    expected.powerSource = BatteryReading::PowerSource::battery;
    expected.chargingState = State::discharging;
    expected.minutesRemaining = 125;
    expected.currentCapacityMAh = 3600;
    expected.maxCapacityMAh = 4500;
    expected.voltageMV = 12'400;
    expected.amperageMA = -1500;
    expected.lowPowerModeEnabled = true;
    expected.temperatureC = 31.5;
    expected.timestamp = m.bench.clock.now();
    EXPECT_EQ(*m.monitor.latest, expected);
}

TEST(BatteryMonitor, a_machine_without_a_battery_never_has_a_reading) {
    Monitored m(MacShape::standard());
    EXPECT_FALSE(m.monitor.isAvailable());
    m.bench.platform.resetCalls();
    m.monitor.refresh(20.0, true);
    EXPECT_EQ(*m.monitor.latest, std::nullopt);
    EXPECT_EQ(m.bench.platform.totalCalls(), 0U);
}

TEST(BatteryMonitor, a_battery_that_tells_nothing_still_has_a_reading_at_every_tick) {
    Monitored m;
    m.bench.mac.setPower(SimulatedPower::unknown);
    BatteryFigures nothing;
    nothing.currentCapacity = nothing.maxCapacity = nothing.minutesToFull = nothing.minutesToEmpty =
        nothing.rawCurrentCapacity = nothing.rawMaxCapacity = nothing.voltage = nothing.amperage =
            std::nullopt;
    nothing.isCharging = std::nullopt;
    m.bench.mac.setBattery(nothing);
    BatteryReading expected;
    expected.timestamp = m.bench.clock.now();
    EXPECT_EQ(m.refresh(), expected);
}

TEST(BatteryMonitor, every_failure_leaves_the_other_view) {
    for (const auto operation : {operations::powerSourcesNull, operations::powerSourcesList,
                                 operations::powerSourcesDescription}) {
        Monitored m;
        m.bench.failures.failNext(operation);
        EXPECT_EQ(m.refresh().chargeFraction, 0.8) << operation << ": by the entry";
        EXPECT_EQ(m.refresh().voltageMV, 12'400);
        EXPECT_FALSE(m.bench.failures.hasUnused());
    }
    for (const auto operation :
         {operations::serviceMatching, operations::getMatchingService,
          operations::createCFProperties, operations::createCFPropertiesNull}) {
        Monitored m;
        m.bench.failures.failNext(operation);
        EXPECT_EQ(m.refresh().voltageMV, std::nullopt) << operation;
        EXPECT_EQ(m.refresh().chargeFraction, 0.8);
        EXPECT_FALSE(m.bench.failures.hasUnused());
    }
}

TEST(BatteryMonitor, a_type_that_is_missing_is_an_unknown_source) {
    Monitored m;
    m.bench.failures.failNext(operations::powerSourcesType);
    EXPECT_EQ(m.refresh().powerSource, BatteryReading::PowerSource::unknown);
    EXPECT_EQ(m.refresh().powerSource, BatteryReading::PowerSource::acAdapter);
}

TEST(BatteryMonitor,
     the_older_name_of_the_maximum_serves_where_the_newer_is_missing_or_no_integer) {
    Monitored m;
    BatteryFigures figures;
    figures.rawMaxCapacity = std::nullopt;
    m.bench.mac.setBattery(figures);
    const auto node = m.bench.mac.registry.ofClass("AppleSmartBattery").front();
    m.bench.mac.registry.set(node, "MaxCapacity", 4500);
    EXPECT_EQ(m.refresh().maxCapacityMAh, 4500);
    m.bench.mac.registry.set(node, "AppleRawMaxCapacity", "4400");
    EXPECT_EQ(m.refresh().maxCapacityMAh, 4500);
    m.bench.mac.registry.set(node, "AppleRawMaxCapacity", 4400);
    EXPECT_EQ(m.refresh().maxCapacityMAh, 4400);
}

TEST(BatteryMonitor, availability_is_decided_once) {
    Monitored m;
    m.bench.mac.registry.remove(m.bench.mac.registry.ofClass("AppleSmartBattery").front());
    EXPECT_TRUE(m.monitor.isAvailable());
    EXPECT_EQ(m.refresh().voltageMV, std::nullopt);
}

TEST(BatteryMonitor, keeps_nothing_of_the_platform_and_says_nothing) {
    Monitored m;
    const auto before = m.bench.log.lines().size();
    m.bench.failures.failNext(operations::powerSourcesNull);
    static_cast<void>(m.refresh());
    static_cast<void>(m.refresh());
    EXPECT_EQ(m.bench.platform.outstanding(), 0U);
    EXPECT_EQ(m.bench.log.lines().size(), before);
}

TEST(SimulatedBattery, a_living_one_drains_on_battery_and_charges_on_mains) {
    Monitored m;
    m.bench.mac.live(1);
    const auto full = m.refresh();
    EXPECT_EQ(full.chargingState, State::discharging);
    m.bench.clock.advanceBy(std::chrono::minutes(9));
    const auto low = m.refresh();
    EXPECT_LT(*low.chargeFraction, *full.chargeFraction);
    EXPECT_LT(*low.amperageMA, 0);
    EXPECT_TRUE(low.minutesRemaining && !low.minutesUntilFull);
    m.bench.clock.advanceBy(std::chrono::minutes(5));
    const auto charging = m.refresh();
    EXPECT_EQ(charging.chargingState, State::charging);
    EXPECT_GT(*charging.chargeFraction, *low.chargeFraction);
    EXPECT_GT(*charging.amperageMA, 0);
    EXPECT_TRUE(charging.minutesUntilFull && !charging.minutesRemaining);
}

}  // namespace
}  // namespace vtx
