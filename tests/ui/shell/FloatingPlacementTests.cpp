// SPDX-License-Identifier: MIT
#include "ui/shell/FloatingPlacement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vtx {
namespace {

using FloatingPlacement::Screens;

constexpr QSize panel(220, 170);

const ShellScreen primary{"one", QRect(0, 0, 1920, 1080), 1, QMargins(0, 24, 0, 48)};
const ShellScreen right{"two", QRect(1920, 0, 1280, 1024), 1, {}};
const ShellScreen left{"three", QRect(-1280, 0, 1280, 1024), 1, {}};

TEST(FloatingPlacement, without_a_saved_place_it_stands_in_the_upper_right_clear_of_panels) {
    EXPECT_EQ(FloatingPlacement::place({}, panel, {primary, right}),
              QPoint(1920 - 220 - 20, 24 + 40));
}

TEST(FloatingPlacement, a_saved_place_is_taken_as_it_is) {
    for (const QPoint at : {QPoint(0, 0), QPoint(300, 200), QPoint(1700, 1000)})
        EXPECT_EQ(FloatingPlacement::place(at, panel, {primary}), at);
}

TEST(FloatingPlacement, a_place_that_no_screen_shows_comes_to_the_nearest_edge_of_one) {
    EXPECT_EQ(FloatingPlacement::place(QPoint(2500, 300), panel, {primary}), QPoint(1700, 300));
    EXPECT_EQ(FloatingPlacement::place(QPoint(2500, 300), panel, {primary, right}),
              QPoint(2500, 300));
    EXPECT_EQ(FloatingPlacement::place(QPoint(100, 5000), panel, {primary}),
              QPoint(100, 1080 - 48 - 170));
}

TEST(FloatingPlacement, a_panel_of_which_too_little_is_seen_to_be_seized_comes_back) {
    EXPECT_EQ(FloatingPlacement::inView({QPoint(1896, 300), panel}, {primary}), QPoint(1896, 300));
    EXPECT_EQ(FloatingPlacement::inView({QPoint(1897, 300), panel}, {primary}), QPoint(1700, 300));
}

TEST(FloatingPlacement, a_screen_to_the_left_shows_what_lies_there) {
    EXPECT_EQ(FloatingPlacement::inView({QPoint(-800, 300), panel}, {primary, left}),
              QPoint(-800, 300));
    EXPECT_EQ(FloatingPlacement::inView({QPoint(-800, 300), panel}, {primary}), QPoint(0, 300));
}

TEST(FloatingPlacement, on_a_screen_smaller_than_itself_its_upper_left_corner_is_seen) {
    const ShellScreen tiny{"tiny", QRect(0, 0, 160, 120), 1, {}};
    EXPECT_EQ(FloatingPlacement::place(QPoint(500, 500), panel, {tiny}), QPoint(0, 0));
}

TEST(FloatingPlacement, without_any_screen_the_platform_decides) {
    EXPECT_FALSE(FloatingPlacement::place({}, panel, {}));
    EXPECT_FALSE(FloatingPlacement::place(QPoint(10, 10), panel, {}));
}

TEST(FloatingPlacement, zero_is_a_saved_place_and_less_is_none) {
    EXPECT_EQ(FloatingPlacement::saved(0, 0), QPoint(0, 0));
    EXPECT_EQ(FloatingPlacement::saved(12.4, 99.6), QPoint(12, 100));
    EXPECT_FALSE(FloatingPlacement::saved(-1, -1));
    EXPECT_FALSE(FloatingPlacement::saved(-1, 50));
    EXPECT_FALSE(FloatingPlacement::saved(50, -0.5));
}

TEST(FloatingPlacement, numbers_that_are_no_place_do_no_harm) {
    EXPECT_FALSE(FloatingPlacement::saved(std::nan(""), 10));
    const auto far = FloatingPlacement::saved(std::numeric_limits<double>::infinity(), 1e300);
    EXPECT_EQ(FloatingPlacement::place(far, panel, {primary}), QPoint(1700, 1080 - 48 - 170));
}

}  // namespace
}  // namespace vtx
