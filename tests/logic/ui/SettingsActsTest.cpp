// SPDX-License-Identifier: MIT
#include "ui/models/SettingsActs.h"

#include <gtest/gtest.h>

#include <limits>

#include "ui/models/SettingsFields.h"

namespace vtx::settings {
namespace {

using Order = std::vector<std::string>;

DisplayPreferences ordered(Order order) {
    DisplayPreferences preferences;
    preferences.menuBarOrder = std::move(order);
    return preferences;
}

const Order seven{"0", "1", "2", "3", "4", "5", "6"};

TEST(SettingsActs, a_tile_dragged_down_takes_the_place_of_the_row_it_comes_over) {
    EXPECT_EQ(tileEntered(ordered(seven), "0", "3").menuBarOrder,
              (Order{"1", "2", "3", "0", "4", "5", "6"}));
}

TEST(SettingsActs, a_tile_dragged_up_takes_the_place_of_the_row_it_comes_over) {
    EXPECT_EQ(tileEntered(ordered(seven), "6", "2").menuBarOrder,
              (Order{"0", "1", "6", "2", "3", "4", "5"}));
}

TEST(SettingsActs, a_drag_over_its_own_row_or_with_a_tile_that_is_not_there_changes_nothing) {
    for (const auto& [dragged, over] : {std::pair{"2", "2"}, {"2", "x"}, {"x", "2"}, {"", ""}})
        EXPECT_EQ(tileEntered(ordered(seven), dragged, over).menuBarOrder, seven);
    EXPECT_EQ(tileEntered(ordered({}), "cpu", "gpu").menuBarOrder, Order{});
}

TEST(SettingsActs, a_step_changes_places_with_the_neighbour_and_stops_at_the_edge) {
    const Order order{"cpu", "ane", "gpu"};
    EXPECT_EQ(tileMoved(ordered(order), "ane", TileMove::up).menuBarOrder,
              (Order{"ane", "cpu", "gpu"}));
    EXPECT_EQ(tileMoved(ordered(order), "ane", TileMove::down).menuBarOrder,
              (Order{"cpu", "gpu", "ane"}));
    EXPECT_EQ(tileMoved(ordered(order), "cpu", TileMove::up).menuBarOrder, order);
    EXPECT_EQ(tileMoved(ordered(order), "gpu", TileMove::down).menuBarOrder, order);
    EXPECT_EQ(tileMoved(ordered(order), "disk", TileMove::up).menuBarOrder, order);
}

TEST(SettingsActs, a_slider_is_stored_by_its_scale) {
    const DisplayPreferences p;
    EXPECT_EQ(slid(p, SliderField::alertCPU, 85).alertCPUThreshold, 0.85);
    EXPECT_EQ(slid(p, SliderField::alertTemperature, 90).alertTempCelsius, 90);
    EXPECT_EQ(slid(p, SliderField::alertFan, 4599.9).alertFanRPM, 4599);
    EXPECT_EQ(slid(p, SliderField::hogCPU, 15).hogCPUThreshold, 0.15);
    EXPECT_EQ(slid(p, SliderField::hogDuration, 330).hogMinDurationSeconds, 330);
    EXPECT_EQ(slid(p, SliderField::alertFan, std::numeric_limits<double>::quiet_NaN()).alertFanRPM,
              0);
}

TEST(SettingsActs, each_slider_changes_its_own_field_alone) {
    std::vector<DisplayPreferences> results;
    for (int i = 0; i <= static_cast<int>(SliderField::hogDuration); ++i)
        results.push_back(slid({}, static_cast<SliderField>(i), 61));
    for (std::size_t i = 0; i < results.size(); ++i)
        for (std::size_t j = i + 1; j < results.size(); ++j) EXPECT_NE(results[i], results[j]);
}

TEST(SettingsActs, a_switch_changes_its_own_field_alone) {
    const DisplayPreferences before;
    DisplayPreferences expected = before;
    expected.showDiskIO = true;
    EXPECT_EQ(toggled(before, "disk", true), expected);
    expected = before;
    expected.menuBarLiveTemp = false;
    EXPECT_EQ(toggled(before, "menuBarLiveTemp", false), expected);
    expected = before;
    expected.graphsGPU = !before.graphsGPU;
    EXPECT_EQ(toggled(before, "graphsGPU", expected.graphsGPU), expected);
    expected = before;
    expected.menuBarCompact = !before.menuBarCompact;
    EXPECT_EQ(toggled(before, "menuBarCompact", expected.menuBarCompact), expected);
    expected = before;
    expected.alertDiskEnabled = !before.alertDiskEnabled;
    EXPECT_EQ(toggled(before, "alertDiskEnabled", expected.alertDiskEnabled), expected);
    EXPECT_EQ(toggled(before, "ane", false), before);
    EXPECT_EQ(toggled(before, "nothing", true), before);
}

TEST(SettingsActs, a_choice_is_stored_as_its_raw_value) {
    const DisplayPreferences p;
    EXPECT_EQ(chosen(p, "iconThermal", 1).iconThermal, "flame");
    EXPECT_EQ(chosen(p, intervalID, 0).refreshIntervalSeconds, 0.5);
    EXPECT_EQ(chosen(p, languageID, 0).languageCode, "auto");
    EXPECT_EQ(chosen(p, languageID, 13).languageCode, "ko");
    EXPECT_EQ(chosen(p, chartStyleID, 2).chartStyle, DisplayPreferences::ChartStyle::bar);
    EXPECT_EQ(chosen(p, presetID, 0), p.applyingPreset(DisplayPreferences::Preset::minimal));
}

TEST(SettingsActs, a_choice_that_is_none_changes_nothing) {
    const DisplayPreferences p;
    for (const auto id : {intervalID, languageID, chartStyleID, presetID,
                          std::string_view("iconFan"), std::string_view("nothing")}) {
        EXPECT_EQ(chosen(p, id, -1), p) << id;
        EXPECT_EQ(chosen(p, id, 99), p) << id;
    }
}

TEST(SettingsActs, a_colour_is_stored_in_capitals_behind_a_number_sign) {
    EXPECT_EQ(encodeHex(1, 0.5, 0), "#FF8000");
    EXPECT_EQ(encodeHex(-1, 2, std::numeric_limits<double>::quiet_NaN()), "#00FF00");
    const auto changed = recolored({}, "colorECore", "#FF8000");
    EXPECT_EQ(changed.colorECore, "#FF8000");
    EXPECT_EQ(colorText(changed, "colorECore"), "#FF8000");
    EXPECT_EQ(recolored(changed, "colorECore", "").colorECore, "");
    EXPECT_EQ(recolored({}, "colorANE", "#FF8000"), DisplayPreferences{});
    EXPECT_EQ(colorText(changed, "colorANE"), "");
}

}  // namespace
}  // namespace vtx::settings
