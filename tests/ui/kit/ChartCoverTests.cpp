// SPDX-License-Identifier: MIT
#include "ui/kit/ChartCover.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace vtx {
namespace {

constexpr QRgb blue = 0xFF66A6FF;
constexpr int width = 4;
constexpr int height = 6;
constexpr int columns = width * ChartCover::fineness;

struct Strip {
    int column;
    double top;
    double bottom;
};

QImage drawn(const std::vector<Strip>& strips, QRgb ground = 0, float opacity = 1) {
    QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    ChartCover cover(width, height, strips.size());
    for (const Strip& strip : strips) cover.add(strip.column, strip.top, strip.bottom);
    std::array<float, height> rows{};
    rows.fill(opacity);
    cover.blend(picture, blue, rows);
    return picture;
}

std::vector<Strip> whole(int pixel, double top, double bottom) {
    std::vector<Strip> strips;
    for (int i = 0; i < ChartCover::fineness; ++i)
        strips.push_back({pixel * ChartCover::fineness + i, top, bottom});
    return strips;
}

TEST(ChartCover, a_pixel_is_as_opaque_as_it_is_covered) {
    const QImage picture = drawn(whole(1, 1.5, 4.25));
    EXPECT_EQ(qAlpha(picture.pixel(1, 0)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(1, 1)), 128);
    EXPECT_EQ(picture.pixel(1, 2), blue);
    EXPECT_EQ(picture.pixel(1, 3), blue);
    EXPECT_EQ(qAlpha(picture.pixel(1, 4)), 64);
    EXPECT_EQ(qAlpha(picture.pixel(1, 5)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(0, 2)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(2, 2)), 0);
}

TEST(ChartCover, one_fine_column_is_an_eighth_of_a_pixel) {
    EXPECT_EQ(qAlpha(drawn({{8, 0, 6}}).pixel(1, 3)), 32);
}

TEST(ChartCover, what_is_covered_twice_is_no_more_than_covered) {
    auto twice = whole(1, 0, 6);
    twice.insert(twice.end(), twice.begin(), twice.begin() + ChartCover::fineness);
    EXPECT_EQ(drawn(twice), drawn(whole(1, 0, 6)));
}

TEST(ChartCover, the_order_of_the_strips_is_free) {
    std::vector<Strip> strips;
    for (int i = 0; i < columns; ++i) strips.push_back({i, i % 5 * 0.5, 3 + i % 7 * 0.375});
    const QImage picture = drawn(strips);
    std::ranges::reverse(strips);
    EXPECT_EQ(drawn(strips), picture);
}

TEST(ChartCover, is_laid_over_what_is_there) {
    const QImage picture = drawn(whole(1, 0, 6), 0xFF204060, 0.5F);
    EXPECT_EQ(picture.pixel(0, 3), 0xFF204060);
    EXPECT_EQ(picture.pixel(1, 3), 0xFF4373B0);
}

TEST(ChartCover, what_is_outside_the_picture_or_no_number_is_left_out) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(drawn({{-1, 0, 6}, {columns, 0, 6}, {3, 4, 2}, {3, nan, 5}, {3, 2, nan}}), drawn({}));
    EXPECT_EQ(drawn({{3, -infinity, infinity}}), drawn({{3, 0, 6}}));
}

}  // namespace
}  // namespace vtx
