// SPDX-License-Identifier: MIT
#include "ui/models/MiniWidgetModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vtx {
namespace {

Date at(int second) { return Date{std::chrono::seconds(second)}; }

std::string secondsOf(Date date) {
    return std::to_string(
        std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count());
}

MiniWidgetModel describe(const MiniWidgetReadings& readings) {
    return describeMiniWidget(readings, secondsOf);
}

CPUStats loads(double total, double p, double e) {
    CPUStats stats;
    stats.totalUsage = total;
    stats.pCoreUsage = p;
    stats.eCoreUsage = e;
    stats.layout.pCoreCount = 8;
    stats.layout.eCoreCount = 2;
    return stats;
}

MemoryStats memoryUsed(std::uint64_t used, std::uint64_t total) {
    MemoryStats stats;
    stats.usedBytes = used;
    stats.totalBytes = total;
    return stats;
}

MiniWidgetReadings usual() {
    MiniWidgetReadings readings;
    readings.cpu = loads(0.234, 0.311, 0.094);
    readings.gpu.emplace().deviceUtilization = 0.42;
    readings.memory = memoryUsed(67, 100);
    readings.temperature = TemperatureReading{62.6, {}, {}};
    return readings;
}

std::vector<std::string> valuesOf(const MiniWidgetModel& model) {
    std::vector<std::string> values;
    for (const auto& row : model.rows) values.push_back(row.value);
    for (const auto& chip : model.chips) values.push_back(chip.value);
    return values;
}

using Texts = std::vector<std::string>;

TEST(MiniWidgetModel, says_the_essentials_in_order) {
    const auto model = describe(usual());
    Texts labels{std::string(model.title)};
    for (const auto& row : model.rows) labels.emplace_back(row.label);
    for (const auto& chip : model.chips) labels.emplace_back(chip.label);
    EXPECT_EQ(labels, (Texts{"Live", "CPU", "GPU", "RAM", "CPU Temp", "P", "E"}));
    EXPECT_EQ(valuesOf(model), (Texts{"23%", "42%", "67%", "63°C", "31", "9"}));
}

TEST(MiniWidgetModel, bars_are_as_full_as_their_figures_say) {
    const auto model = describe(usual());
    EXPECT_DOUBLE_EQ(*model.rows[0].share, 0.234);
    EXPECT_DOUBLE_EQ(*model.rows[2].share, 0.67);
    EXPECT_DOUBLE_EQ(*model.rows[3].share, 0.626);
}

TEST(MiniWidgetModel, what_was_not_read_yet_is_a_dash_without_a_bar) {
    const auto model = describe({});
    EXPECT_EQ(valuesOf(model), (Texts{"—", "—", "—", "Nominal", "—", "—"}));
    for (const auto& row : model.rows) EXPECT_FALSE(row.share) << row.label;
}

TEST(MiniWidgetModel, without_a_temperature_the_level_stands_for_it) {
    auto readings = usual();
    readings.temperature->cpuMaxC.reset();
    const std::pair<ThermalStats::Level, const char*> names[] = {
        {ThermalStats::Level::nominal, "Nominal"},
        {ThermalStats::Level::fair, "Fair"},
        {ThermalStats::Level::serious, "Serious"},
        {ThermalStats::Level::critical, "Critical"}};
    for (const auto& [level, name] : names) {
        readings.thermal.level = level;
        EXPECT_EQ(describe(readings).rows[3].value, name);
        EXPECT_FALSE(describe(readings).rows[3].share);
    }
}

TEST(MiniWidgetModel, a_temperature_that_is_no_number_is_not_known) {
    auto readings = usual();
    readings.temperature->cpuMaxC = std::nan("");
    EXPECT_EQ(describe(readings).rows[3].value, "Nominal");
}

TEST(MiniWidgetModel, a_load_that_is_no_number_is_a_dash_without_a_bar) {
    auto readings = usual();
    readings.cpu = loads(std::nan(""), std::nan(""), HUGE_VAL);
    readings.gpu->deviceUtilization = -HUGE_VAL;
    const auto model = describe(readings);
    EXPECT_EQ(valuesOf(model), (Texts{"—", "—", "67%", "63°C", "—", "—"}));
    for (const std::size_t row : {0U, 1U}) EXPECT_EQ(model.rows[row].share, std::nullopt);
}

TEST(MiniWidgetModel, no_bar_is_more_than_full) {
    auto readings = usual();
    readings.cpu = loads(1.0, 1.0, 0.0);
    readings.memory = memoryUsed(120, 100);
    readings.temperature->cpuMaxC = 112;
    const auto model = describe(readings);
    EXPECT_EQ(valuesOf(model), (Texts{"100%", "42%", "100%", "112°C", "100", "0"}));
    for (const std::size_t row : {0U, 2U, 3U}) EXPECT_EQ(model.rows[row].share, 1.0);
}

TEST(MiniWidgetModel, a_machine_with_one_kind_of_core_has_no_load_of_the_other) {
    auto readings = usual();
    readings.cpu->layout.eCoreCount = 0;
    readings.cpu->eCoreUsage = 0.0;
    EXPECT_EQ(describe(readings).chips[0].value, "31");
    EXPECT_EQ(describe(readings).chips[1].value, "—");
}

TEST(MiniWidgetModel, the_time_is_that_of_the_newest_reading) {
    auto readings = usual();
    readings.thermal.timestamp = at(10);
    EXPECT_EQ(describe(readings).time, "10");
    readings.cpu->timestamp = at(11);
    readings.memory->timestamp = at(9);
    EXPECT_EQ(describe(readings).time, "11");
    readings.gpu->timestamp = at(12);
    EXPECT_EQ(describe(readings).time, "12");
    readings.memory->timestamp = at(13);
    EXPECT_EQ(describe(readings).time, "13");
    readings.temperature->timestamp = at(14);
    EXPECT_EQ(describe(readings).time, "14");
}

}  // namespace
}  // namespace vtx
