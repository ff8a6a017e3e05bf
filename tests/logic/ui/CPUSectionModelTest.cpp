// SPDX-License-Identifier: MIT
#include "ui/models/CPUSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

CoreLayout twoAndOne() {
    CoreLayout layout;
    layout.pCoreCount = 2;
    layout.eCoreCount = 1;
    layout.pCoreMaxMHz = 3700;
    return layout;
}

CPUStats readingOn(const CoreLayout& layout) {
    CPUStats stats;
    stats.layout = layout;
    stats.totalUsage = 0.23;
    stats.pCoreUsage = 0.31;
    stats.eCoreUsage = 0.09;
    stats.pPerCore = {0.72, 0.0};
    stats.ePerCore = {0.16};
    stats.pCoreCurrentFrequencyMHz = 3228;
    return stats;
}

class CPUSectionModelTest : public testing::Test {
protected:
    [[nodiscard]] CPUSectionModel describe() const {
        return describeCPUSection({layout, reading}, preferences, texts);
    }
    [[nodiscard]] std::optional<ChartCardModel> charts() const {
        return describeCPUCharts(layout, {total, pCores, eCores}, preferences, texts);
    }
    /// The titles of the charts that there are.
    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> all;
        if (const auto card = charts())
            for (const auto& chart : card->charts) all.push_back(chart.title);
        return all;
    }

    test::SpokenIn texts;
    std::optional<CoreLayout> layout = twoAndOne();
    std::optional<CPUStats> reading = readingOn(twoAndOne());
    HistorySeries total{{Date{}, 0.1}};
    HistorySeries pCores{{Date{}, 0.2}};
    HistorySeries eCores{{Date{}, 0.3}};
    DisplayPreferences preferences;
};

TEST_F(CPUSectionModelTest, the_large_figure_is_the_total_load_beside_the_cores) {
    EXPECT_EQ(describe().hero, (HeroModel{"Total", "23 %", Hue::cpu, "2 P · 1 E"}));
    const std::pair<double, const char*> cases[] = {{0.004, "0 %"}, {0.996, "100 %"}};
    for (const auto& [load, said] : cases) {
        reading->totalUsage = load;
        EXPECT_EQ(describe().hero.value, said);
    }
}

TEST_F(CPUSectionModelTest, each_kind_of_core_has_its_card) {
    const ClusterModel performance{
        "p.circle.fill",
        "P-cores",
        "31 %",
        Hue::pCore,
        {SeriesRole::pCore},
        {"3.23 GHz", "max 3.70 GHz"},
        {"Per core", "cpu", "2 Cores", {{"P1", "72 %", 0.72}, {"P2", "0 %", 0.0}}}};
    const ClusterModel efficiency{"e.circle.fill",
                                  "E-cores",
                                  "9 %",
                                  Hue::eCore,
                                  {SeriesRole::eCore},
                                  {"—", ""},
                                  {"Per core", "cpu", "1 Cores", {{"E1", "16 %", 0.16}}}};
    EXPECT_THAT(describe().clusters, ElementsAre(performance, efficiency));
    EXPECT_FALSE(describe().noLayout);
}

TEST_F(CPUSectionModelTest, a_clock_is_told_as_it_is_and_unknown_where_it_is_no_clock) {
    const std::tuple<std::optional<double>, std::optional<double>, ClockTileModel> cases[] = {
        {999.6, std::nullopt, {"1000 MHz", ""}},
        {1000.0, 0.0, {"1.00 GHz", ""}},
        {0.0, -1.0, {"—", ""}}};
    for (const auto& [current, maximum, tile] : cases) {
        reading->pCoreCurrentFrequencyMHz = current;
        reading->layout.pCoreMaxMHz = maximum;
        EXPECT_EQ(describe().clusters.at(0).clock, tile) << current.value_or(-1);
    }
}

TEST_F(CPUSectionModelTest, a_cluster_without_a_clock_is_idle_only_where_clocks_are_told) {
    const auto clocks = [this] {
        const auto clusters = describe().clusters;
        return std::vector{clusters.at(0).clock.current, clusters.at(1).clock.current};
    };
    reading->pCoreCurrentFrequencyMHz.reset();
    EXPECT_THAT(clocks(), ElementsAre("—", "—"));
    reading->layout.pCoreFrequencyStepsMHz = {600, 3228};
    EXPECT_THAT(clocks(), ElementsAre("Idle", "—"));
    reading->layout.pCoreFrequencyStepsMHz.clear();
    reading->layout.eCoreFrequencyStepsMHz = {600, 2064};
    EXPECT_THAT(clocks(), ElementsAre("—", "Idle"));
    reading->layout.eCoreFrequencyStepsMHz.clear();
    reading->seenClocks = {true, false};
    EXPECT_THAT(clocks(), ElementsAre("Idle", "—"));
    reading->seenClocks = {false, true};
    EXPECT_THAT(clocks(), ElementsAre("—", "Idle"));
}

TEST_F(CPUSectionModelTest, before_the_first_reading_the_cards_stand_with_dashes) {
    reading.reset();
    const CPUSectionModel model = describe();
    EXPECT_EQ(model.hero, (HeroModel{"Total", "—", Hue::cpu, "2 P · 1 E"}));
    ASSERT_THAT(model.clusters, SizeIs(2));
    EXPECT_EQ(model.clusters.at(0).usage, "—");
    EXPECT_EQ(model.clusters.at(0).clock, (ClockTileModel{"—", "max 3.70 GHz"}));
    EXPECT_THAT(model.clusters.at(0).cores.bars,
                ElementsAre(CoreBarModel{"P1", "—", 0.0}, CoreBarModel{"P2", "—", 0.0}));
}

