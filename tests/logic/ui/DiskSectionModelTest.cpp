// SPDX-License-Identifier: MIT
#include "ui/models/DiskSectionModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SpokenIn.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DiskSectionModelTest : public testing::Test {
protected:
    [[nodiscard]] DiskSectionModel describe() const { return describeDiskSection(reading, texts); }
    [[nodiscard]] std::optional<DiskThroughputChart> drawn() const {
        return describeDiskSectionChart(read, write, preferences);
    }

    test::SpokenIn texts;
    std::optional<DiskIOReading> reading = DiskIOReading{};
    HistorySeries read{{Date{}, 2097152.0}};
    HistorySeries write{{Date{}, 1048576.0}};
    DisplayPreferences preferences;
};

TEST_F(DiskSectionModelTest, shows_both_ways_with_their_operations) {
    reading->bytesReadPerSecond = 38.4 * 1048576;
    reading->bytesWrittenPerSecond = 1023.0;
    reading->readIOPS = 611.6;
    reading->writeIOPS = 248.0;
    EXPECT_THAT(
        describe().summary,
        ElementsAre(
            FigureModel{"arrow.down.circle", "Read", "38.4 MB/s", Hue::cyan, "", "612 IOPS"},
            FigureModel{"arrow.up.circle", "Write", "1 KB/s", Hue::orange, "", "248 IOPS"}));
}

TEST_F(DiskSectionModelTest, without_drives_and_rates_it_says_that_nothing_moves) {
    for (const auto& nothing : {std::optional<DiskIOReading>(), std::optional(DiskIOReading{})}) {
        reading = nothing;
        const auto model = describe();
        EXPECT_EQ(model.summary.at(0).value, "0 B/s");
        EXPECT_EQ(model.summary.at(1).value, "0 B/s");
        EXPECT_EQ(model.summary.at(1).note, "— IOPS");
        EXPECT_THAT(model.volumes, IsEmpty());
    }
}

TEST_F(DiskSectionModelTest, operations_that_rest_are_zero_and_not_unknown) {
    reading->readIOPS = reading->writeIOPS = 0.0;
    EXPECT_EQ(describe().summary.at(0).note, "0 IOPS");
}

TEST_F(DiskSectionModelTest, each_drive_has_its_row_with_what_it_moved) {
    DiskIOSnapshot drive;
    drive.name = "Internal SSD";
    drive.bsdDevice = "disk0";
    drive.bytesRead = 2'040'109'466;
    drive.bytesWritten = std::uint64_t{846} << 20;
    DiskIOSnapshot nameless;
    reading->volumes = {drive, nameless};
    EXPECT_EQ(describe().volumesTitle, "Volumes");
    EXPECT_THAT(
        describe().volumes,
        ElementsAre(
            VolumeRowModel{
                "internaldrive", "Internal SSD", "disk0", {"Read", "1.9 GB"}, {"Write", "846 MB"}},
            VolumeRowModel{"internaldrive", "—", "", {"Read", "0 MB"}, {"Write", "0 MB"}}));
}

TEST_F(DiskSectionModelTest, a_drive_called_as_its_device_says_so_once) {
    DiskIOSnapshot drive;
    drive.name = "vda";
    drive.bsdDevice = "vda";
    DiskIOSnapshot nameless;
    nameless.bsdDevice = "disk3";
    reading->volumes = {drive, nameless};
    const auto volumes = describe().volumes;
    EXPECT_EQ(volumes.at(0).name, "vda");
    EXPECT_EQ(volumes.at(0).device, "");
    EXPECT_EQ(volumes.at(1).name, "—");
    EXPECT_EQ(volumes.at(1).device, "disk3");
}

TEST_F(DiskSectionModelTest, the_chart_comes_and_goes_with_its_preference) {
    EXPECT_FALSE(drawn()) << "off at a first start";
    preferences.graphsDisk = true;
    const auto chart = drawn();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->title, "Throughput history");
    EXPECT_EQ(chart->read.at(0).value, 2.0);
    EXPECT_EQ(chart->write.at(0).value, 1.0);
    EXPECT_EQ(chart->readColor, SeriesTint{SeriesRole::cyan});
    EXPECT_EQ(chart->writeColor, SeriesTint{SeriesRole::orange});
}

}  // namespace
}  // namespace vtx
