// SPDX-License-Identifier: MIT
#include "ui/models/FanSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fan/FanStats.h"
#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FanReading fan(int index, int current, std::optional<int> target = {}, std::optional<int> min = {},
               std::optional<int> max = {}) {
    return {index, current, target, min, max};
}

FanStats reading(std::vector<FanReading> fans) { return {std::move(fans), {}}; }

TEST(FanSectionModel, without_fans_there_is_the_placeholder_alone) {
    const test::SpokenIn texts;
    const FanSectionModel model = describeFanSection(reading({}), texts);
    EXPECT_EQ(model.placeholder, (PlaceholderModel{"fan.slash", "This Mac is fanless.", ""}));
    EXPECT_THAT(model.summary, IsEmpty());
    EXPECT_THAT(model.fans, IsEmpty());
}

TEST(FanSectionModel, sums_up_the_fastest_fan_and_the_mean_load) {
    const test::SpokenIn texts;
    const auto model = describeFanSection(
        reading({fan(0, 2000, {}, 1000, 2000), fan(1, 1200, {}, 1000, 2000)}), texts);
    EXPECT_THAT(model.summary,
                ElementsAre(FigureModel{"", "Current RPM", "2000", Hue::cyan, "", ""},
                            FigureModel{"", "Fan load", "60 %", Hue::orange, "", ""}));
    EXPECT_FALSE(model.placeholder);
}

TEST(FanSectionModel, the_load_is_cut_and_left_out_where_no_fan_tells_its_range) {
    const test::SpokenIn texts;
    const auto cut = describeFanSection(reading({fan(0, 1999, {}, 1000, 2000)}), texts);
    EXPECT_EQ(cut.summary.at(1).value, "99 %");
    EXPECT_EQ(describeFanSection(reading({fan(0, 1999)}), texts).summary.size(), 1U);
}

TEST(FanSectionModel, a_fan_shows_its_speed_between_its_limits_with_its_target) {
    const test::SpokenIn texts(Language::de);
    const auto model = describeFanSection(reading({fan(1, 1500, 1750, 1000, 2000)}), texts);
    EXPECT_THAT(model.fans, ElementsAre(FanCardModel{
                                "fan", "Lüfter 2", "1500 RPM",
                                FanGaugeModel{1500, 1750, 1000, 2000, "1000", "Ziel 1750", "2000",
                                              "Min 1000, Ziel 1750, "
                                              "Max 2000"}}));
}

TEST(FanSectionModel, a_fan_without_a_target_speaks_its_limits_alone) {
    const test::SpokenIn texts(Language::en);
    const auto model = describeFanSection(reading({fan(0, 1500, {}, 1000, 2000)}), texts);
    EXPECT_EQ(model.fans.at(0).gauge->spoken, "Min 1000, Max 2000");
}

TEST(FanSectionModel, without_both_limits_there_is_no_gauge) {
    const test::SpokenIn texts;
    const auto model = describeFanSection(
        reading({fan(0, 1500, 1750, 1000), fan(1, 1500, 1750, {}, 2000)}), texts);
    EXPECT_FALSE(model.fans.at(0).gauge);
    EXPECT_FALSE(model.fans.at(1).gauge);
}

TEST(FanSectionModel, a_fan_without_a_commanded_speed_names_none) {
    const test::SpokenIn texts;
    const auto model = describeFanSection(reading({fan(0, 1000, {}, 900, 2000)}), texts);
    EXPECT_EQ(model.fans.at(0).gauge->targetText, "");
    EXPECT_FALSE(model.fans.at(0).gauge->target);
}

}  // namespace
}  // namespace vtx
