// SPDX-License-Identifier: MIT
#include "ui/kit/PopoverFrame.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "ui/kit/Paint.h"

namespace vtx {
namespace {

constexpr QRect screen(0, 0, 1280, 800);
constexpr QSize body(360, 540);

TEST(PopoverPlace, the_tip_points_at_the_middle_of_its_anchor) {
    const PopoverPlace place = placePopover(QRect(600, 0, 100, 24), body, screen);
    EXPECT_EQ(place.frame.edge, ArrowEdge::top);
    EXPECT_EQ(place.window.top(), 24);
    EXPECT_EQ(place.window.left() + place.frame.tipX, 650);
    EXPECT_EQ(place.window.size(), QSize(360, 550));
}

TEST(PopoverPlace, stays_eight_inside_the_screen_while_the_tip_still_points) {
    const PopoverPlace place = placePopover(QRect(1180, 0, 100, 24), body, screen);
    EXPECT_EQ(place.window.right() + 1, 1280 - 8);
    EXPECT_EQ(place.window.left() + place.frame.tipX, 1230);
}

TEST(PopoverPlace, comes_nearer_to_the_edge_before_the_tip_would_miss) {
    const PopoverPlace place = placePopover(QRect(1246, 0, 20, 24), body, screen);
    EXPECT_EQ(place.window.left() + place.frame.tipX, 1256);
    EXPECT_EQ(place.window.right() + 1, 1280);
    const PopoverPlace corner = placePopover(QRect(0, 0, 24, 24), body, screen);
    EXPECT_EQ(corner.window.left(), 0);
    EXPECT_EQ(corner.frame.tipX, 24);
}

TEST(PopoverPlace, opens_upward_from_the_lower_half) {
    const PopoverPlace place = placePopover(QRect(600, 776, 100, 24), body, screen);
    EXPECT_EQ(place.frame.edge, ArrowEdge::bottom);
    EXPECT_EQ(place.window.bottom() + 1, 776);
    EXPECT_EQ(place.frame.bodyRect(), QRect(0, 0, 360, 540));
}

TEST(PopoverPlace, gives_up_height_on_a_low_screen) {
    const PopoverPlace place = placePopover(QRect(600, 0, 100, 24), body, QRect(0, 0, 1280, 400));
    EXPECT_EQ(place.window.bottom() + 1, 400 - 8);
    EXPECT_EQ(place.frame.body.width(), 360);
}

TEST(PopoverPlace, works_on_a_screen_that_is_not_the_first) {
    const QRect second(-1920, 200, 1920, 1080);
    const PopoverPlace place = placePopover(QRect(-100, 200, 100, 24), body, second);
    EXPECT_TRUE(second.contains(place.window));
    EXPECT_EQ(place.window.left() + place.frame.tipX, -50);
}

TEST(PopoverFrame, the_outline_has_the_arrow_and_the_round_corners) {
    const PopoverFrame frame{QSize(200, 100), ArrowEdge::top, 60};
    const QPainterPath shape = frame.outline();
    EXPECT_NEAR(shape.boundingRect().top(), 0, 0.05);
    EXPECT_NEAR(shape.boundingRect().bottom(), 110, 0.01);
    EXPECT_TRUE(shape.contains(QPointF(60, 1)));
    EXPECT_FALSE(shape.contains(QPointF(75, 5)));
    EXPECT_FALSE(shape.contains(QPointF(1, 11)));
    EXPECT_TRUE(shape.contains(QPointF(100, 60)));
}

TEST(PopoverFrame, with_the_arrow_below_it_is_the_mirrored_shape) {
    const QPainterPath up = PopoverFrame{QSize(200, 100), ArrowEdge::top, 60}.outline();
    const QPainterPath down = PopoverFrame{QSize(200, 100), ArrowEdge::bottom, 60}.outline();
    for (int y = 0; y < 110; y += 3) {
        for (int x = 0; x < 200; x += 3) {
            const QPointF point(x + 0.5, y + 0.5);
            EXPECT_EQ(up.contains(point), down.contains({point.x(), 110 - point.y()}));
        }
    }
}

TEST(PopoverFrame, its_mask_has_smooth_corners_and_the_arrow) {
    const PopoverFrame frame{QSize(200, 100), ArrowEdge::top, 60};
    const QRegion mask = paint::maskOf(frame.outline(), frame.windowSize());
    EXPECT_FALSE(mask.contains(QPoint(0, 10)));
    EXPECT_FALSE(mask.contains(QPoint(2, 12)));
    EXPECT_TRUE(mask.contains(QPoint(4, 14)));
    EXPECT_TRUE(mask.contains(QPoint(60, 2)));
    EXPECT_FALSE(mask.contains(QPoint(80, 5)));
    EXPECT_EQ(mask.boundingRect().bottom(), 109);
}

TEST(PopoverFrame, its_line_lies_within_the_mask_at_every_scale) {
    const PopoverFrame frame{QSize(120, 60), ArrowEdge::top, 60};
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage image((QSizeF(frame.windowSize()) * scale).toSize(),
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        frame.paint(painter);
        painter.end();
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 255);
        EXPECT_GT(qAlpha(image.pixel(0, image.height() / 2)), 128) << scale;
    }
}

}  // namespace
}  // namespace vtx
