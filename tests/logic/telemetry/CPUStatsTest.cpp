// SPDX-License-Identifier: MIT
#include "telemetry/CPUStats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vtx {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

CoreLayout layoutOf(int pCores, int eCores) {
    CoreLayout layout;
    layout.pCoreCount = pCores;
    layout.eCoreCount = eCores;
    return layout;
}

RawCPUSample sampleOf(std::vector<CPUTicks> ticks, int second = 0) {
    return {std::move(ticks), Date{std::chrono::seconds(second)}};
}

// Processor i is busy for i tenths.
RawCPUSample ramp(std::size_t count) {
    std::vector<CPUTicks> ticks;
    for (std::uint32_t i = 0; i < count; ++i) ticks.push_back({i, 0, 10 - i, 0});
    return sampleOf(std::move(ticks), 1);
}

RawCPUSample zeros(std::size_t count) { return sampleOf(std::vector<CPUTicks>(count)); }

TEST(CPUStats, nice_time_counts_as_busy) {
    const auto stats = CPUStats::make(sampleOf({{10, 20, 40, 30}}, 7), zeros(1), layoutOf(1, 0));
    ASSERT_TRUE(stats);
    EXPECT_DOUBLE_EQ(stats->totalUsage, 0.6);
    EXPECT_EQ(stats->timestamp, Date{std::chrono::seconds(7)});
    EXPECT_EQ(stats->layout, layoutOf(1, 0));
}

TEST(CPUStats, a_counter_that_wrapped_counts_its_true_small_difference) {
    const auto stats = CPUStats::make(sampleOf({{5, 0, 11, 0}}), sampleOf({{4294967290, 0, 0, 0}}),
                                      layoutOf(1, 0));
    ASSERT_TRUE(stats);
    EXPECT_DOUBLE_EQ(stats->totalUsage, 11.0 / 22.0);
}

TEST(CPUStats, identical_samples_give_zero_loads_without_a_division) {
    const auto same = sampleOf({{1, 2, 3, 4}, {5, 6, 7, 8}});
    const auto stats = CPUStats::make(same, same, layoutOf(2, 0));
    ASSERT_TRUE(stats);
    EXPECT_THAT(stats->perCoreUsage, ElementsAre(0.0, 0.0));
    EXPECT_EQ(stats->totalUsage, 0.0);
}

TEST(CPUStats, a_counter_that_fell_still_gives_a_load_of_at_most_one) {
    const auto stats =
        CPUStats::make(sampleOf({{1, 0, 0, 0}}), sampleOf({{2, 0, 5, 0}}), layoutOf(1, 0));
    ASSERT_TRUE(stats);
    EXPECT_GE(stats->totalUsage, 0.0);
    EXPECT_LE(stats->totalUsage, 1.0);
}

TEST(CPUStats, one_level_has_no_efficiency_cores) {
    const auto stats = CPUStats::make(ramp(4), zeros(4), layoutOf(4, 0));
    ASSERT_TRUE(stats);
    EXPECT_THAT(stats->ePerCore, IsEmpty());
    EXPECT_EQ(stats->eCoreUsage, 0.0);
    EXPECT_EQ(stats->pPerCore, stats->perCoreUsage);
}

TEST(CPUStats, without_a_map_the_low_processor_numbers_are_the_efficiency_cores) {
    const auto stats = CPUStats::make(ramp(8), zeros(8), layoutOf(4, 4));
    ASSERT_TRUE(stats);
    EXPECT_THAT(stats->ePerCore, Pointwise(DoubleEq(), {0.0, 0.1, 0.2, 0.3}));
    EXPECT_THAT(stats->pPerCore, Pointwise(DoubleEq(), {0.4, 0.5, 0.6, 0.7}));
}

TEST(CPUStats, a_map_of_the_right_length_decides_the_cluster_and_keeps_processor_order) {
    auto layout = layoutOf(2, 2);
    using enum ClusterType;
    layout.clusterMap = {performance, efficiency, performance, efficiency};
    const auto stats = CPUStats::make(ramp(4), zeros(4), layout);
    ASSERT_TRUE(stats);
    EXPECT_THAT(stats->pPerCore, Pointwise(DoubleEq(), {0.0, 0.2}));
    EXPECT_THAT(stats->ePerCore, Pointwise(DoubleEq(), {0.1, 0.3}));
}

TEST(CPUStats, a_map_of_another_length_is_not_believed) {
    auto layout = layoutOf(1, 1);
    layout.clusterMap = {ClusterType::efficiency, ClusterType::efficiency, ClusterType::efficiency};
    const auto stats = CPUStats::make(ramp(2), zeros(2), layout);
    ASSERT_TRUE(stats);
    EXPECT_EQ(stats->ePerCore.size(), 1U);
    EXPECT_EQ(stats->pPerCore.size(), 1U);
}

TEST(CPUStats, a_count_below_zero_makes_no_core_an_efficiency_core) {
    const auto stats = CPUStats::make(ramp(3), zeros(3), layoutOf(4, -1));
    ASSERT_TRUE(stats);
    EXPECT_THAT(stats->ePerCore, IsEmpty());
    EXPECT_EQ(stats->pPerCore.size(), 3U);
}

TEST(CPUStats, means_weigh_every_core_the_same) {
    const auto stats = CPUStats::make(ramp(3), zeros(3), layoutOf(2, 1));
    ASSERT_TRUE(stats);
    EXPECT_DOUBLE_EQ(stats->totalUsage, 0.1);
    EXPECT_DOUBLE_EQ(stats->pCoreUsage, 0.15);
    EXPECT_DOUBLE_EQ(stats->eCoreUsage, 0.0);
}

TEST(CPUStats, makes_no_clocks_of_its_own) {
    const auto stats = CPUStats::make(ramp(2), zeros(2), layoutOf(2, 0));
    ASSERT_TRUE(stats);
    EXPECT_EQ(stats->pCoreCurrentFrequencyMHz, std::nullopt);
    EXPECT_EQ(stats->eCoreCurrentFrequencyMHz, std::nullopt);
}

TEST(CPUStats, fails_where_the_processors_are_not_those_of_the_layout) {
    EXPECT_FALSE(CPUStats::make(ramp(3), zeros(4), layoutOf(4, 0)));
    EXPECT_FALSE(CPUStats::make(ramp(4), zeros(3), layoutOf(4, 0)));
    EXPECT_FALSE(CPUStats::make(ramp(4), zeros(4), layoutOf(4, 1)));
    EXPECT_FALSE(CPUStats::make(ramp(4), zeros(4), layoutOf(3, 0)));
    EXPECT_FALSE(CPUStats::make(ramp(4), zeros(4), layoutOf(4, -1)));
}

}  // namespace
}  // namespace vtx
