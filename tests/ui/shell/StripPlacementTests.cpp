// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ui/shell/StripPlacement.h"

namespace vtx {
namespace {

using Side = StripRecord::Side;
using Screens = StripPlacement::Screens;

const QSize strip(150, 24);

ShellScreen screen(const char* name, QRect geometry, double scale = 1, QMargins panels = {}) {
    return {QString::fromLatin1(name), geometry, scale, panels};
}

Screens one() { return {screen("A", QRect(0, 0, 1280, 800))}; }

/// A primary screen with another one to its right, both of the same height.
Screens sideBySide() {
    return {screen("A", QRect(0, 0, 1280, 800)), screen("B", QRect(1280, 0, 1280, 800))};
}

StripRecord record(DockEdge edge, int gap = 0, int top = 0) {
    return {"A", edge, Side::right, gap, top};
}

TEST(StripPlacement, a_first_start_docks_at_the_top_right_of_the_primary_screen) {
    const auto place =
        StripPlacement::place(StripPlacement::initial(sideBySide()), strip, sideBySide());
    EXPECT_EQ(place.frame, QRect(1130, 0, 150, 24));
    EXPECT_EQ(place.edge, DockEdge::top);
    EXPECT_EQ(place.touching, Qt::TopEdge | Qt::RightEdge);
}

TEST(StripPlacement, a_first_start_keeps_clear_of_panels) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800), 1, QMargins(0, 30, 48, 0))};
    const auto place = StripPlacement::place(StripPlacement::initial(screens), strip, screens);
    EXPECT_EQ(place.frame, QRect(1280 - 48 - 150, 30, 150, 24));
    EXPECT_EQ(place.touching, Qt::TopEdge | Qt::RightEdge);
}

TEST(StripPlacement, a_strip_that_grows_keeps_its_right_edge) {
    const auto narrow = StripPlacement::place(record(DockEdge::top, 40), QSize(24, 24), one());
    const auto wide = StripPlacement::place(record(DockEdge::top, 40), QSize(300, 24), one());
    EXPECT_EQ(narrow.frame.right(), wide.frame.right());
    EXPECT_EQ(wide.frame.right(), 1279 - 40);
}

TEST(StripPlacement, a_strip_wider_than_its_screen_is_cut_at_its_edge) {
    const auto place = StripPlacement::place(record(DockEdge::top, 40), QSize(600'000, 24), one());
    EXPECT_EQ(place.frame, QRect(0, 0, 1280, 24));
}

TEST(StripPlacement, a_strip_in_a_left_corner_grows_to_the_right) {
    const StripRecord corner{"A", DockEdge::top, Side::left, 0, 0};
    EXPECT_EQ(StripPlacement::place(corner, QSize(300, 24), one()).frame, QRect(0, 0, 300, 24));
}

TEST(StripPlacement, every_edge_holds_the_strip_against_it) {
    EXPECT_EQ(StripPlacement::place(record(DockEdge::bottom, 100), strip, one()).frame,
              QRect(1030, 776, 150, 24));
    EXPECT_EQ(StripPlacement::place(record(DockEdge::left, 100, 300), strip, one()).frame,
              QRect(0, 300, 150, 24));
    EXPECT_EQ(StripPlacement::place(record(DockEdge::right, 100, 300), strip, one()).frame,
              QRect(1130, 300, 150, 24));
}

TEST(StripPlacement, a_strip_beyond_the_screen_comes_back_into_view) {
    const auto place =
        StripPlacement::place(record(DockEdge::none, 100'000, 100'000), strip, one());
    EXPECT_EQ(place.frame, QRect(0, 776, 150, 24));
}

TEST(StripPlacement, a_strip_wider_than_its_screen_starts_at_the_left) {
    const Screens small{screen("A", QRect(0, 0, 100, 800))};
    EXPECT_EQ(StripPlacement::place(record(DockEdge::top), strip, small).frame.left(), 0);
}

TEST(StripPlacement, a_screen_that_has_gone_is_stood_in_for_until_it_comes_back) {
    StripRecord onB = record(DockEdge::bottom, 10);
    onB.screen = "B";
    EXPECT_EQ(StripPlacement::place(onB, strip, one()).frame, QRect(1120, 776, 150, 24));
    EXPECT_EQ(StripPlacement::place(onB, strip, sideBySide()).frame, QRect(2400, 776, 150, 24));
}

TEST(StripPlacement, a_floating_strip_may_lie_over_a_panel_and_touches_nothing) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800), 1, QMargins(0, 100, 0, 0))};
    const auto place = StripPlacement::place(record(DockEdge::none, 0, 50), strip, screens);
    EXPECT_EQ(place.frame, QRect(1130, 50, 150, 24));
    EXPECT_EQ(place.touching, Qt::Edges());
}

