// SPDX-License-Identifier: MIT
#include "telemetry/BatteryReading.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

using PowerSource = BatteryReading::PowerSource;
using State = BatteryReading::ChargingState;
using Grade = BatteryReading::HealthGrade;

PowerSourceFigures source(std::string_view type, std::optional<std::int64_t> current,
                          std::optional<bool> charging = false) {
    PowerSourceFigures figures;
    figures.providingType = type;
    figures.currentCapacity = current;
    if (current) figures.maxCapacity = 100;
    figures.isCharging = charging;
    return figures;
}

SmartBatteryFigures entry(std::optional<std::int64_t> current, std::optional<std::int64_t> max) {
    SmartBatteryFigures figures;
    figures.currentCapacityMAh = current;
    figures.maxCapacityMAh = max;
    return figures;
}

State stateOf(const PowerSourceFigures& figures) {
    return BatteryReading::make(figures, {}).chargingState;
}

std::optional<std::int64_t> amperage(std::int64_t raw) {
    SmartBatteryFigures figures;
    figures.amperage = raw;
    return BatteryReading::make({}, figures).amperageMA;
}

TEST(BatteryReading, the_charge_is_what_the_power_sources_say_whatever_the_entry_says) {
    EXPECT_EQ(BatteryReading::make(source("AC Power", 80), entry(1, 4)).chargeFraction, 0.8);
}

TEST(BatteryReading, a_maximum_below_one_falls_through_to_the_entry) {
    for (const std::int64_t max : {0, -5}) {
        auto figures = source("AC Power", 80);
        figures.maxCapacity = max;
        EXPECT_EQ(BatteryReading::make(figures, entry(1, 4)).chargeFraction, 0.25);
        EXPECT_EQ(BatteryReading::make(figures, entry(1, 0)).chargeFraction, std::nullopt);
        EXPECT_EQ(BatteryReading::make(figures, entry(std::nullopt, 4)).chargeFraction,
                  std::nullopt);
    }
}

TEST(BatteryReading, the_charge_is_not_limited) {
    EXPECT_EQ(BatteryReading::make(source("AC Power", 120), {}).chargeFraction, 1.2);
}

TEST(BatteryReading, on_the_adapter_it_is_full_from_99_percent_on) {
    EXPECT_EQ(stateOf(source("AC Power", 99)), State::full);
    EXPECT_EQ(stateOf(source("AC Power", 98)), State::acIdle);
    EXPECT_EQ(stateOf(source("AC Power", std::nullopt)), State::acIdle);
    EXPECT_EQ(stateOf(source("AC Power", 99, std::nullopt)), State::full);
}

TEST(BatteryReading, charging_wins_over_everything) {
    EXPECT_EQ(stateOf(source("AC Power", 100, true)), State::charging);
    EXPECT_EQ(stateOf(source("Battery Power", 50, true)), State::charging);
    EXPECT_EQ(stateOf(source("UPS Power", 50, true)), State::charging);
}

TEST(BatteryReading, on_battery_it_discharges_and_elsewhere_nothing_is_known) {
    EXPECT_EQ(stateOf(source("Battery Power", 100)), State::discharging);
    EXPECT_EQ(stateOf(source("UPS Power", 100)), State::unknown);
    EXPECT_EQ(stateOf({}), State::unknown);
}

TEST(BatteryReading, the_source_is_told_by_its_exact_name) {
    const auto of = [](std::string_view type) {
        return BatteryReading::make(source(type, 1), {}).powerSource;
    };
    EXPECT_EQ(of("AC Power"), PowerSource::acAdapter);
    EXPECT_EQ(of("Battery Power"), PowerSource::battery);
    EXPECT_EQ(of("ac power"), PowerSource::unknown);
    EXPECT_EQ(BatteryReading::make({}, {}).powerSource, PowerSource::unknown);
}

TEST(BatteryReading, times_below_zero_are_still_being_calculated) {
    PowerSourceFigures figures;
    figures.minutesToEmpty = -1;
    figures.minutesToFull = -2;
    auto reading = BatteryReading::make(figures, {});
    EXPECT_EQ(reading.minutesRemaining, std::nullopt);
    EXPECT_EQ(reading.minutesUntilFull, std::nullopt);
    figures.minutesToEmpty = 0;
    figures.minutesToFull = 61;
    reading = BatteryReading::make(figures, {});
    EXPECT_EQ(reading.minutesRemaining, 0);
    EXPECT_EQ(reading.minutesUntilFull, 61);
}

TEST(BatteryReading, an_amperage_that_lost_its_sign_gets_it_back) {
    EXPECT_EQ(amperage(4'294'966'296), -1000);
    EXPECT_EQ(amperage(1'073'741'823), 1'073'741'823);
    EXPECT_EQ(amperage(1'073'741'824), -3'221'225'472);
    EXPECT_EQ(amperage(0), 0);
    EXPECT_EQ(amperage(-1000), -1000);
}

TEST(BatteryReading, health_is_graded_by_what_is_left_of_the_design) {
    EXPECT_EQ(BatteryReading::grade(900, 1000), Grade::excellent);
    EXPECT_EQ(BatteryReading::grade(8999, 10'000), Grade::good);
    EXPECT_EQ(BatteryReading::grade(800, 1000), Grade::good);
    EXPECT_EQ(BatteryReading::grade(799, 1000), Grade::fair);
    EXPECT_EQ(BatteryReading::grade(700, 1000), Grade::fair);
    EXPECT_EQ(BatteryReading::grade(6999, 10'000), Grade::poor);
    EXPECT_EQ(BatteryReading::grade(1000, 0), Grade::unknown);
    EXPECT_EQ(BatteryReading::grade(1000, std::nullopt), Grade::unknown);
    EXPECT_EQ(BatteryReading::grade(std::nullopt, 1000), Grade::unknown);
}

TEST(BatteryReading, states_are_stored_by_their_names) {
    EXPECT_EQ(rawValue(PowerSource::acAdapter), "acAdapter");
    EXPECT_EQ(rawValue(PowerSource::unknown), "unknown");
    EXPECT_EQ(rawValue(State::acIdle), "acIdle");
    EXPECT_EQ(rawValue(State::discharging), "discharging");
}

}  // namespace
}  // namespace vtx
