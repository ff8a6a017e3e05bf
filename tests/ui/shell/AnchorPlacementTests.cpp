// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ui/shell/AnchorPlacement.h"

namespace vtx {
namespace {

using Arrow = AnchoredPlace::Arrow;

const QRect screen(0, 24, 1280, 776);
const QSize content(360, 540);

AnchoredPlace at(const QRect& anchor, DockEdge docked) {
    return AnchorPlacement::place(anchor, docked, content, screen);
}

/// The tip on the desktop, across the side on which it is.
int tipOf(const AnchoredPlace& place) {
    const bool vertical = place.arrow == Arrow::top || place.arrow == Arrow::bottom;
    return place.tip + (vertical ? place.window.left() : place.window.top());
}

TEST(AnchorPlacement, opens_below_a_strip_at_the_top_with_the_tip_at_its_middle) {
    const QRect strip(600, 0, 150, 24);
    const auto place = at(strip, DockEdge::top);
    EXPECT_EQ(place.arrow, Arrow::top);
    EXPECT_EQ(place.window, QRect(494, 26, 360, 550));
    EXPECT_EQ(place.content, QRect(0, 10, 360, 540));
    EXPECT_EQ(tipOf(place), strip.center().x());
}

TEST(AnchorPlacement, opens_above_a_strip_at_the_bottom) {
    const auto place = at(QRect(600, 776, 150, 24), DockEdge::bottom);
    EXPECT_EQ(place.arrow, Arrow::bottom);
    EXPECT_EQ(place.window.bottom() + 1, 776 - 2);
    EXPECT_EQ(place.content, QRect(0, 0, 360, 540));
}

TEST(AnchorPlacement, opens_beside_a_strip_at_a_side) {
    const QRect left(0, 300, 150, 24), right(1130, 300, 150, 24);
    EXPECT_EQ(at(left, DockEdge::left).arrow, Arrow::left);
    EXPECT_EQ(at(left, DockEdge::left).window.left(), 152);
    EXPECT_EQ(at(right, DockEdge::right).arrow, Arrow::right);
    EXPECT_EQ(at(right, DockEdge::right).window.right() + 1, 1128);
    EXPECT_EQ(tipOf(at(left, DockEdge::left)), left.center().y());
}

TEST(AnchorPlacement, a_corner_keeps_the_window_inside_and_the_tip_pointing) {
    const QRect strip(1130, 0, 150, 24);
    const auto place = at(strip, DockEdge::top);
    EXPECT_EQ(place.window.right(), 1279 - 8);
    EXPECT_EQ(tipOf(place), strip.center().x());
}

TEST(AnchorPlacement, the_distance_to_the_screens_edge_yields_before_the_tip_misses) {
    const QRect narrow(1230, 0, 40, 24);
    const auto place = at(narrow, DockEdge::top);
    EXPECT_EQ(tipOf(place), narrow.center().x());
    EXPECT_GT(place.window.right(), 1279 - 8);
    EXPECT_LE(place.window.right(), 1279);
}

TEST(AnchorPlacement, the_narrowest_strip_in_a_corner_is_still_touched) {
    const QRect least(1256, 0, 24, 24);
    const auto place = at(least, DockEdge::top);
    EXPECT_EQ(place.window.right(), 1279);
    EXPECT_GE(tipOf(place), least.left());
}

TEST(AnchorPlacement, a_floating_strip_is_left_room_below_above_and_beside_in_turn) {
    EXPECT_EQ(at(QRect(600, 100, 150, 24), DockEdge::none).arrow, Arrow::top);
    EXPECT_EQ(at(QRect(600, 700, 150, 24), DockEdge::none).arrow, Arrow::bottom);
    EXPECT_EQ(at(QRect(100, 400, 150, 24), DockEdge::none).arrow, Arrow::left);
    EXPECT_EQ(at(QRect(1000, 400, 150, 24), DockEdge::none).arrow, Arrow::right);
}

TEST(AnchorPlacement, a_low_screen_makes_the_window_lower) {
    const QRect low(0, 24, 1280, 400);
    const auto place = AnchorPlacement::place(QRect(600, 0, 150, 24), DockEdge::top, content, low);
    EXPECT_EQ(place.window.bottom(), low.bottom() - 8);
    EXPECT_EQ(place.content.height(), place.window.height() - 10);
}

TEST(AnchorPlacement, the_outline_fills_the_window_on_every_side) {
    for (const DockEdge edge : {DockEdge::top, DockEdge::bottom, DockEdge::left, DockEdge::right}) {
        const auto place = at(QRect(600, 380, 150, 24), edge);
        const QRectF bounds = place.outline(0).boundingRect();
        const QRectF window(QPointF(), QSizeF(place.window.size()));
        EXPECT_NEAR(bounds.left(), window.left(), 0.6);
        EXPECT_NEAR(bounds.top(), window.top(), 0.6);
        EXPECT_NEAR(bounds.right(), window.right(), 0.6);
        EXPECT_NEAR(bounds.bottom(), window.bottom(), 0.6);
        EXPECT_TRUE(place.outline(0).contains(QRectF(place.content).center()));
    }
}

}  // namespace
}  // namespace vtx
