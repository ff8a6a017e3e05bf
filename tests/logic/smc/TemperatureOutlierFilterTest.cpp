// SPDX-License-Identifier: MIT
#include "smc/TemperatureOutlierFilter.h"

#include <gtest/gtest.h>

#include "smc/CPUTemperatureSmoother.h"

namespace vtx {
namespace {

std::optional<double> filtered(std::vector<double> values) {
    return TemperatureOutlierFilter::maxRejectingOutliers(std::move(values));
}

std::vector<double> of(std::size_t low, double lowC, std::size_t high, double highC) {
    std::vector<double> values(low, lowC);
    values.insert(values.end(), high, highC);
    return values;
}

TEST(TemperatureOutlierFilter, no_values_give_nothing) { EXPECT_EQ(filtered({}), std::nullopt); }

TEST(TemperatureOutlierFilter, fewer_than_four_values_give_the_highest) {
    EXPECT_EQ(filtered({40}), 40);
    EXPECT_EQ(filtered({90, 40}), 90);
    EXPECT_EQ(filtered({40, 95, 96}), 96);
}

TEST(TemperatureOutlierFilter, a_lone_value_far_above_the_bulk_is_dropped) {
    EXPECT_EQ(filtered({90, 40, 41, 42, 43}), 43);
}

TEST(TemperatureOutlierFilter, exactly_twenty_above_the_reference_is_too_far) {
    EXPECT_EQ(filtered({40, 41, 42, 43, 61}), 43);
    EXPECT_EQ(filtered({40, 41, 42, 43, 60.9}), 60.9);
}

TEST(TemperatureOutlierFilter, the_reference_is_the_quarter_of_the_full_list) {
    EXPECT_EQ(filtered({30, 50, 50, 69}), 69);
    EXPECT_EQ(filtered({30, 50, 50, 70}), 50);
}

TEST(TemperatureOutlierFilter, after_ten_the_next_is_believed_whatever_it_is) {
    EXPECT_EQ(filtered(of(9, 50, 11, 100)), 100);
    EXPECT_EQ(filtered(of(9, 50, 10, 100)), 50);
}

TEST(TemperatureOutlierFilter, of_two_that_remain_the_higher_is_believed) {
    // The reference is the second of four, so that two can lie far above it and no more.
    EXPECT_EQ(filtered({10, 10, 90, 91}), 10);
    EXPECT_EQ(filtered({-80, 10, 90, 91}), 10);
}

TEST(CPUTemperatureSmoother, tells_the_median_of_up_to_three_values) {
    CPUTemperatureSmoother smoother;
    EXPECT_EQ(smoother.push(50), 50);
    EXPECT_EQ(smoother.push(52), 50);
    EXPECT_EQ(smoother.push(90), 52);
    EXPECT_EQ(smoother.push(52), 52);
    EXPECT_EQ(smoother.push(40), 52);
    EXPECT_EQ(smoother.push(40), 40);
}

TEST(CPUTemperatureSmoother, of_two_values_it_tells_the_lower) {
    CPUTemperatureSmoother smoother;
    smoother.push(52);
    EXPECT_EQ(smoother.push(50), 50);
    smoother.clear();
    EXPECT_EQ(smoother.push(90), 90);
}

}  // namespace
}  // namespace vtx
