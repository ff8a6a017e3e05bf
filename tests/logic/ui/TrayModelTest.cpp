// SPDX-License-Identifier: MIT
#include "ui/models/TrayModel.h"

#include <gtest/gtest.h>

#include "core/DisplayPreferences.h"

namespace vtx {
namespace {

StripReadings critical(std::string metric) {
    StripReadings readings;
    readings.criticalMetric = std::move(metric);
    readings.cpuUsage = 0.42;
    return readings;
}

TEST(TrayModel, the_critical_metric_stands_without_its_percent_sign) {
    auto readings = critical("memory");
    readings.memoryFraction = 0.873;
    const auto model = describeTray(readings, {});
    EXPECT_EQ(model.symbol, DisplayPreferences{}.iconMemory);
    EXPECT_EQ(model.figure, "87");
    EXPECT_EQ(describeTray(critical(""), {}).figure, "42") << "without a metric: the processor";
}

TEST(TrayModel, a_temperature_keeps_its_degree_sign) {
    auto readings = critical("thermal");
    readings.cpuMaxC = 71.6;
    EXPECT_EQ(describeTray(readings, {}).figure, "72°");
}

TEST(TrayModel, a_level_without_a_temperature_is_the_symbol_alone) {
    auto readings = critical("thermal");
    readings.thermalLevel = "Critical";
    const auto model = describeTray(readings, {});
    EXPECT_EQ(model.symbol, DisplayPreferences{}.iconThermal);
    EXPECT_EQ(model.figure, "");
}

TEST(TrayModel, before_any_reading_the_figure_is_a_dash) {
    StripReadings none;
    EXPECT_EQ(describeTray(none, {}).figure, "—");
}

TEST(TrayModel, shows_a_metric_that_the_strip_hides) {
    DisplayPreferences hidden;
    hidden.showCPU = hidden.menuBarLiveCPU = false;
    EXPECT_EQ(describeTray(critical("cpu"), hidden).figure, "42");
}

TEST(TrayModel, says_what_the_strip_says) {
    const auto readings = critical("cpu");
    EXPECT_EQ(describeTray(readings, {}).summary, describeStrip(readings, {}).summary);
}

TEST(TrayModel, a_metric_without_a_tile_draws_nothing) {
    const auto model = describeTray(critical("ane"), {});
    EXPECT_EQ(model.symbol, "");
    EXPECT_EQ(model.figure, "");
}

}  // namespace
}  // namespace vtx
