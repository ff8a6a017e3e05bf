// SPDX-License-Identifier: MIT
#include "ui/kit/Symbol.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "ui/kit/SymbolPathData.h"
#include "ui/kit/SymbolReader.h"

namespace vtx {
namespace {

QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 24) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

int strongest(const QImage& image) {
    int alpha = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            alpha = std::max(alpha, qAlpha(image.pixel(x, y)));
        }
    }
    return alpha;
}

TEST(Symbols, every_name_is_drawn_at_every_size_and_scale) {
    ASSERT_GE(symbols::names().size(), 73);
    for (const QString& name : symbols::names()) {
        for (const int size : {11, 13, 16}) {
            for (const qreal scale : {1.0, 2.0}) {
                const QImage image = symbols::image(name, size, Qt::black, scale);
                SCOPED_TRACE(name.toStdString());
                ASSERT_EQ(image.width(), static_cast<int>(size * scale));
                EXPECT_GE(std::max(inkOf(image).width(), inkOf(image).height()),
                          image.width() * 4 / 10);
                EXPECT_GE(strongest(image), 128);
            }
        }
    }
}

// What a stored icon can be: the defaults, and the choices that are offered for each tile.
TEST(Symbols, there_is_one_for_every_icon_that_is_stored) {
    for (const char* name : {"cpu",
                             "square.grid.3x3.fill",
                             "waveform.path.ecg",
                             "cpu.fill",
                             "cube.transparent.fill",
                             "display",
                             "thermometer.medium",
                             "flame",
                             "gauge.medium",
                             "memorychip.fill",
                             "chart.pie.fill",
                             "internaldrive.fill",
                             "internaldrive",
                             "externaldrive",
                             "opticaldisc",
                             "fan",
                             "fan.badge.automatic",
                             "wind",
                             "bolt.fill",
                             "brain"}) {
        EXPECT_TRUE(symbols::exists(QString::fromLatin1(name))) << name;
    }
}

TEST(Symbols, no_symbol_is_cut_off_at_its_edges) {
    for (const QString& name : symbols::names()) {
        SCOPED_TRACE(name.toStdString());
        const QImage image = symbols::image(name, 24, Qt::black, 2);
        const QRect ink = inkOf(image);
        EXPECT_TRUE(image.rect().adjusted(1, 1, -1, -1).contains(ink));
    }
}

TEST(Symbols, is_put_on_whole_device_pixels_at_every_scale) {
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage expected = symbols::image(QStringLiteral("cpu"), 13, Qt::red, scale);
        QImage page(64, 64, QImage::Format_ARGB32_Premultiplied);
        page.setDevicePixelRatio(scale);
        page.fill(Qt::transparent);
        QPainter painter(&page);
        painter.translate(0.3, 0.7);
        symbols::draw(painter, QRectF(3, 5, 20, 20), QStringLiteral("cpu"), 13, Qt::red);
        painter.end();
        const QPointF middle = QPointF(13.3, 15.7) * scale;
        const int left = static_cast<int>(std::round(middle.x() - expected.width() / 2.0));
        const int top = static_cast<int>(std::round(middle.y() - expected.height() / 2.0));
        QImage found = page.copy(left, top, expected.width(), expected.height());
        found.setDevicePixelRatio(scale);
        EXPECT_EQ(found, expected) << "at scale " << scale;
    }
}

TEST(Symbols, are_drawn_in_the_colour_asked_for) {
    const QImage image = symbols::image(QStringLiteral("bolt.fill"), 24, QColor(10, 200, 30), 1);
    EXPECT_EQ(image.pixel(12, 12), qRgb(10, 200, 30));
}

TEST(Symbols, an_unknown_name_draws_nothing) {
    for (const char* text : {"", "no.such.symbol", "cpu.svg"}) {
        const QString name = QString::fromLatin1(text);
        EXPECT_FALSE(symbols::exists(name));
        EXPECT_TRUE(symbols::image(name, 13, Qt::black, 1).isNull());
    }
}

TEST(SymbolReader, damaged_input_gives_no_shapes) {
    for (const char* svg :
         {"", "not xml", "<svg>", "<svg><path d='M0 0L10'/></svg>", "<svg><path d='L1 1'/></svg>",
          "<svg><path d='M0 0Q1 1 2 2'/></svg>", "<svg><path d=''/></svg>",
          "<svg><path d='M1 1L1e9999 0'/></svg>", "<svg><path d='M1 1z 3 3'/></svg>",
          "<svg><rect width='4' height='4'/></svg></svg>"}) {
        EXPECT_TRUE(readSymbol(QByteArrayView(svg)).empty()) << svg;
    }
}

TEST(SymbolReader, a_group_hands_its_style_and_place_down) {
    const auto shapes = readSymbol(
        "<svg fill='none' stroke='currentColor' stroke-width='1.5'>"
        "<g transform='translate(2 3) scale(2)' stroke-width='1.75'><circle cx='1' cy='1' r='1'/>"
        "</g><rect x='1' y='1' width='2' height='2' fill='currentColor' stroke='none'/></svg>");
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_DOUBLE_EQ(shapes[0].strokeWidth, 1.75);
    EXPECT_EQ(shapes[0].transform.map(QPointF(1, 1)), QPointF(4, 5));
    EXPECT_FALSE(shapes[0].filled);
    EXPECT_TRUE(shapes[1].filled);
    EXPECT_DOUBLE_EQ(shapes[1].strokeWidth, 0);
}

TEST(SymbolPathData, numbers_end_where_the_next_one_begins) {
    const auto path = parsePathData(u"M1-2l.5.5h3v-1");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->currentPosition(), QPointF(4.5, -2.5));
}

TEST(SymbolPathData, an_arc_keeps_its_distance_from_its_centre) {
    const auto path = parsePathData(u"M22 12A10 10 0 1 1 12 2");
    ASSERT_TRUE(path);
    for (int i = 0; i <= 20; ++i) {
        const QPointF at = path->pointAtPercent(i / 20.0) - QPointF(12, 12);
        EXPECT_NEAR(std::hypot(at.x(), at.y()), 10, 0.01);
    }
    EXPECT_NEAR(path->length(), 15 * std::numbers::pi, 0.2);
}

TEST(SymbolPathData, the_flags_of_an_arc_need_no_blanks) {
    const auto tight = parsePathData(u"M0 0a5 5 0 015 5");
    const auto loose = parsePathData(u"M0 0a5 5 0 0 1 5 5");
    ASSERT_TRUE(tight && loose);
    EXPECT_EQ(*tight, *loose);
}

TEST(SymbolPathData, a_smooth_curve_reflects_the_one_before) {
    const auto path = parsePathData(u"M0 0C0 2 2 4 4 4S8 2 8 0");
    ASSERT_TRUE(path);
    EXPECT_EQ(QPointF(path->elementAt(4)), QPointF(6, 4));
}

}  // namespace
}  // namespace vtx
