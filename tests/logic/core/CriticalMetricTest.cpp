// SPDX-License-Identifier: MIT
#include "core/CriticalMetric.h"

#include <gtest/gtest.h>

#include <vector>

namespace vtx {
namespace {

using Priority = std::vector<std::string>;
using Scores = std::vector<MetricScore>;

const Priority usual{"thermal", "memory", "cpu", "fan", "gpu", "disk"};

TEST(MemoryScore, pressure_raises_it_up_to_the_most) {
    using enum MemoryStats::Pressure;
    EXPECT_DOUBLE_EQ(memoryScore(0.2, normal), 0.2);
    EXPECT_DOUBLE_EQ(memoryScore(0.2, warning), 0.4);
    EXPECT_DOUBLE_EQ(memoryScore(0.2, critical), 0.6);
    EXPECT_DOUBLE_EQ(memoryScore(0.9, warning), 1.0);
}

TEST(ThermalScore, grows_from_60_to_95_degrees) {
    EXPECT_DOUBLE_EQ(thermalScore(-40.0), 0.0);
    EXPECT_DOUBLE_EQ(thermalScore(60.0), 0.0);
    EXPECT_DOUBLE_EQ(thermalScore(77.5), 0.5);
    EXPECT_DOUBLE_EQ(thermalScore(95.0), 1.0);
    EXPECT_DOUBLE_EQ(thermalScore(120.0), 1.0);
}

TEST(DiskScore, is_full_at_500_mebibytes_a_second_in_both_directions_together) {
    EXPECT_DOUBLE_EQ(diskScore(0.0, 0.0), 0.0);
    EXPECT_DOUBLE_EQ(diskScore(131'072'000.0, 131'072'000.0), 0.5);
    EXPECT_DOUBLE_EQ(diskScore(524'288'000.0, 0.0), 1.0);
    EXPECT_DOUBLE_EQ(diskScore(0.0, 9e12), 1.0);
}

TEST(MostCritical, is_the_metric_with_the_highest_score) {
    EXPECT_EQ(mostCritical(Scores{{"cpu", 0.3}, {"gpu", 0.7}, {"memory", 0.5}}, usual), "gpu");
}

TEST(MostCritical, memory_under_critical_pressure_wins_over_a_higher_load) {
    EXPECT_EQ(mostCritical(Scores{{"cpu", 0.3},
                                  {"memory", memoryScore(0.2, MemoryStats::Pressure::critical)}},
                           usual),
              "memory");
}

TEST(MostCritical, equal_scores_are_decided_by_the_priority) {
    Scores all{{"disk", 0.5}, {"gpu", 0.5},    {"fan", 0.5},
               {"cpu", 0.5},  {"memory", 0.5}, {"thermal", 0.5}};
    for (const auto& expected : usual) {
        EXPECT_EQ(mostCritical(all, usual), expected);
        std::erase_if(all, [&](const MetricScore& each) { return each.id == expected; });
    }
}

TEST(MostCritical, a_metric_outside_the_priority_comes_after_all_in_it) {
    EXPECT_EQ(mostCritical(Scores{{"cpu", 0.5}, {"disk", 0.5}}, Priority{"disk"}), "disk");
    EXPECT_EQ(mostCritical(Scores{{"cpu", 0.6}, {"disk", 0.5}}, Priority{"disk"}), "cpu");
}

TEST(MostCritical, a_score_of_nothing_is_still_a_score) {
    EXPECT_EQ(mostCritical(Scores{{"disk", 0.0}}, usual), "disk");
}

TEST(MostCritical, without_scores_the_priority_decides_and_without_that_the_processor) {
    EXPECT_EQ(mostCritical({}, usual), "thermal");
    EXPECT_EQ(mostCritical({}, Priority{"ane", "cpu"}), "ane");
    EXPECT_EQ(mostCritical({}, {}), "cpu");
}

}  // namespace
}  // namespace vtx
