// SPDX-License-Identifier: MIT
#include "ui/models/OverviewModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace vtx {
namespace {

using testing::ElementsAre;

CoreLayout eightAndFour() {
    CoreLayout layout;
    layout.pCoreCount = 8;
    layout.eCoreCount = 4;
    return layout;
}

const MetricRowModel& rowOf(const std::vector<MetricRowModel>& rows, std::string_view title) {
    return *std::ranges::find(rows, title, &MetricRowModel::title);
}

bool hasRow(const std::vector<MetricRowModel>& rows, std::string_view title) {
    return std::ranges::find(rows, title, &MetricRowModel::title) != rows.end();
}

CPUStats readingOf(double total, double p, double e) {
    CPUStats stats;
    stats.totalUsage = total;
    stats.pCoreUsage = p;
    stats.eCoreUsage = e;
    stats.layout = eightAndFour();
    return stats;
}

/// Readings that a test sets itself.
struct Told {
    std::optional<CoreLayout> layout = std::nullopt;
    std::optional<CPUStats> cpu = std::nullopt;
    std::optional<GPUStats> gpu = std::nullopt;
    std::optional<TemperatureReading> temperature = std::nullopt;
    std::optional<MemoryStats> memory = std::nullopt;
};

std::vector<MetricRowModel> rowsFor(const Told& told) {
    return describeOverview({told.layout,
                             told.cpu,
                             told.gpu,
                             told.temperature,
                             told.memory,
                             MemoryStats::Pressure::normal,
                             {}})
        .liveRows;
}

TEST(OverviewModel, before_any_reading_the_rows_stand_with_dashes) {
    EXPECT_THAT(rowsFor({eightAndFour(), std::nullopt}),
                ElementsAre(MetricRowModel{"cpu", "CPU", "—", Tint::primary},
                            MetricRowModel{"p.circle", "P-cores (8)", "—", Tint::primary},
                            MetricRowModel{"e.circle", "E-cores (4)", "—", Tint::primary},
                            MetricRowModel{"display", "GPU", "—", Tint::primary},
                            MetricRowModel{"thermometer.variable", "Temperature", "—"},
                            MetricRowModel{"memorychip", "Memory used", "—"},
                            MetricRowModel{"arrow.triangle.swap", "Swap", "—"}));
}

TEST(OverviewModel, rows_show_the_loads_with_their_tints) {
    EXPECT_THAT(rowsFor({eightAndFour(), readingOf(0.97, 0.88, 0.74)}),
                ElementsAre(MetricRowModel{"cpu", "CPU", "97 %", Tint::red},
                            MetricRowModel{"p.circle", "P-cores (8)", "88 %", Tint::orange},
                            MetricRowModel{"e.circle", "E-cores (4)", "74 %", Tint::yellow},
                            MetricRowModel{"display", "GPU", "—", Tint::primary},
                            MetricRowModel{"thermometer.variable", "Temperature", "—"},
                            MetricRowModel{"memorychip", "Memory used", "—"},
                            MetricRowModel{"arrow.triangle.swap", "Swap", "—"}));
}

TEST(OverviewModel, a_cluster_without_cores_has_no_row) {
    auto reading = readingOf(0.1, 0.1, 0.0);
    reading.layout.eCoreCount = 0;
    const auto rows = rowsFor({reading.layout, reading});
    EXPECT_EQ(rows.at(1).title, "P-cores (8)");
    EXPECT_EQ(rows.at(2).title, "GPU");
}

TEST(OverviewModel, clocks_have_rows_where_they_are_measured) {
    auto reading = readingOf(0.1, 0.1, 0.1);
    reading.pCoreCurrentFrequencyMHz = 3228;
    const auto rows = rowsFor({eightAndFour(), reading});
    EXPECT_EQ(rows.at(3), (MetricRowModel{"waveform.path.ecg", "P-Core Clock", "3.23 GHz"}));
    EXPECT_EQ(rows.at(4).title, "GPU");
}

TEST(OverviewModel, a_clock_that_is_missing_for_a_tick_keeps_its_row_where_there_is_a_table) {
    auto reading = readingOf(0.1, 0.1, 0.1);
    reading.layout.pCoreFrequencyStepsMHz = {600, 3228};
    reading.layout.eCoreFrequencyStepsMHz = {600, 2064};
    reading.eCoreCurrentFrequencyMHz = 999.6;
    const auto rows = rowsFor({reading.layout, reading});
    EXPECT_EQ(rows.at(3), (MetricRowModel{"waveform.path.ecg", "P-Core Clock", "—"}));
    EXPECT_EQ(rows.at(4), (MetricRowModel{"waveform.path.ecg", "E-Core Clock", "1000 MHz"}));
    const auto without = rowsFor({reading.layout, std::nullopt});
    EXPECT_TRUE(hasRow(without, "P-Core Clock") && hasRow(without, "E-Core Clock"));
}

TEST(OverviewModel, a_clock_that_was_seen_keeps_its_row_without_a_table) {
    const auto reading = readingOf(0.1, 0.1, 0.1);
    Told told{eightAndFour(), reading};
    EXPECT_FALSE(hasRow(rowsFor(told), "P-Core Clock"));
    told.cpu->seenClocks = {true, false};
    const auto withP = rowsFor(told);
    EXPECT_EQ(rowOf(withP, "P-Core Clock").value, "—");
    EXPECT_FALSE(hasRow(withP, "E-Core Clock"));
    told.cpu->seenClocks = {false, true};
    EXPECT_FALSE(hasRow(rowsFor(told), "P-Core Clock"));
    EXPECT_TRUE(hasRow(rowsFor(told), "E-Core Clock"));
}

TEST(OverviewModel, a_cluster_without_cores_has_no_clock_row_for_its_table) {
    auto reading = readingOf(0.1, 0.1, 0.0);
    reading.layout.eCoreCount = 0;
    reading.layout.eCoreFrequencyStepsMHz = {600, 2064};
    const auto rows = rowsFor({reading.layout, reading});
    EXPECT_FALSE(hasRow(rows, "E-Core Clock"));
}

TEST(OverviewModel, the_graphics_load_has_its_row_and_tint) {
    GPUStats gpu;
    gpu.deviceUtilization = 0.86;
    const auto rows = rowsFor({eightAndFour(), readingOf(0.1, 0.1, 0.1), gpu});
    EXPECT_EQ(rowOf(rows, "GPU"), (MetricRowModel{"display", "GPU", "86 %", Tint::orange}));
}

TEST(OverviewModel, the_temperature_has_its_row_after_the_graphics) {
    const auto rowsWith = [](std::optional<double> cpuMaxC) {
        return rowsFor({eightAndFour(), readingOf(0.1, 0.1, 0.1), GPUStats{},
                        TemperatureReading{cpuMaxC, 30.0, {}}});
    };
    const auto rows = rowsWith(62.5);
    EXPECT_EQ(rows.at(4), (MetricRowModel{"thermometer.variable", "Temperature", "63 °C"}));
    EXPECT_EQ(rows.at(3).title, "GPU");
    EXPECT_EQ(rowOf(rowsWith(std::nullopt), "Temperature").value, "—");
}

TEST(OverviewModel, memory_and_swap_have_their_rows_and_memory_its_tint) {
    MemoryStats memory;
    memory.totalBytes = std::uint64_t{10} << 30;
    memory.usedBytes = std::uint64_t{9} << 30;
    memory.swapUsedBytes = std::uint64_t{3} << 29;
    Told told;
    told.memory = memory;
    auto rows = rowsFor(told);
    EXPECT_EQ(rows[rows.size() - 2],
              (MetricRowModel{"memorychip", "Memory used", "9.0G", Tint::red}));
    EXPECT_EQ(rows.back(), (MetricRowModel{"arrow.triangle.swap", "Swap", "1.5G", Tint::primary}));
    --told.memory->usedBytes;
    rows = rowsFor(told);
    EXPECT_EQ(rows[rows.size() - 2].tint, Tint::orange);
}

TEST(OverviewModel, a_machine_that_tells_no_layout_still_has_its_cpu_row) {
    EXPECT_THAT(rowsFor({}), ElementsAre(MetricRowModel{"cpu", "CPU", "—", Tint::primary},
                                         MetricRowModel{"display", "GPU", "—", Tint::primary},
                                         MetricRowModel{"thermometer.variable", "Temperature", "—"},
                                         MetricRowModel{"memorychip", "Memory used", "—"},
                                         MetricRowModel{"arrow.triangle.swap", "Swap", "—"}));
}

}  // namespace
}  // namespace vtx
