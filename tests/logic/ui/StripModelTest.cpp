// SPDX-License-Identifier: MIT
#include "ui/models/StripModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "core/DisplayPreferences.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> idsOf(const StripModel& model) {
    std::vector<std::string> ids;
    for (const auto& tile : model.tiles) ids.push_back(tile.id);
    return ids;
}

const StripTile& tileOf(const StripModel& model, std::string_view id) {
    return *std::ranges::find(model.tiles, id, &StripTile::id);
}

DisplayPreferences everythingShown() {
    DisplayPreferences all;
    all.showGPU = all.showDiskIO = all.showFan = all.showPower = true;
    return all;
}

TEST(StripModel, as_installed_it_shows_cpu_temperature_and_memory) {
    const auto model = describeStrip({}, DisplayPreferences{});
    EXPECT_THAT(idsOf(model), ElementsAre("cpu", "thermal", "memory"));
}

TEST(StripModel, before_any_reading_every_live_label_is_a_dash) {
    StripReadings readings;
    readings.isGPUAvailable = true;
    for (const auto& tile : describeStrip(readings, everythingShown()).tiles)
        EXPECT_EQ(tile.label, "—") << tile.id;
}

TEST(StripModel, a_cpu_tile_shows_the_rounded_load) {
    StripReadings readings;
    readings.cpuUsage = 0.345;
    const auto model = describeStrip(readings, DisplayPreferences{});
    EXPECT_EQ(tileOf(model, "cpu").label, "35%");
    EXPECT_EQ(tileOf(model, "cpu").symbol, "cpu");
    EXPECT_EQ(tileOf(model, "cpu").reference, "100%");
}

TEST(StripModel, tiles_stand_in_the_users_order) {
    auto preferences = everythingShown();
    preferences.menuBarOrder = {"fan", "memory", "cpu"};
    EXPECT_THAT(idsOf(describeStrip({}, preferences)), ElementsAre("fan", "memory", "cpu"));
}

TEST(StripModel, a_tile_that_is_not_live_is_its_symbol_alone) {
    DisplayPreferences preferences;
    preferences.menuBarLiveCPU = false;
    EXPECT_EQ(tileOf(describeStrip({}, preferences), "cpu").label, std::nullopt);
}

TEST(StripModel, a_gpu_that_cannot_be_sampled_has_no_tile) {
    StripReadings readings;
    auto preferences = everythingShown();
    preferences.menuBarOrder = {"gpu"};
    EXPECT_THAT(describeStrip(readings, preferences).tiles, IsEmpty());
    readings.isGPUAvailable = true;
    EXPECT_THAT(idsOf(describeStrip(readings, preferences)), ElementsAre("gpu"));
    EXPECT_EQ(tileOf(describeStrip(readings, preferences), "gpu").label, "—");
    readings.gpuUtilization = 0.425;
    EXPECT_EQ(tileOf(describeStrip(readings, preferences), "gpu").label, "43%");
}

TEST(StripModel, neural_engine_and_unknown_identifiers_hold_a_place_but_draw_nothing) {
    auto preferences = everythingShown();
    preferences.menuBarOrder = {"ane", "power", "cpu", ""};
    EXPECT_THAT(idsOf(describeStrip({}, preferences)), ElementsAre("cpu"));
}

TEST(StripModel, an_identifier_that_is_listed_twice_has_two_tiles) {
    DisplayPreferences preferences;
    preferences.menuBarOrder = {"memory", "cpu", "memory"};
    EXPECT_THAT(idsOf(describeStrip({}, preferences)), ElementsAre("memory", "cpu", "memory"));
}

TEST(StripModel, an_empty_order_has_no_tiles) {
    DisplayPreferences preferences;
    preferences.menuBarOrder.clear();
    EXPECT_THAT(describeStrip({}, preferences).tiles, IsEmpty());
}