TEST_F(CPUSectionModelTest, without_a_layout_a_note_stands_in_the_place_of_the_cores) {
    layout.reset();
    reading.reset();
    const CPUSectionModel model = describe();
    EXPECT_EQ(model.hero.note, "");
    EXPECT_THAT(model.clusters, IsEmpty());
    EXPECT_EQ(model.noLayout,
              (PlaceholderModel{"cpu", "CPU-Topologie konnte nicht gelesen werden.", ""}));
}

TEST_F(CPUSectionModelTest, a_kind_of_core_that_the_machine_lacks_has_neither_card_nor_chart) {
    reading->layout.eCoreCount = layout->eCoreCount = 0;
    reading->ePerCore.clear();
    EXPECT_THAT(describe().clusters, SizeIs(1));
    EXPECT_THAT(titles(), ElementsAre("CPU gesamt", "P-cores"));
    layout->pCoreCount = 0;
    EXPECT_THAT(titles(), ElementsAre("CPU gesamt"));
}

TEST_F(CPUSectionModelTest, the_card_is_gone_with_the_chart_of_the_cores_that_are_not_there) {
    preferences.graphsCPU = preferences.graphsPCore = false;
    layout->eCoreCount = 0;
    EXPECT_FALSE(charts());
}

TEST_F(CPUSectionModelTest, on_an_unknown_layout_no_kind_of_core_is_taken_to_be_missing) {
    layout.reset();
    EXPECT_THAT(titles(), ElementsAre("CPU gesamt", "P-cores", "E-cores"));
}

TEST_F(CPUSectionModelTest, bars_stay_within_their_track) {
    reading->pPerCore = {1.2, -0.3, std::numeric_limits<double>::quiet_NaN()};
    const auto bars = describe().clusters.at(0).cores.bars;
    EXPECT_EQ(bars.at(0).fraction, 1.0);
    EXPECT_EQ(bars.at(1).fraction, 0.0);
    EXPECT_EQ(bars.at(2), (CoreBarModel{"P3", "—", 0.0}));
}

TEST_F(CPUSectionModelTest, each_graph_that_is_on_has_its_chart) {
    const auto card = charts();
    ASSERT_TRUE(card);
    EXPECT_EQ(card->title, "Last 60 s");
    const std::tuple<const char*, const char*, SeriesRole, double> expected[] = {
        {"CPU gesamt", "cpu", SeriesRole::cpu, 0.1},
        {"P-cores", "p.circle", SeriesRole::pCore, 0.2},
        {"E-cores", "e.circle", SeriesRole::eCore, 0.3}};
    ASSERT_THAT(card->charts, SizeIs(3));
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& [title, symbol, role, value] = expected[i];
        EXPECT_EQ(card->charts[i].title, title);
        EXPECT_EQ(card->charts[i].symbol, symbol);
        EXPECT_EQ(card->charts[i].color, SeriesTint{role});
        EXPECT_EQ(card->charts[i].points.at(0).value, value);
    }
}

TEST_F(CPUSectionModelTest, each_preference_stands_for_its_own_chart) {
    const std::pair<bool DisplayPreferences::*, const char*> graphs[] = {
        {&DisplayPreferences::graphsCPU, "CPU gesamt"},
        {&DisplayPreferences::graphsPCore, "P-cores"},
        {&DisplayPreferences::graphsECore, "E-cores"}};
    for (const auto& [graph, title] : graphs) {
        preferences.graphsCPU = preferences.graphsPCore = preferences.graphsECore = false;
        preferences.*graph = true;
        EXPECT_THAT(titles(), ElementsAre(title));
    }
}

TEST_F(CPUSectionModelTest, with_every_graph_off_the_card_of_charts_is_gone) {
    preferences.graphsCPU = preferences.graphsPCore = preferences.graphsECore = false;
    EXPECT_FALSE(charts());
}

TEST_F(CPUSectionModelTest, the_users_colours_fill_the_bars_and_leave_the_figures) {
    preferences.colorPCore = "#FF8000";
    const auto cluster = describe().clusters.at(0);
    EXPECT_EQ(cluster.color, (SeriesTint{SeriesRole::pCore, RGBColor{255, 128, 0}}));
    EXPECT_EQ(cluster.hue, Hue::pCore);
    EXPECT_EQ(describe().clusters.at(1).color, SeriesTint{SeriesRole::eCore});
    preferences.colorECore = "#0080FF";
    EXPECT_EQ(describe().clusters.at(1).color,
              (SeriesTint{SeriesRole::eCore, RGBColor{0, 128, 255}}));
    preferences.colorPCore = "no colour";
    EXPECT_EQ(describe().clusters.at(0).color, SeriesTint{SeriesRole::pCore});
}

TEST_F(CPUSectionModelTest, two_titles_are_german_in_every_language) {
    layout.reset();
    reading.reset();
    for (const Language language : {Language::fr, Language::ja}) {
        const test::SpokenIn other(language);
        EXPECT_EQ(describe().noLayout->title, "CPU-Topologie konnte nicht gelesen werden.");
        EXPECT_EQ(charts()->charts.at(0).title, "CPU gesamt");
    }
}

}  // namespace
}  // namespace vtx
