// SPDX-License-Identifier: MIT
#include "ui/models/MemorySectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "processes/ProcessSnapshot.h"
#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Pressure = MemoryStats::Pressure;

constexpr std::uint64_t gib = std::uint64_t{1} << 30;
constexpr std::uint64_t mib = std::uint64_t{1} << 20;

MemoryStats sixteenOfThirtyTwo() {
    MemoryStats stats;
    stats.totalBytes = 32 * gib;
    stats.usedBytes = 16 * gib;
    stats.wiredBytes = 4 * gib;
    stats.activeBytes = 8 * gib;
    stats.compressedBytes = 4 * gib;
    stats.inactiveBytes = 2 * gib;
    stats.freeBytes = gib;
    stats.swapUsedBytes = 640 * mib;
    return stats;
}

ProcessSnapshot process(const char* name, std::uint64_t bytes) {
    ProcessSnapshot made;
    made.name = name;
    made.residentMemoryBytes = bytes;
    return made;
}

class MemorySectionModelTest : public testing::Test {
protected:
    [[nodiscard]] MemorySectionModel describe() const {
        return describeMemorySection({reading, pressure, consumers}, preferences, texts);
    }
    [[nodiscard]] std::optional<ChartCardModel> chart() const {
        return describeMemoryCharts(history, preferences, texts);
    }

    test::SpokenIn texts;
    std::optional<MemoryStats> reading = sixteenOfThirtyTwo();
    Pressure pressure = Pressure::normal;
    std::vector<ProcessSnapshot> consumers;
    HistorySeries history{{Date{}, 0.5}};
    DisplayPreferences preferences;
};

TEST_F(MemorySectionModelTest, before_the_first_reading_it_says_that_it_collects) {
    reading.reset();
    EXPECT_EQ(describe().collecting, "Collecting…");
    EXPECT_EQ(describe().summary, MemorySummaryModel{});
    EXPECT_EQ(describe().noConsumers, "No user processes with meaningful memory usage.");
}

TEST_F(MemorySectionModelTest, sums_up_what_is_used_and_what_is_left) {
    const auto model = describe();
    EXPECT_EQ(model.collecting, "");
    EXPECT_EQ(model.summary.hero, (HeroModel{"used", "16.0 GB", Hue::memory, "of 32.0 GB"}));
    EXPECT_EQ(model.summary.available, (KeyValueModel{"Available", "16.0 GB"}));
    EXPECT_THAT(
        model.summary.parts,
        ElementsAre(KeyValueModel{"Wired", "4.0 GB"}, KeyValueModel{"Active", "8.0 GB"},
                    KeyValueModel{"Compressed", "4.0 GB"}, KeyValueModel{"Inactive", "2.0 GB"},
                    KeyValueModel{"Free", "1.0 GB"}, KeyValueModel{"Swap", "640 MB"}));
}

TEST_F(MemorySectionModelTest, the_composition_is_told_in_parts_of_the_total) {
    EXPECT_THAT(describe().summary.composition.fractions,
                ElementsAre(0.125, 0.25, 0.125, 0.0625, 0.03125));
    EXPECT_EQ(describe().summary.composition.spoken, "Speicher-Aufteilung: 50 Prozent belegt.");
}

TEST_F(MemorySectionModelTest, the_composition_is_spoken_in_german_in_every_language) {
    const test::SpokenIn japanese(Language::ja);
    reading->usedBytes = reading->totalBytes / 3;
    EXPECT_EQ(describe().summary.composition.spoken, "Speicher-Aufteilung: 33 Prozent belegt.");
    reading->totalBytes = 0;
    EXPECT_EQ(describe().summary.composition.spoken, "Speicher-Aufteilung wird gesammelt.");
}