struct Drop {
    QRect frame;
    StripRecord expected;
};

class StripDrop : public testing::TestWithParam<Drop> {};

TEST_P(StripDrop, docks_within_twelve_pixels_of_an_edge_and_floats_elsewhere) {
    const QRect frame = GetParam().frame;
    EXPECT_EQ(StripPlacement::drop(frame, frame.center(), one()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Places, StripDrop,
    testing::Values(Drop{QRect(530, 288, 150, 24), {"A", DockEdge::none, Side::right, 600, 288}},
                    Drop{QRect(530, 12, 150, 24), {"A", DockEdge::top, Side::right, 600, 0}},
                    Drop{QRect(530, 13, 150, 24), {"A", DockEdge::none, Side::right, 600, 13}},
                    Drop{QRect(530, -9, 150, 24), {"A", DockEdge::top, Side::right, 600, 0}},
                    Drop{QRect(530, 764, 150, 24), {"A", DockEdge::bottom, Side::right, 600, 0}},
                    Drop{QRect(530, 763, 150, 24), {"A", DockEdge::none, Side::right, 600, 763}},
                    Drop{QRect(12, 300, 150, 24), {"A", DockEdge::left, Side::left, 0, 300}},
                    Drop{QRect(1118, 300, 150, 24), {"A", DockEdge::right, Side::right, 0, 300}},
                    Drop{QRect(9, 3, 150, 24), {"A", DockEdge::top, Side::left, 0, 0}},
                    Drop{QRect(1125, 3, 150, 24), {"A", DockEdge::top, Side::right, 0, 0}}));

TEST(StripPlacement, a_drop_counts_on_the_screen_under_the_pointer) {
    const auto dropped =
        StripPlacement::drop(QRect(1240, 5, 150, 24), QPoint(1300, 10), sideBySide());
    EXPECT_EQ(dropped.screen, "B");
    EXPECT_EQ(dropped.edge, DockEdge::top);
    EXPECT_EQ(dropped.side, Side::left);
}

TEST(StripPlacement, a_drop_docks_against_a_panel) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800), 1, QMargins(0, 30, 0, 0))};
    const auto dropped = StripPlacement::drop(QRect(500, 40, 150, 24), QPoint(510, 50), screens);
    EXPECT_EQ(dropped.edge, DockEdge::top);
    EXPECT_EQ(StripPlacement::place(dropped, strip, screens).frame, QRect(500, 30, 150, 24));
}

TEST(StripPlacement, a_dropped_strip_stays_where_it_was_dropped) {
    const QRect frame(333, 444, 150, 24);
    const auto dropped = StripPlacement::drop(frame, frame.center(), sideBySide());
    EXPECT_EQ(StripPlacement::place(dropped, strip, sideBySide()).frame, frame);
}

Strut top(std::uint32_t height, std::uint32_t first, std::uint32_t last) {
    return {0, 0, height, 0, 0, 0, 0, 0, first, last, 0, 0};
}

Strut bottom(std::uint32_t height, std::uint32_t first, std::uint32_t last) {
    return {0, 0, 0, height, 0, 0, 0, 0, 0, 0, first, last};
}

std::optional<Strut> strutFor(const StripRecord& record, const Screens& screens) {
    return StripPlacement::strut(StripPlacement::place(record, strip, screens), screens);
}

