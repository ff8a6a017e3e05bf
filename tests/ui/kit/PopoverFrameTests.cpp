// SPDX-License-Identifier: MIT
#include "ui/kit/PopoverFrame.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "ui/kit/Paint.h"

namespace vtx {
namespace {

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
