// SPDX-License-Identifier: MIT
#include "ui/models/GPUSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;

class GPUSectionModelTest : public testing::Test {
protected:
    [[nodiscard]] GPUSectionModel describe(bool isAvailable = true) const {
        return describeGPUSection({isAvailable, reading}, preferences, texts);
    }
    [[nodiscard]] std::optional<ChartCardModel> chart(bool isAvailable = true) const {
        return describeGPUCharts(isAvailable, history, preferences, texts);
    }

    test::SpokenIn texts;
    std::optional<GPUStats> reading = GPUStats{0.42, 0.18, 0.41, {}};
    HistorySeries history{{Date{}, 0.5}};
    DisplayPreferences preferences;
    const SeriesTint violet{SeriesRole::gpu};
};

TEST_F(GPUSectionModelTest, where_no_load_is_told_there_is_the_placeholder_alone) {
    GPUSectionModel expected;
    expected.placeholder = PlaceholderModel{
        "display.trianglebadge.exclamationmark", "GPU statistics unavailable",
        "On this system IOAccelerator returns no PerformanceStatistics. Common in VMs or beta OS "
        "releases."};
    EXPECT_EQ(describe(false), expected);
}

TEST_F(GPUSectionModelTest, shows_the_load_of_the_device_and_of_its_parts) {
    const auto model = describe();
    EXPECT_EQ(model.hero, (HeroModel{"Device", "42 %", Hue::gpu, ""}));
    EXPECT_EQ(model.componentsTitle, "Components");
    EXPECT_THAT(model.components,
                ElementsAre(GPUComponentModel{"paintbrush", "Tiler", "18 %", violet},
                            GPUComponentModel{"rectangle.stack", "Renderer", "41 %", violet}));
}

TEST_F(GPUSectionModelTest, parts_without_a_load_are_dashes_without_colour) {
    reading = GPUStats{0.07, std::nullopt, 0.0, {}};
    EXPECT_THAT(describe().components,
                ElementsAre(GPUComponentModel{"paintbrush", "Tiler", "—", std::nullopt},
                            GPUComponentModel{"rectangle.stack", "Renderer", "0 %", violet}));
}

TEST_F(GPUSectionModelTest, before_the_first_reading_all_figures_are_dashes) {
    reading.reset();
    const auto model = describe();
    EXPECT_EQ(model.hero.value, "—");
    EXPECT_EQ(model.components.at(1).value, "—");
}

TEST_F(GPUSectionModelTest, the_chart_comes_and_goes_with_its_preference) {
    EXPECT_FALSE(chart(false));
    const auto charts = chart();
    ASSERT_TRUE(charts);
    ASSERT_EQ(charts->charts.size(), 1U);
    EXPECT_EQ(charts->charts[0].title, "GPU");
    EXPECT_EQ(charts->charts[0].points, history);
    preferences.graphsGPU = false;
    EXPECT_FALSE(chart());
}

TEST_F(GPUSectionModelTest, the_fixed_names_stay_in_every_language) {
    const test::SpokenIn german(Language::de);
    const auto model = describe();
    EXPECT_EQ(model.hero.title, "Device");
    EXPECT_EQ(model.components.at(0).title, "Tiler");
    EXPECT_EQ(model.componentsTitle, "Komponenten");
}

TEST_F(GPUSectionModelTest, the_heading_names_the_window) {
    preferences.historyRange = DisplayPreferences::HistoryRange::oneHour;
    EXPECT_EQ(chart()->title, "Last 1 h");
}

}  // namespace
}  // namespace vtx
