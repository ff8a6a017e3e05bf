// SPDX-License-Identifier: MIT
#include "platform/shapes/DeviceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "telemetry/PMGRReader.h"

namespace vtx {
namespace {

using testing::ElementsAre;

constexpr StepUnit units[] = {StepUnit::hertz, StepUnit::kilohertz, StepUnit::megahertz};

std::vector<double> decoded(std::vector<double> stepsMHz, StepUnit unit) {
    return PMGRReader::decodeSteps("t", {{"t", encodeVoltageStates(stepsMHz, unit)}});
}

TEST(DeviceTreeShapes, whole_megahertz_come_back_from_a_table_in_any_unit) {
    for (const StepUnit unit : units)
        EXPECT_THAT(decoded({600, 912, 1284, 2424, 3696}, unit),
                    ElementsAre(600, 912, 1284, 2424, 3696));
}

TEST(DeviceTreeShapes, a_step_that_another_unit_would_be_read_from_still_comes_back) {
    for (const StepUnit unit : units) {
        EXPECT_THAT(decoded({0, 24, 99, 100}, unit), ElementsAre(0, 24, 99, 100));
        EXPECT_THAT(decoded({5'000}, unit), ElementsAre(5'000));  // hertz beyond 32 bits
    }
}

TEST(DeviceTreeShapes, parts_of_a_megahertz_come_back_where_the_unit_is_fine_enough) {
    EXPECT_THAT(decoded({1284.25}, StepUnit::kilohertz), ElementsAre(1284.25));
    EXPECT_THAT(decoded({100.000001}, StepUnit::hertz), ElementsAre(100.000001));
    EXPECT_THAT(decoded({1284.25}, StepUnit::megahertz), ElementsAre(1284));
}

TEST(DeviceTreeShapes, what_is_no_clock_becomes_zero_and_what_is_too_fast_the_limit) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const StepUnit unit : units) {
        EXPECT_THAT(decoded({nan, -1, infinity, -infinity}, unit), ElementsAre(0, 0, 0, 0));
        EXPECT_THAT(decoded({1e12}, unit), ElementsAre(99'999));
    }
}

TEST(DeviceTreeShapes, clusters_come_back_in_the_order_of_their_tiers) {
    const ClusterRecord clusters[] = {{5, 1}, {1, 0}};
    const auto keys = PMGRReader::clusterKeys({{"acc-clusters", encodeClusters(clusters)}});
    EXPECT_EQ(keys, (PMGRReader::ClusterKeys{"voltage-states1-sram", "voltage-states5-sram"}));
}

}  // namespace
}  // namespace vtx