TEST(StripModel, an_order_of_ten_thousand_entries_fills_the_screen_and_no_more) {
    DisplayPreferences preferences;
    preferences.menuBarOrder.assign(10'000, "cpu");
    EXPECT_EQ(describeStrip({}, preferences).tiles.size(), 512U);
    preferences.menuBarOrder.assign(10'000, "nothing");
    preferences.menuBarOrder.emplace_back("cpu");
    EXPECT_THAT(idsOf(describeStrip({}, preferences)), ElementsAre("cpu"));
}

TEST(StripModel, tiles_reserve_the_widest_expected_text_of_their_kind) {
    StripReadings readings;
    readings.isGPUAvailable = true;
    std::vector<std::string> references;
    for (const auto& tile : describeStrip(readings, everythingShown()).tiles)
        references.emplace_back(tile.reference);
    EXPECT_THAT(references, ElementsAre("100%", "100%", "Critical", "100%", "100M", "5000"));
}

TEST(StripModel, very_large_figures_are_told_in_full) {
    StripReadings readings;
    readings.cpuMaxC = 104.6;
    readings.diskReadPerSecond = readings.diskWrittenPerSecond = 5e9;
    const auto model = describeStrip(readings, everythingShown());
    EXPECT_EQ(tileOf(model, "thermal").label, "105°C");
    EXPECT_EQ(tileOf(model, "disk").label, "9536M");
}

TEST(StripModel, with_every_tile_hidden_it_is_empty) {
    DisplayPreferences preferences;
    preferences.showCPU = preferences.showThermal = preferences.showMemory = false;
    EXPECT_THAT(describeStrip({}, preferences).tiles, IsEmpty());
}

TEST(StripModel, temperature_falls_back_on_the_thermal_level) {
    StripReadings readings;
    readings.thermalLevel = std::string("Serious");
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "thermal").label, "Serious");
    readings.cpuMaxC = 62.6;
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "thermal").label, "63°C");
}

TEST(StripModel, one_known_disk_rate_is_enough_for_a_label) {
    StripReadings readings;
    readings.diskReadPerSecond = 2097152;
    EXPECT_EQ(tileOf(describeStrip(readings, everythingShown()), "disk").label, "2.0M");
    readings.diskWrittenPerSecond = 1048576;
    EXPECT_EQ(tileOf(describeStrip(readings, everythingShown()), "disk").label, "3.0M");
}

TEST(StripModel, the_fan_tile_shows_the_fastest_speed_in_plain_digits) {
    StripReadings readings;
    readings.fanMaxRPM = 12000;
    const auto model = describeStrip(readings, everythingShown());
    EXPECT_EQ(tileOf(model, "fan").label, "12000");
    EXPECT_EQ(tileOf(model, "fan").reference, "5000");
}

TEST(StripModel, memory_stays_between_0_and_100_percent) {
    StripReadings readings;
    readings.memoryFraction = 1.2;
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "memory").label, "100%");
    readings.memoryFraction = -0.2;
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "memory").label, "0%");
    readings.memoryFraction = std::nan("");
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "memory").label, "—");
    EXPECT_EQ(describeStrip(readings, {}).summary, "");
}

TEST(StripModel, compact_mode_shows_the_critical_metric_alone) {
    StripReadings readings;
    readings.criticalMetric = "memory";
    DisplayPreferences preferences;
    preferences.menuBarCompact = true;
    EXPECT_THAT(idsOf(describeStrip(readings, preferences)), ElementsAre("memory"));
    preferences.showMemory = false;
    EXPECT_THAT(describeStrip(readings, preferences).tiles, IsEmpty());
    readings.criticalMetric = "";
    EXPECT_THAT(idsOf(describeStrip(readings, preferences)), ElementsAre("cpu"));
}

TEST(StripModel, the_summary_cuts_where_the_label_rounds) {
    StripReadings readings;
    readings.cpuUsage = 0.129;
    EXPECT_EQ(describeStrip(readings, {}).summary, "CPU 12 percent");
    EXPECT_EQ(tileOf(describeStrip(readings, {}), "cpu").label, "13%");
}

TEST(StripModel, the_summary_tells_compact_mode_first) {
    StripReadings readings;
    readings.cpuUsage = 0.129;
    readings.thermalLevel = "Nominal";
    DisplayPreferences preferences;
    preferences.menuBarCompact = true;
    EXPECT_EQ(describeStrip(readings, preferences).summary,
              "Compact mode active, showing cpu, CPU 12 percent, Thermal Nominal");
}

TEST(StripModel, the_summary_tells_every_metric_in_order) {
    StripReadings readings;
    readings.cpuUsage = 0.5;
    readings.gpuUtilization = 0.42;
    readings.cpuMaxC = 62.5;
    readings.memoryFraction = 0.678;
    EXPECT_EQ(describeStrip(readings, everythingShown()).summary,
              "CPU 50 percent, GPU 42 percent, CPU temperature 63 Celsius, Memory 67 percent");
    EXPECT_EQ(describeStrip(readings, {}).summary,
              "CPU 50 percent, CPU temperature 63 Celsius, Memory 67 percent");
}

}  // namespace
}  // namespace vtx
