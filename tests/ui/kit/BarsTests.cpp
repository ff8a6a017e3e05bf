// SPDX-License-Identifier: MIT
#include "ui/kit/Bars.h"

#include <gtest/gtest.h>

#include <limits>

#include "ui/kit/UsageBar.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Bars, a_value_is_held_within_its_range) {
    EXPECT_EQ(bars::fraction(0.4), 0.4);
    EXPECT_EQ(bars::fraction(-3), 0);
    EXPECT_EQ(bars::fraction(1.7), 1);
    EXPECT_EQ(bars::fraction(nan), 0);
    EXPECT_EQ(bars::fraction(infinity), 1);
    EXPECT_EQ(bars::fraction(-infinity), 0);
}

TEST(Bars, zero_has_no_fill_and_anything_above_has_at_least_two) {
    EXPECT_EQ(bars::filled(0, 200, 1), 0);
    EXPECT_EQ(bars::filled(1e-9, 200, 1), 2);
    EXPECT_EQ(bars::filled(0.005, 200, 2), 2);
    EXPECT_EQ(bars::filled(0.5, 200, 1), 100);
    EXPECT_EQ(bars::filled(1, 200, 1.25), 200);
}

TEST(Bars, a_bar_that_is_shorter_than_its_least_fill_is_filled_at_most) {
    EXPECT_EQ(bars::filled(0.5, 1, 1), 1);
    EXPECT_EQ(bars::filled(0.5, 0, 1), 0);
    EXPECT_EQ(bars::filled(0.5, -4, 1), 0);
}

class UsageBarTest : public testing::Test {
protected:
    UsageBarTest() {
        bar.setContent(content(0.25));
        bar.resize(200, bar.sizeHint().height());
        test::show(bar);
    }

    static UsageBarContent content(double value, ColorToken tint = ColorToken::cpu) {
        return {.value = value,
                .tint = tint,
                .label = QStringLiteral("CPU"),
                .spoken = QString::number(qRound(value * 100)) + QStringLiteral(" %")};
    }
    QColor at(int x) { return test::picture(bar, 1).pixelColor(x, 3); }

    test::FixedTheme theme{Appearance::dark};
    UsageBar bar;
};

TEST_F(UsageBarTest, fills_from_the_start_as_far_as_its_value) {
    const QColor tint = Theme::current().color(ColorToken::cpu);
    EXPECT_EQ(at(4), tint);
    EXPECT_EQ(at(46), tint);
    EXPECT_NE(at(52), tint);
    bar.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(at(195), tint);
    EXPECT_NE(at(4), tint);
}

TEST_F(UsageBarTest, a_change_of_less_than_a_pixel_paints_nothing) {
    test::PaintRecorder recorder(bar);
    bar.setContent(content(0.251));
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
    bar.setContent(content(0.26));
    test::settle();
    EXPECT_EQ(recorder.painted.size(), 1U);
}

TEST_F(UsageBarTest, equal_content_paints_nothing_even_where_it_is_no_number) {
    bar.setContent(content(nan));
    test::settle();
    test::PaintRecorder recorder(bar);
    bar.setContent(content(nan));
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(UsageBarTest, a_colour_of_ones_own_holds_in_both_appearances) {
    const QColor own(0x12, 0x34, 0x56);
    bar.setContent({.value = 1, .tint = own});
    EXPECT_EQ(at(100), own);
    theme.set(Appearance::light);
    EXPECT_EQ(at(100), own);
}

TEST_F(UsageBarTest, speaks_its_label_and_value_as_a_progress_bar) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bar)->child(0);
    EXPECT_EQ(spoken->role(), QAccessible::ProgressBar);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("CPU"));
    EXPECT_EQ(spoken->text(QAccessible::Value), QStringLiteral("25 %"));
}

}  // namespace
}  // namespace vtx
