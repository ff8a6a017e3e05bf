// SPDX-License-Identifier: MIT
// When a metric is told of, and when it is not.
#include "alerts/AlertsService.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/AlertsBench.h"

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;

struct LoadAlert : testing::Test {
    AlertsBench a;
    void SetUp() override { a.rules.cpu = {true, 0.9}; }
};

TEST_F(LoadAlert, at_the_threshold_counts_as_above_and_ten_seconds_are_enough) {
    a.setCPU(0.9);
    a.roundAt(0);
    a.roundAt(5);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(10);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(LoadAlert, less_than_ten_seconds_are_not_enough) {
    a.setCPU(1.0);
    a.roundAt(0);
    a.roundAt(9.999);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(LoadAlert, just_below_the_threshold_is_below) {
    a.setCPU(std::nextafter(0.9, 0.0));
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(LoadAlert, a_value_that_stays_above_for_an_hour_is_told_once) {
    a.setCPU(1.0);
    a.rounds(0, 3600);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(LoadAlert, a_dip_of_one_round_starts_the_time_again) {
    a.setCPU(1.0);
    a.rounds(0, 7);
    a.setCPU(0.89);
    a.roundAt(8);
    a.setCPU(1.0);
    a.rounds(9, 18);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(19);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(LoadAlert, a_dip_between_two_crossings_arms_it_again_at_once) {
    a.setCPU(1.0);
    a.rounds(0, 10);
    a.setCPU(0.89);
    a.roundAt(11);
    a.setCPU(1.0);
    a.rounds(12, 21);
    EXPECT_EQ(a.sent(), 1U);
    a.roundAt(22);
    EXPECT_EQ(a.sent(), 2U);
    EXPECT_EQ(a.center.shown().size(), 1U) << "the newer one replaces the older one";
}

TEST_F(LoadAlert, with_its_switch_off_nothing_is_told) {
    a.rules.cpu.isEnabled = false;
    a.rules.gpu.isEnabled = true;
    a.setCPU(1.0);
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(LoadAlert, all_switches_off_arms_it_again_and_keeps_the_time) {
    a.setCPU(1.0);
    a.rounds(0, 10);
    a.rules.cpu.isEnabled = false;
    a.rounds(11, 12);
    a.rules.cpu.isEnabled = true;
    a.roundAt(13);
    EXPECT_EQ(a.sent(), 2U);
    a.rounds(14, 60);
    EXPECT_EQ(a.sent(), 2U);
}

TEST_F(LoadAlert, its_own_switch_off_arms_it_again_and_keeps_the_time) {
    a.rules.gpu = {true, 0.9};
    a.setCPU(1.0);
    a.rounds(0, 3);
    a.rules.cpu.isEnabled = false;
    a.rounds(4, 20);
    EXPECT_EQ(a.sent(), 0U);
    a.rules.cpu.isEnabled = true;
    a.roundAt(21);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(LoadAlert, a_reading_that_is_missing_arms_it_again_and_keeps_the_time) {
    a.setCPU(1.0);
    a.rounds(0, 10);
    a.cpu.reset();
    a.roundAt(11);
    a.setCPU(1.0);
    a.roundAt(12);
    EXPECT_EQ(a.sent(), 2U);
}

TEST_F(LoadAlert, what_is_no_number_is_never_above) {
    a.setCPU(std::numeric_limits<double>::quiet_NaN());
    a.rounds(0, 20);
    a.rules.cpu.threshold = std::numeric_limits<double>::quiet_NaN();
    a.setCPU(1.0);
    a.rounds(21, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(LoadAlert, setting_the_date_does_not_count_as_time) {
    a.setCPU(1.0);
    a.roundAt(0);
    a.clock.setWallClock(ManualClock::start + std::chrono::hours(24));
    a.roundAt(5);
    EXPECT_EQ(a.sent(), 0U);
    a.clock.setWallClock(ManualClock::start - std::chrono::hours(24));
    a.roundAt(10);
    EXPECT_EQ(a.sent(), 1U);
}

TEST(GraphicsAlert, is_told_after_ten_seconds) {
    AlertsBench a;
    a.rules.gpu = {true, 0.9};
    a.setGPU(0.95);
    a.rounds(0, 9);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(10);
    EXPECT_EQ(a.center.posted().at(0).identifier, "vantrix.alert.gpu");
}

struct MemoryAlert : testing::Test {
    AlertsBench a;
    void SetUp() override { a.rules.memory = {true, 0.9}; }
};

TEST_F(MemoryAlert, is_told_after_thirty_seconds) {
    a.setMemory(9, 10);
    a.rounds(0, 29);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(30);
    EXPECT_EQ(a.center.posted().at(0).identifier, "vantrix.alert.memory");
}

TEST_F(MemoryAlert, a_total_of_zero_is_below_any_threshold) {
    a.rules.memory.threshold = 0.01;
    a.setMemory(5, 0);
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(MemoryAlert, more_than_all_counts_as_all) {
    a.setMemory(30, 10);
    a.rounds(0, 30);
    EXPECT_EQ(a.bodies(), std::vector<std::string>{"RAM at 100% used"});
}

struct PressureAlert : testing::Test {
    AlertsBench a;
    void SetUp() override { a.rules.isPressureEnabled = true; }
};

TEST_F(PressureAlert, critical_pressure_is_told_after_thirty_seconds) {
    a.setPressure(Pressure::critical);
    a.rounds(0, 29);
    EXPECT_EQ(a.sent(), 0U);
    a.rounds(30, 300);
    ASSERT_EQ(a.sent(), 1U);
    EXPECT_EQ(a.center.posted().at(0).identifier, "vantrix.alert.pressure");
}

TEST_F(PressureAlert, a_warning_is_not_critical) {
    a.setPressure(Pressure::warning);
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(PressureAlert, without_a_thermal_reading_there_is_none) {
    a.thermal.reset();
    a.setPressure(Pressure::critical);
    a.rounds(0, 60);
    EXPECT_EQ(a.sent(), 0U);
}

TEST_F(PressureAlert, a_thermal_reading_that_is_missing_for_a_round_starts_the_time_again) {
    a.setPressure(Pressure::critical);
    a.rounds(0, 20);
    a.thermal.reset();
    a.roundAt(21);
    a.thermal = ThermalStats{};
    a.rounds(22, 51);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(52);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(PressureAlert, its_switch_off_or_a_missing_reading_starts_the_time_again) {
    a.rules.cpu = {true, 0.9};
    a.setPressure(Pressure::critical);
    a.rounds(0, 20);
    a.rules.isPressureEnabled = false;
    a.roundAt(21);
    a.rules.isPressureEnabled = true;
    a.rounds(22, 40);
    a.memory.reset();
    a.roundAt(41);
    a.setPressure(Pressure::critical);
    a.rounds(42, 71);
    EXPECT_EQ(a.sent(), 0U);
    a.roundAt(72);
    EXPECT_EQ(a.sent(), 1U);
}

struct TemperatureAlert : testing::Test {
    AlertsBench a;
    void SetUp() override { a.rules.temperature = {true, 90.0}; }
};

TEST_F(TemperatureAlert, is_told_after_ten_seconds) {
    a.setTemperature(90.0);
    a.rounds(0, 9);
    EXPECT_EQ(a.sent(), 0U);
    a.rounds(10, 60);
    ASSERT_EQ(a.sent(), 1U);
    EXPECT_EQ(a.center.posted().at(0).identifier, "vantrix.alert.temperature");
}

TEST_F(TemperatureAlert, a_reading_that_vanishes_lets_the_time_go_on) {
    a.setTemperature(95.0);
    a.roundAt(0);
    a.temperature.reset();
    a.rounds(1, 10);
    a.setTemperature(std::nullopt);
    a.rounds(11, 20);
    EXPECT_EQ(a.sent(), 0U);
    a.setTemperature(95.0);
    a.roundAt(21);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(TemperatureAlert, a_reading_that_vanishes_does_not_arm_it_again) {
    a.setTemperature(95.0);
    a.rounds(0, 10);
    a.temperature.reset();
    a.roundAt(11);
    a.setTemperature(95.0);
    a.rounds(12, 60);
    EXPECT_EQ(a.sent(), 1U);
}

TEST_F(TemperatureAlert, its_switch_off_starts_the_time_again) {
    a.rules.cpu = {true, 0.9};
    a.setTemperature(95.0);
    a.rounds(0, 10);
    a.rules.temperature.isEnabled = false;
    a.roundAt(11);
    a.rules.temperature.isEnabled = true;
    a.rounds(12, 21);
    EXPECT_EQ(a.sent(), 1U);
    a.roundAt(22);
    EXPECT_EQ(a.sent(), 2U);
}

TEST_F(TemperatureAlert, all_switches_off_arms_it_again_and_keeps_the_time) {
    a.setTemperature(95.0);
    a.rounds(0, 10);
    a.rules.temperature.isEnabled = false;
    a.roundAt(11);
    a.rules.temperature.isEnabled = true;
    a.roundAt(12);
    EXPECT_EQ(a.sent(), 2U);
}

TEST(Alerts, metrics_that_cross_together_are_told_in_their_order) {
    AlertsBench a;
    a.rules = {{true, 0.1}, {true, 0.1}, {true, 0.1}, true, {true, 50.0}};
    a.setCPU(0.5);
    a.setGPU(0.5);
    a.setMemory(1, 2);
    a.memory->pressure = Pressure::critical;
    a.setTemperature(60.0);
    a.roundAt(0);
    a.roundAt(30);
    std::vector<std::string> order;
    for (const auto& request : a.center.posted()) order.push_back(request.identifier.substr(14));
    EXPECT_EQ(order, (std::vector<std::string>{"cpu", "gpu", "memory", "pressure", "temperature"}));
}

}  // namespace
}  // namespace vtx
