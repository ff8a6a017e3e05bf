// SPDX-License-Identifier: MIT
#include "ui/kit/Banner.h"

#include <gtest/gtest.h>

#include "ui/kit/Button.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class BannerTest : public testing::Test {
protected:
    BannerTest() { show(content()); }

    static BannerContent content() {
        return {.color = ColorToken::orange,
                .symbol = QStringLiteral("exclamationmark.circle"),
                .title = QStringLiteral("Memory pressure"),
                .status = QStringLiteral("Warning"),
                .body = QStringLiteral("Top consumers"),
                .entries = {{QStringLiteral("firefox"), QStringLiteral("4.8 GB")},
                            {QStringLiteral("node"), QStringLiteral("870 MB")}},
                .button = QStringLiteral("Free RAM")};
    }
    void show(BannerContent shown) {
        banner.setContent(std::move(shown));
        banner.resize(336, banner.heightForWidth(336));
        test::show(banner);
    }
    Button& button() { return *banner.findChild<Button*>(); }

    test::FixedTheme theme{Appearance::dark};
    Banner banner;
};

TEST_F(BannerTest, is_as_high_as_what_it_shows) {
    // 10 + title 18 + 4 + 15 + 2 + two entries of 19 + 8 + 26 + 10
    EXPECT_EQ(banner.heightForWidth(336), 131);
    BannerContent bare{.title = QStringLiteral("Freed 2.7 GB")};
    banner.setContent(bare);
    EXPECT_EQ(banner.heightForWidth(336), 38);
}

TEST_F(BannerTest, a_long_body_wraps_where_the_banner_is_narrow) {
    BannerContent shown = content();
    shown.body = QStringLiteral("RAM is getting tight, quitting tabs or apps reduces the load.");
    shown.entries.clear();
    banner.setContent(shown);
    EXPECT_GT(banner.heightForWidth(160), banner.heightForWidth(500));
}

TEST_F(BannerTest, shows_the_button_only_where_it_has_a_word) {
    EXPECT_TRUE(button().isVisible());
    BannerContent shown = content();
    shown.button.clear();
    show(shown);
    EXPECT_FALSE(button().isVisible());
}

TEST_F(BannerTest, the_button_lies_within_the_padding) {
    const QRect shape = button().shape().translated(button().pos());
    EXPECT_EQ(shape.left(), 10);
    EXPECT_EQ(shape.bottom() + 1, banner.height() - 10);
    banner.setLayoutDirection(Qt::RightToLeft);
    show(content());
    banner.resize(300, banner.height());
    EXPECT_EQ(button().shape().translated(button().pos()).right() + 1, 290);
}

TEST_F(BannerTest, tells_when_its_button_was_pressed) {
    int pressed = 0;
    QObject::connect(&banner, &Banner::pressed, [&pressed] { ++pressed; });
    test::click(button(), button().rect().center());
    EXPECT_EQ(pressed, 1);
}

TEST_F(BannerTest, equal_content_paints_nothing) {
    test::PaintRecorder recorder(banner);
    banner.setContent(content());
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(BannerTest, speaks_its_texts_and_then_its_button) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&banner);
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
    ASSERT_EQ(spoken->childCount(), 5);
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Name), QStringLiteral("Memory pressure"));
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Value), QStringLiteral("Warning"));
    EXPECT_EQ(spoken->child(1)->text(QAccessible::Name), QStringLiteral("Top consumers"));
    EXPECT_EQ(spoken->child(3)->text(QAccessible::Name), QStringLiteral("node"));
    EXPECT_EQ(spoken->child(3)->text(QAccessible::Value), QStringLiteral("870 MB"));
    EXPECT_EQ(spoken->child(4)->role(), QAccessible::Button);
    EXPECT_EQ(spoken->child(4)->text(QAccessible::Name), QStringLiteral("Free RAM"));
    EXPECT_EQ(spoken->indexOfChild(spoken->child(4)), 4);
}

TEST_F(BannerTest, ground_and_outline_are_shades_of_its_colour) {
    const QImage image = test::picture(banner, 2);
    const QColor tint = Theme::current().color(ColorToken::orange);
    const int ground = image.pixelColor(400, image.height() - 8).alpha();
    EXPECT_NEAR(ground, 255 * 0.10, 1);
    EXPECT_NEAR(image.pixelColor(400, 0).alpha(), 255 * (0.35 + 0.10 * 0.65), 2);
    EXPECT_NEAR(image.pixelColor(400, 0).red(), tint.red(), 3);
}

}  // namespace
}  // namespace vtx