TEST(StripPlacement, a_docked_strip_reserves_its_height_over_its_width) {
    EXPECT_EQ(strutFor(record(DockEdge::top), one()), top(24, 1130, 1279));
    EXPECT_EQ(strutFor(record(DockEdge::bottom, 30), one()), bottom(24, 1100, 1249));
}

TEST(StripPlacement, a_strip_that_floats_or_stands_at_a_side_reserves_nothing) {
    EXPECT_EQ(strutFor(record(DockEdge::none, 10, 10), one()), std::nullopt);
    EXPECT_EQ(strutFor(record(DockEdge::left, 0, 10), one()), std::nullopt);
    EXPECT_EQ(strutFor(record(DockEdge::right, 0, 10), one()), std::nullopt);
}

TEST(StripPlacement, a_reservation_counts_from_the_desktops_edge_in_device_pixels) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800), 2, QMargins(0, 30, 0, 0))};
    EXPECT_EQ(strutFor(record(DockEdge::top), screens), top(108, 2260, 2559));
}

TEST(StripPlacement, a_fraction_of_a_device_pixel_is_reserved_whole) {
    const Screens screens{screen("A", QRect(0, 0, 1021, 800), 1.25)};
    EXPECT_EQ(strutFor(record(DockEdge::top), screens), top(30, 1088, 1276));
}

TEST(StripPlacement, the_lower_of_two_unequal_screens_reserves_from_the_desktops_bottom) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800)),
                          screen("B", QRect(1280, 0, 1280, 1024))};
    EXPECT_EQ(strutFor(record(DockEdge::bottom), screens), bottom(24 + 224, 1130, 1279));
}

TEST(StripPlacement, nothing_is_reserved_where_another_screen_adjoins_the_edge) {
    const Screens stacked{screen("A", QRect(0, 800, 1280, 800)),
                          screen("B", QRect(0, 0, 1280, 800))};
    EXPECT_EQ(strutFor(record(DockEdge::top), stacked), std::nullopt);
    EXPECT_EQ(strutFor(record(DockEdge::bottom), stacked), bottom(24, 1130, 1279));
}

TEST(StripPlacement, panels_of_others_are_taken_from_the_screens_they_lie_on) {
    const std::vector<Strut> others{top(30, 1280, 2559)};
    EXPECT_EQ(StripPlacement::panels(sideBySide()[0], others, sideBySide()), QMargins());
    EXPECT_EQ(StripPlacement::panels(sideBySide()[1], others, sideBySide()), QMargins(0, 30, 0, 0));
}

TEST(StripPlacement, panels_are_measured_in_logical_pixels) {
    const Screens screens{screen("A", QRect(0, 0, 1280, 800), 2)};
    const Strut left{81, 0, 0, 0, 0, 1599, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(StripPlacement::panels(screens[0], {left}, screens), QMargins(41, 0, 0, 0));
}

TEST(StripPlacement, a_nonsensical_reservation_takes_nothing) {
    Strut everything;
    everything.fill(0xFFFFFFFF);
    const Strut beyondTheMiddle = top(500, 0, 1279);
    EXPECT_EQ(StripPlacement::panels(one()[0], {everything, beyondTheMiddle}, one()), QMargins());
}

TEST(StripPlacement, a_dragged_strip_stands_where_the_pointer_puts_it) {
    const auto place = StripPlacement::dragged(QRect(1400, -5, 150, 24), sideBySide());
    EXPECT_EQ(place.frame, QRect(1400, -5, 150, 24));
    EXPECT_EQ(place.screen, 1U);
    EXPECT_EQ(place.edge, DockEdge::none);
    EXPECT_EQ(StripPlacement::strut(place, sideBySide()), std::nullopt);
}

TEST(ShellScreen, device_pixels_count_from_the_screens_own_corner) {
    const ShellScreen right = screen("B", QRect(1280, 100, 640, 400), 2);
    EXPECT_EQ(right.toDevice(QRect(1290, 110, 5, 5)), QRect(1300, 120, 10, 10));
}

}  // namespace
}  // namespace vtx
