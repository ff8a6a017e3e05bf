// SPDX-License-Identifier: MIT
#include "ui/models/BatterySectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using State = BatteryReading::ChargingState;
using Source = BatteryReading::PowerSource;

class BatterySectionModelTest : public testing::Test {
protected:
    BatterySectionModel describe(const BatteryReading& reading) {
        readings.reading = reading;
        return describeBatterySection(readings, texts);
    }
    static BatteryReading in(State state) {
        BatteryReading reading;
        reading.chargingState = state;
        return reading;
    }

    test::SpokenIn texts;
    BatterySectionReadings readings;
};

TEST_F(BatterySectionModelTest, on_a_machine_without_a_battery_it_is_a_single_card) {
    readings.isAvailable = false;
    BatterySectionModel expected;
    expected.placeholder = PlaceholderModel{"powerplug.fill", "This Mac has no battery.", ""};
    EXPECT_EQ(describe({}), expected);
}

TEST_F(BatterySectionModelTest, before_the_first_reading_it_says_that_it_collects) {
    BatterySectionModel expected;
    expected.collecting = "Collecting…";
    EXPECT_EQ(describeBatterySection(readings, texts), expected);
}

TEST_F(BatterySectionModelTest, what_the_battery_does_not_tell_is_a_dash) {
    const auto model = describe({});
    EXPECT_EQ(model.charge.hero, (HeroModel{"Charge", "—", Hue::primary, "—"}));
    EXPECT_EQ(model.charge.fraction, 0.0);
    EXPECT_EQ(model.charge.tint, Hue::accent);
    EXPECT_EQ(model.status, (std::vector<KeyValueModel>{{"Power source", "—"}}));
    EXPECT_EQ(model.health.grade, (PillModel{"—", Hue::primary}));
    EXPECT_EQ(model.health.rows,
              (std::vector<KeyValueModel>{
                  {"Max capacity", "—"}, {"Cycle count", "—"}, {"Temperature", "—"}}));
    EXPECT_THAT(model.details, IsEmpty());
}

TEST_F(BatterySectionModelTest, the_charge_is_rounded_and_its_bar_stays_within_its_track) {
    auto reading = in(State::discharging);
    const std::tuple<double, const char*, double> cases[] = {{0.684, "68 %", 0.684},
                                                             {0.996, "100 %", 0.996},
                                                             {1.04, "104 %", 1.0},
                                                             {-0.1, "-10 %", 0.0}};
    for (const auto& [fraction, text, drawn] : cases) {
        reading.chargeFraction = fraction;
        const auto charge = describe(reading).charge;
        EXPECT_EQ(charge.hero.value, text);
        EXPECT_EQ(charge.fraction, drawn);
    }
}

TEST_F(BatterySectionModelTest, each_state_has_its_word) {
    const std::pair<State, const char*> cases[] = {{State::charging, "Charging"},
                                                   {State::discharging, "On battery"},
                                                   {State::full, "Fully charged"},
                                                   {State::acIdle, "Power adapter"},
                                                   {State::unknown, "—"}};
    for (const auto& [state, text] : cases) EXPECT_EQ(describe(in(state)).charge.hero.note, text);
}

TEST_F(BatterySectionModelTest, the_charge_is_tinted_by_what_is_left_unless_power_comes_in) {
    const std::tuple<std::optional<double>, State, Hue> cases[] = {
        {0.05, State::charging, Hue::green},
        {0.05, State::full, Hue::green},
        {std::nullopt, State::full, Hue::green},
        {0.0999, State::discharging, Hue::red},
        {0.1, State::discharging, Hue::orange},
        {0.2499, State::discharging, Hue::orange},
        {0.25, State::discharging, Hue::yellow},
        {0.4999, State::discharging, Hue::yellow},
        {0.5, State::discharging, Hue::green},
        {0.09, State::acIdle, Hue::red},
        {0.3, State::unknown, Hue::yellow},
        {std::nullopt, State::discharging, Hue::accent},
        {std::numeric_limits<double>::quiet_NaN(), State::discharging, Hue::accent}};
    for (const auto& [fraction, state, hue] : cases)
        EXPECT_EQ(chargeTint(fraction, state), hue) << fraction.value_or(-1);
}

TEST_F(BatterySectionModelTest, low_power_mode_is_said_only_while_it_is_on) {
    BatteryReading reading;
    EXPECT_EQ(describe(reading).charge.lowPowerMode, "");
    reading.lowPowerModeEnabled = true;
    EXPECT_EQ(describe(reading).charge.lowPowerMode, "Low Power Mode");
    EXPECT_EQ(describe(reading).charge.lowPowerSymbol, "leaf");
}

