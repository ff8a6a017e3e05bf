// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ui/shell/ShellShape.h"

namespace vtx {
namespace {

const QRectF strip(0, 0, 150, 24);
const QPointF topLeft(0.5, 0.5), topRight(149.5, 0.5), bottomRight(149.5, 23.5),
    bottomLeft(0.5, 23.5);

TEST(ShellShape, a_floating_strip_has_every_corner_rounded) {
    const auto path = ShellShape::rounded(strip, {}, 12);
    for (const QPointF corner : {topLeft, topRight, bottomRight, bottomLeft})
        EXPECT_FALSE(path.contains(corner));
    EXPECT_EQ(path.boundingRect(), strip);
}

TEST(ShellShape, at_the_top_right_only_the_corner_that_faces_the_desktop_is_rounded) {
    const auto path = ShellShape::rounded(strip, Qt::TopEdge | Qt::RightEdge, 12);
    EXPECT_TRUE(path.contains(topLeft));
    EXPECT_TRUE(path.contains(topRight));
    EXPECT_TRUE(path.contains(bottomRight));
    EXPECT_FALSE(path.contains(bottomLeft));
}

TEST(ShellShape, away_from_the_corner_of_the_screen_both_lower_corners_are_rounded) {
    const auto path = ShellShape::rounded(strip, Qt::TopEdge, 12);
    EXPECT_TRUE(path.contains(topLeft));
    EXPECT_FALSE(path.contains(bottomLeft));
    EXPECT_FALSE(path.contains(bottomRight));
}

TEST(ShellShape, the_outline_is_half_a_pixel_and_never_less_than_a_device_pixel) {
    EXPECT_EQ(ShellShape::outline(Qt::white, 1).widthF(), 1);
    EXPECT_EQ(ShellShape::outline(Qt::white, 2).widthF(), 0.5);
    EXPECT_EQ(ShellShape::outline(Qt::white, 3).widthF(), 0.5);
}

}  // namespace
}  // namespace vtx
