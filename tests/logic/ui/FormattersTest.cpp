// SPDX-License-Identifier: MIT
#include "ui/models/Formatters.h"

#include <gtest/gtest.h>

#include <limits>

namespace vtx {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Formatters, percents_round_half_away_from_zero) {
    EXPECT_EQ(compactPercent(0.005), "1%");
    EXPECT_EQ(compactPercent(0.125), "13%");
    EXPECT_EQ(compactPercent(0.0049), "0%");
    EXPECT_EQ(compactPercent(0.996), "100%");
    EXPECT_EQ(compactPercent(1.0), "100%");
}

TEST(Formatters, pages_set_a_blank_before_the_percent_sign_and_the_strip_does_not) {
    EXPECT_EQ(percent(0.34), "34 %");
    EXPECT_EQ(compactPercent(0.34), "34%");
}

TEST(Formatters, what_is_not_known_is_a_dash) {
    EXPECT_EQ(compactPercent(std::nullopt), "—");
    EXPECT_EQ(percent(std::nullopt), "—");
    EXPECT_EQ(percent(nan), "—");
    EXPECT_EQ(compactPercent(infinity), "—");
    for (const double none : {nan, infinity, -infinity}) {
        EXPECT_EQ(formatMHz(none), "—");
        EXPECT_EQ(throughputLabel(none), "—");
        EXPECT_EQ(throughputLabel(none, 1.0), "—");
        EXPECT_EQ(temperatureLabel(none, "Serious"), "Serious");
    }
}

TEST(Formatters, a_tiny_negative_value_is_zero_and_not_minus_zero) {
    EXPECT_EQ(compactPercent(-0.001), "0%");
    EXPECT_EQ(temperatureLabel(-0.2, ""), "0°C");
}

TEST(Formatters, clocks_change_their_unit_at_1000_MHz) {
    EXPECT_EQ(formatMHz(999.6), "1000 MHz");
    EXPECT_EQ(formatMHz(1000.0), "1.00 GHz");
    EXPECT_EQ(formatMHz(3228.0), "3.23 GHz");
    EXPECT_EQ(formatMHz(600.0), "600 MHz");
}

TEST(Formatters, a_temperature_that_is_absent_gives_its_fallback) {
    EXPECT_EQ(temperatureLabel(62.5, "Serious"), "63°C");
    EXPECT_EQ(temperatureLabel(std::nullopt, "Serious"), "Serious");
}

struct Throughput {
    double bytes;
    const char* text;
};

class ThroughputLabel : public testing::TestWithParam<Throughput> {};

TEST_P(ThroughputLabel, keeps_to_four_characters_for_usual_rates) {
    EXPECT_EQ(throughputLabel(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(rates, ThroughputLabel,
                         testing::Values(Throughput{2097152, "2.0M"}, Throughput{52428800, "50M"},
                                         Throughput{157286400, "150M"}, Throughput{512000, "500K"},
                                         Throughput{0, "0K"}, Throughput{1048575, "1023K"},
                                         Throughput{1048576, "1.0M"}, Throughput{104857600, "100M"},
                                         Throughput{10485760, "10M"}));

TEST(Formatters, an_absent_rate_counts_as_nothing_beside_a_known_one) {
    EXPECT_EQ(throughputLabel(2097152.0, std::nullopt), "2.0M");
    EXPECT_EQ(throughputLabel(std::nullopt, 2097152.0), "2.0M");
    EXPECT_EQ(throughputLabel(2097152.0, 1048576.0), "3.0M");
    EXPECT_EQ(throughputLabel(std::nullopt, std::nullopt), "—");
}

TEST(Formatters, temperatures_are_whole_degrees) {
    EXPECT_EQ(formatTemp(62.5), "63 °C");
    EXPECT_EQ(formatTemp(62.4), "62 °C");
    EXPECT_EQ(formatTemp(-0.4), "0 °C");
    EXPECT_EQ(formatTemp(std::nullopt), "—");
    EXPECT_EQ(formatTemp(nan), "—");
}

TEST(Formatters, loads_are_tinted_from_70_85_and_95_percent) {
    EXPECT_EQ(loadTint(std::nullopt), Tint::primary);
    EXPECT_EQ(loadTint(0.6999), Tint::primary);
    EXPECT_EQ(loadTint(0.7), Tint::yellow);
    EXPECT_EQ(loadTint(0.8499), Tint::yellow);
    EXPECT_EQ(loadTint(0.85), Tint::orange);
    EXPECT_EQ(loadTint(0.9499), Tint::orange);
    EXPECT_EQ(loadTint(0.95), Tint::red);
    EXPECT_EQ(loadTint(nan), Tint::primary);
}

TEST(Formatters, gigabytes_are_units_of_two_to_the_thirtieth) {
    EXPECT_EQ(gigabytes(0), "0.0G");
    EXPECT_EQ(gigabytes(std::uint64_t{1} << 30), "1.0G");
    EXPECT_EQ(gigabytes(8'482'560'410), "7.9G");
}

TEST(Formatters, memory_is_tinted_by_its_used_part) {
    const std::pair<std::uint64_t, Tint> cases[] = {
        {0, Tint::primary},  {649, Tint::primary}, {650, Tint::yellow},
        {799, Tint::yellow}, {800, Tint::orange},  {899, Tint::orange},
        {900, Tint::red},    {1000, Tint::red},    {1200, Tint::red}};
    for (const auto& [used, tint] : cases) EXPECT_EQ(memoryTint(used, 1000), tint) << used;
    EXPECT_EQ(memoryTint(5, 0), Tint::primary);
}

TEST(Formatters, thermal_levels_are_capitalised) {
    std::string names;
    for (const auto level : ThermalStats::allLevels) names.append(thermalLevelName(level) + " ");
    EXPECT_EQ(names, "Nominal Fair Serious Critical ");
}

}  // namespace
}  // namespace vtx