TEST_F(BatterySectionModelTest, the_status_tells_the_time_that_matters) {
    using Rows = std::vector<KeyValueModel>;
    auto reading = in(State::discharging);
    reading.powerSource = Source::battery;
    reading.minutesRemaining = 252;
    reading.minutesUntilFull = 61;
    EXPECT_EQ(describe(reading).status,
              (Rows{{"Power source", "On battery"}, {"Time remaining", "4 h 12 min"}}));
    reading.powerSource = Source::acAdapter;
    reading.chargingState = State::charging;
    EXPECT_EQ(describe(reading).status,
              (Rows{{"Power source", "Power adapter"}, {"Time until full", "1 h 1 min"}}));
    for (const State state : {State::full, State::acIdle}) {
        reading.chargingState = state;
        EXPECT_EQ(describe(reading).status,
                  (Rows{{"Power source", "Power adapter"}, {"Charged", "Fully charged"}}));
    }
}

TEST_F(BatterySectionModelTest, a_time_that_is_not_known_is_being_calculated) {
    EXPECT_EQ(describe(in(State::discharging)).status.at(1),
              (KeyValueModel{"Time remaining", "Calculating…"}));
    EXPECT_EQ(describe(in(State::charging)).status.at(1),
              (KeyValueModel{"Time until full", "Calculating…"}));
}

TEST_F(BatterySectionModelTest, health_weighs_the_capacity_against_the_design) {
    readings.designCapacityMAh = 1000;
    readings.cycleCount = 184;
    BatteryReading reading;
    reading.temperatureC = 31.4;
    const std::tuple<std::int64_t, PillModel, const char*> cases[] = {
        {910, {"Excellent", Hue::green}, "910 mAh (91 %)"},
        {800, {"Good", Hue::green}, "800 mAh (80 %)"},
        {700, {"Fair", Hue::orange}, "700 mAh (70 %)"},
        {699, {"Service recommended", Hue::red}, "699 mAh (70 %)"},
        {0, {"Service recommended", Hue::red}, "0 mAh (0 %)"}};
    for (const auto& [capacity, grade, text] : cases) {
        reading.maxCapacityMAh = capacity;
        const auto health = describe(reading).health;
        EXPECT_EQ(health.grade, grade);
        EXPECT_THAT(health.rows, ElementsAre(KeyValueModel{"Max capacity", text},
                                             KeyValueModel{"Cycle count", "184"},
                                             KeyValueModel{"Temperature", "31 °C"}));
    }
}

TEST_F(BatterySectionModelTest, a_capacity_without_a_design_has_no_share_and_no_grade) {
    BatteryReading reading;
    reading.maxCapacityMAh = 7913;
    for (const auto design : {std::optional<std::int64_t>(), std::optional<std::int64_t>(0)}) {
        readings.designCapacityMAh = design;
        EXPECT_EQ(describe(reading).health.rows.at(0).value, "7913 mAh (—)");
        EXPECT_EQ(describe(reading).health.grade.text, "—");
    }
}

TEST_F(BatterySectionModelTest, the_details_tell_current_and_power) {
    BatteryReading reading;
    reading.currentCapacityMAh = 5381;
    reading.voltageMV = 12310;
    reading.amperageMA = -1284;
    EXPECT_THAT(
        describe(reading).details,
        ElementsAre(KeyValueModel{"Current capacity", "5381 mAh"},
                    KeyValueModel{"Voltage", "12.31 V"}, KeyValueModel{"Current", "-1284 mA"},
                    KeyValueModel{"Power draw", "15.8 W"}));
}

TEST_F(BatterySectionModelTest, details_need_a_capacity_or_a_voltage) {
    BatteryReading reading;
    reading.amperageMA = 500;
    EXPECT_THAT(describe(reading).details, IsEmpty());
    reading.currentCapacityMAh = 0;
    const auto details = describe(reading).details;
    EXPECT_EQ(details.at(0).value, "0 mAh");
    EXPECT_EQ(details.at(1).value, "—");
    EXPECT_EQ(details.at(3).value, "—");
}

TEST_F(BatterySectionModelTest, extreme_figures_give_a_power_all_the_same) {
    BatteryReading reading;
    reading.voltageMV = std::numeric_limits<std::int64_t>::max();
    reading.amperageMA = std::numeric_limits<std::int64_t>::min();
    EXPECT_TRUE(describe(reading).details.at(3).value.ends_with(" W"));
}

TEST_F(BatterySectionModelTest, without_a_current_there_is_no_power) {
    BatteryReading reading;
    reading.voltageMV = 12310;
    const auto details = describe(reading).details;
    EXPECT_EQ(details.at(1).value, "12.31 V");
    EXPECT_EQ(details.at(2).value, "—");
    EXPECT_EQ(details.at(3).value, "—");
}

}  // namespace
}  // namespace vtx
