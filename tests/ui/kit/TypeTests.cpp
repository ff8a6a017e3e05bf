// SPDX-License-Identifier: MIT
#include "ui/kit/Type.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <array>
#include <fstream>
#include <string>
#include <vector>

namespace vtx {
namespace {

constexpr std::array scales{1.0, 1.25, 1.5, 2.0};

std::vector<TextRole> everyRole() {
    std::vector<TextRole> roles;
    for (int i = 0; i <= static_cast<int>(TextRole::tray); ++i) {
        roles.push_back(static_cast<TextRole>(i));
    }
    return roles;
}

QImage drawn(const QString& text, TextRole role, qreal scale) {
    QImage image(static_cast<int>(200 * scale), static_cast<int>(50 * scale),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    drawTabular(painter, QRectF(0, 0, 200, 50), text, role);
    return image;
}

// The columns from `from` logical pixels to the right end.
QImage rightOf(const QImage& image, qreal from) {
    const int x = static_cast<int>(from * image.devicePixelRatio());
    return image.copy(x, 0, image.width() - x, image.height());
}

TEST(Type, figures_of_as_many_digits_are_equally_wide_in_every_role) {
    for (const TextRole role : everyRole()) {
        EXPECT_DOUBLE_EQ(tabularWidth(QStringLiteral("11"), role),
                         tabularWidth(QStringLiteral("88"), role));
        EXPECT_GT(tabularWidth(QStringLiteral("100"), role),
                  tabularWidth(QStringLiteral("88"), role));
    }
}

TEST(Type, what_follows_a_changed_digit_keeps_its_place_at_every_scale) {
    for (const qreal scale : scales) {
        const QString one = QStringLiteral("1 GHz");
        const QString eight = QStringLiteral("8 GHz");
        const qreal unit = 200 - tabularWidth(QStringLiteral(" GHz"), TextRole::rowValue) + 1;
        EXPECT_EQ(rightOf(drawn(one, TextRole::rowValue, scale), unit),
                  rightOf(drawn(eight, TextRole::rowValue, scale), unit));
        EXPECT_NE(drawn(one, TextRole::rowValue, scale), drawn(eight, TextRole::rowValue, scale));
    }
}

TEST(Type, a_figure_in_letters_the_face_lacks_is_drawn_by_another_face) {
    const QString text = QString::fromUtf8("温度");
    EXPECT_GT(tabularWidth(text, TextRole::rowValue), 13);
    EXPECT_NE(drawn(text, TextRole::rowValue, 1), drawn(QString(), TextRole::rowValue, 1));
}

TEST(Type, fonts_have_the_size_and_weight_of_their_role) {
    EXPECT_EQ(fontFor(TextRole::hero).pixelSize(), 38);
    EXPECT_EQ(fontFor(TextRole::hero).weight(), QFont::DemiBold);
    EXPECT_EQ(fontFor(TextRole::strip).pixelSize(), 11);
    EXPECT_EQ(fontFor(TextRole::strip).weight(), QFont::Medium);
    EXPECT_EQ(lineHeight(TextRole::rowValue), 18);
    EXPECT_LT(fontFor(TextRole::hero).letterSpacing(), 0);
}

TEST(Type, running_text_that_does_not_fit_is_shortened_within_its_room) {
    QImage image(200, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawText(painter, QRectF(0, 0, 60, 30), QStringLiteral("A title that is far too long"),
             TextRole::rowTitle);
    painter.end();
    QImage blank(140, 30, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::white);
    EXPECT_EQ(image.copy(60, 0, 140, 30), blank);
    EXPECT_NE(image.copy(0, 0, 60, 30), blank.copy(0, 0, 60, 30));
}

TEST(Type, nothing_to_say_draws_nothing) {
    EXPECT_DOUBLE_EQ(tabularWidth(QString(), TextRole::body), 0);
}

/// The files of fonts that are mapped; where they are not, nothing can be told of them.
std::size_t mappedFonts() {
    std::ifstream maps("/proc/self/maps");
    std::size_t found = 0;
    for (std::string line; std::getline(maps, line);)
        found += line.ends_with(".otf") || line.ends_with(".ttf") || line.ends_with(".ttc");
    return found;
}

TEST(Type, released_fonts_are_taken_anew_and_look_the_same) {
    const auto running = [](TextRole role) {
        QImage image(200, 50, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setPen(Qt::black);
        drawText(painter, QRectF(0, 0, 200, 50), QStringLiteral("Última carga"), role);
        return image;
    };
    for (const TextRole role : everyRole()) {
        const QString figure = QStringLiteral("38.4 GB");
        const QImage figureBefore = drawn(figure, role, 1.0);
        const QImage textBefore = running(role);
        const qreal widthBefore = textWidth(figure, role);
        releaseFonts();
        EXPECT_EQ(drawn(figure, role, 1.0), figureBefore);
        EXPECT_EQ(running(role), textBefore);
        EXPECT_EQ(textWidth(figure, role), widthBefore);
    }
}

TEST(Type, released_fonts_leave_no_file_of_theirs_open) {
    (void)drawn(QStringLiteral("38"), TextRole::hero, 1.0);
    if (mappedFonts() == 0) GTEST_SKIP() << "this machine does not map its fonts";
    releaseFonts();
    EXPECT_EQ(mappedFonts(), 0U);
}

TEST(Type, a_font_that_somebody_holds_works_on_after_all_were_released) {
    const QFont held = fontFor(TextRole::body);
    const qreal before = QFontMetricsF(held).horizontalAdvance(QStringLiteral("Memory"));
    releaseFonts();
    EXPECT_EQ(QFontMetricsF(held).horizontalAdvance(QStringLiteral("Memory")), before);
}

}  // namespace
}  // namespace vtx