TEST_F(MemorySectionModelTest, a_total_that_is_not_known_leaves_what_hangs_on_it_unknown) {
    reading->totalBytes = 0;
    const auto summary = describe().summary;
    EXPECT_EQ(summary.hero.value, "16.0 GB");
    EXPECT_EQ(summary.hero.note, "of —");
    EXPECT_EQ(summary.available.value, "—");
    EXPECT_THAT(summary.composition.fractions, ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(MemorySectionModelTest, nothing_is_available_where_more_is_used_than_there_is) {
    reading->usedBytes = 33 * gib;
    EXPECT_EQ(describe().summary.available.value, "0 MB");
    EXPECT_EQ(describe().summary.composition.spoken, "Speicher-Aufteilung: 100 Prozent belegt.");
}

TEST_F(MemorySectionModelTest, the_pressure_now_has_its_word_and_colour) {
    const std::tuple<Pressure, const char*, Hue> cases[] = {
        {Pressure::normal, "Normal", Hue::green},
        {Pressure::warning, "Warning", Hue::orange},
        {Pressure::critical, "Critical", Hue::red}};
    for (const auto& [level, word, hue] : cases) {
        pressure = level;
        EXPECT_EQ(describe().summary.pressure, (PillModel{word, hue}));
    }
}

TEST_F(MemorySectionModelTest, a_banner_stands_while_the_pressure_is_not_normal) {
    EXPECT_FALSE(describe().banner);
    pressure = Pressure::warning;
    EXPECT_EQ(describe().banner,
              (PressureBannerModel{
                  "exclamationmark.circle",
                  "Memory pressure",
                  {"Warning", Hue::orange},
                  "RAM is getting tight — quitting tabs/apps reduces the load instantly."}));
    pressure = Pressure::critical;
    EXPECT_EQ(describe().banner,
              (PressureBannerModel{"exclamationmark.triangle.fill",
                                   "Memory pressure",
                                   {"Critical", Hue::red},
                                   "macOS is throttling now. Quit something from the list "
                                   "below."}));
}

TEST_F(MemorySectionModelTest, the_banner_does_not_wait_for_a_reading) {
    reading.reset();
    pressure = Pressure::critical;
    EXPECT_TRUE(describe().banner);
}

TEST_F(MemorySectionModelTest, the_largest_processes_are_weighed_against_the_total) {
    consumers = {process("Photo Studio", 8 * gib), process("", 512 * mib),
                 process("monster", 40 * gib)};
    const auto model = describe();
    EXPECT_EQ(model.consumersTitle, "Top consumers");
    EXPECT_THAT(model.consumers, ElementsAre(ConsumerRowModel{"Photo Studio", "8.0 GB", 0.25},
                                             ConsumerRowModel{"—", "512 MB", 0.015625},
                                             ConsumerRowModel{"monster", "40.0 GB", 1.0}));
    EXPECT_THAT(model.noConsumers, IsEmpty());
    reading.reset();
    EXPECT_EQ(describe().consumers.at(0).fraction, 0.0);
}

TEST_F(MemorySectionModelTest, the_users_colour_is_that_of_the_consumers_bars) {
    EXPECT_EQ(describe().color, SeriesTint{SeriesRole::memory});
    preferences.colorMemory = "#102030";
    EXPECT_EQ(describe().color, (SeriesTint{SeriesRole::memory, RGBColor{16, 32, 48}}));
}

TEST_F(MemorySectionModelTest, the_chart_comes_and_goes_with_its_preference) {
    const auto charts = chart();
    ASSERT_TRUE(charts);
    EXPECT_EQ(charts->title, "Last 60 s");
    ASSERT_EQ(charts->charts.size(), 1U);
    EXPECT_EQ(charts->charts[0].title, "RAM used");
    EXPECT_EQ(charts->charts[0].symbol, "memorychip");
    EXPECT_EQ(charts->charts[0].valueFormat(0.5), "50 %");
    preferences.graphsMemory = false;
    EXPECT_FALSE(chart());
}

}  // namespace
}  // namespace vtx
