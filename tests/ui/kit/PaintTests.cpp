// SPDX-License-Identifier: MIT
#include "ui/kit/Paint.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdlib>

#include "ui/support/PooledThreads.h"

namespace vtx {
namespace {

const QColor tint(0x33, 0x66, 0x99, 0x80);

template <class F>
QImage drawn(double scale, F&& what) {
    QImage image(QSizeF(400 * scale, 400 * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    what(painter);
    return image;
}

QImage rounded(double scale, const QRectF& rect, double radius) {
    return drawn(scale,
                 [&](QPainter& painter) { paint::fillRounded(painter, rect, radius, tint); });
}

/// At once, as the toolkit draws it.
QImage roundedAtOnce(double scale, const QRectF& rect, double radius) {
    return drawn(scale, [&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(rect, radius, radius);
    });
}

int greatestDifference(const QImage& one, const QImage& other) {
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(a) - qRed(b)),
                                 std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return greatest;
}

class FillRounded : public testing::TestWithParam<double> {};

TEST_P(FillRounded, is_the_same_picture_whatever_its_size) {
    const double scale = GetParam();
    for (const QRectF& rect :
         {QRectF(10, 20, 80, 24), QRectF(10, 20, 80, 25), QRectF(7, 3, 336, 152),
          QRectF(10, 20, 40, 300), QRectF(10.5, 20.5, 60, 60), QRectF(12, 12, 7, 7)}) {
        for (const double radius : {0.0, 6.0, 12.0, 100.0}) {
            EXPECT_LE(greatestDifference(rounded(scale, rect, radius),
                                         roundedAtOnce(scale, rect, radius)),
                      1)
                << rect.width() << " × " << rect.height() << ", radius " << radius;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, FillRounded, testing::Values(1.0, 1.25, 1.5, 2.0, 3.0));

TEST(FillRounded, is_drawn_by_the_thread_that_asks) {
    const QRectF pill(10, 20, 80, 24);
    const QRectF card(7, 3, 336, 152);
    EXPECT_GT(test::pooledThreadsFor([&] { (void)roundedAtOnce(2, pill, 6); }), 0)
        << "the toolkit shares nothing: there is nothing to avoid";
    for (const double scale : {1.0, 1.25, 2.0}) {
        for (const double radius : {6.0, 12.0}) {
            EXPECT_EQ(test::pooledThreadsFor([&] { (void)rounded(scale, pill, radius); }), 0)
                << "pill at " << scale << ", radius " << radius;
            EXPECT_EQ(test::pooledThreadsFor([&] { (void)rounded(scale, card, radius); }), 0)
                << "card at " << scale << ", radius " << radius;
        }
    }
}

}  // namespace
}  // namespace vtx
