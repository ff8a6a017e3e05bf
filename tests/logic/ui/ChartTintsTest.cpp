// SPDX-License-Identifier: MIT
#include "ui/models/ChartTints.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

constexpr SeriesTint theme{SeriesRole::gpu};
constexpr RGBColor orange{0xFF, 0x80, 0x00};

TEST(ChartTints, six_hexadecimal_digits_are_a_colour) {
    EXPECT_EQ(ChartTints::color("FF8000", theme).own, orange);
    EXPECT_EQ(ChartTints::color("#FF8000", theme).own, orange);
    EXPECT_EQ(ChartTints::color(" ff8000 ", theme).own, orange);
    EXPECT_EQ(ChartTints::color("\n#fF8000\t", theme).own, orange);
    EXPECT_EQ(ChartTints::color("000000", theme).own, (RGBColor{0, 0, 0}));
}

TEST(ChartTints, a_number_sign_goes_wherever_it_stands) {
    EXPECT_EQ(ChartTints::color("FF#80#00", theme).own, orange);
    EXPECT_EQ(ChartTints::color("FF8000##", theme).own, orange);
}

TEST(ChartTints, the_users_own_colour_keeps_the_role_it_replaces) {
    EXPECT_EQ(ChartTints::color("FF8000", theme).role, SeriesRole::gpu);
}

TEST(ChartTints, anything_else_is_the_fallback) {
    for (const char* text :
         {"", "#", "   ", "FFF", "FF80001", "#FF8000FF", "GGGGGG", "FF 800", "# FF8000", "0xFF80",
          "-F8000", "+F8000", "FF800\xC3\xA9", "\xC3\xA9\xC3\xA9\xC3\xA9", "accent"}) {
        EXPECT_EQ(ChartTints::color(text, theme), theme) << text;
    }
    EXPECT_EQ(ChartTints::color(std::string_view("FF\0008", 5), theme), theme);
}

TEST(ChartTints, a_fallback_can_be_a_colour_too) {
    EXPECT_EQ(ChartTints::color("", {SeriesRole::cpu, orange}).own, orange);
}

}  // namespace
}  // namespace vtx
