// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>

#include "ui/kit/CompositionBar.h"
#include "ui/kit/Gauge.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(CompositionBar, parts_stand_apart_and_fill_the_bar_to_its_end) {
    CompositionBar bar;
    bar.setParts({{0.25, ColorToken::memoryWired}, {0.75, ColorToken::memoryActive}});
    const std::vector<QRectF> parts = bar.segments(200);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].right(), 50);
    EXPECT_EQ(parts[1].left() - parts[0].right(), 1.5);
    EXPECT_EQ(parts[1].right(), 200);
}

TEST(CompositionBar, a_part_of_less_than_a_pixel_is_left_out) {
    CompositionBar bar;
    bar.setParts({{0.5, ColorToken::memoryWired},
                  {0.004, ColorToken::memoryActive},
                  {0.496, ColorToken::memoryFree}});
    EXPECT_EQ(bar.segments(200).size(), 2U);
    EXPECT_EQ(bar.segments(2000).size(), 3U);
}

TEST(CompositionBar, a_sliver_at_a_rounded_end_gives_its_place_to_its_neighbour) {
    CompositionBar bar;
    bar.setParts({{0.01, ColorToken::memoryWired},
                  {0.49, ColorToken::memoryActive},
                  {0.485, ColorToken::memoryInactive},
                  {0.015, ColorToken::memoryFree}});
    const std::vector<QRectF> parts = bar.segments(200);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].left(), 0);
    EXPECT_EQ(parts[0].right(), 100);
    EXPECT_EQ(parts[1].right(), 200);
    EXPECT_EQ(bar.segments(1000).size(), 4U) << "wide enough, each is shown";
}

TEST(CompositionBar, shares_that_are_too_much_end_with_the_bar) {
    CompositionBar bar;
    bar.setParts({{0.8, ColorToken::memoryWired},
                  {7, ColorToken::memoryActive},
                  {nan, ColorToken::memoryFree},
                  {-1, ColorToken::memoryFree}});
    const std::vector<QRectF> parts = bar.segments(100);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[1].right(), 100);
}

TEST(CompositionBar, speaks_the_text_it_is_given_as_one_picture) {
    CompositionBar bar;
    bar.setSpoken(QStringLiteral("Speicher-Aufteilung"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&bar);
    EXPECT_EQ(spoken->role(), QAccessible::Graphic);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Speicher-Aufteilung"));
    EXPECT_EQ(spoken->childCount(), 0);
}

class GaugeTest : public testing::Test {
protected:
    void show(GaugeContent content) {
        gauge.setContent(std::move(content));
        gauge.resize(300, gauge.sizeHint().height());
        test::show(gauge);
    }
    QColor at(int x, int y = 6) { return test::picture(gauge, 1).pixelColor(x, y); }

    test::FixedTheme theme{Appearance::dark};
    Gauge gauge;
};

TEST_F(GaugeTest, a_value_stands_in_its_range_and_never_outside) {
    show({.min = 1000, .max = 5000});
    EXPECT_EQ(gauge.position(2000), 0.25);
    EXPECT_EQ(gauge.position(0), 0);
    EXPECT_EQ(gauge.position(9000), 1);
}

TEST_F(GaugeTest, a_range_below_one_shows_the_track_alone) {
    show({.current = 1000, .target = 1000, .min = 1000, .max = 1000.9});
    EXPECT_EQ(gauge.position(1000), std::nullopt);
    const QColor track = Theme::current().color(ColorToken::track);
    for (const int x : {4, 150, 296}) EXPECT_EQ(at(x), track) << x;
    EXPECT_EQ(at(0, 0).alpha(), 0);
}

TEST_F(GaugeTest, numbers_that_are_none_show_the_track_alone) {
    const double infinity = std::numeric_limits<double>::infinity();
    show({.current = nan, .target = infinity, .min = -infinity, .max = nan});
    EXPECT_EQ(at(4), Theme::current().color(ColorToken::track));
    EXPECT_EQ(gauge.position(10), std::nullopt);
}

TEST_F(GaugeTest, the_gradient_lies_over_the_whole_range_and_is_uncovered) {
    show({.current = 100, .min = 0, .max = 100});
    const QColor middle = at(150);
    show({.current = 55, .min = 0, .max = 100});
    EXPECT_EQ(at(150), middle);
    EXPECT_EQ(at(200), Theme::current().color(ColorToken::track));
}

TEST_F(GaugeTest, the_target_has_a_mark_higher_than_the_bar) {
    show({.current = 0, .target = 0, .min = 0, .max = 100});
    EXPECT_EQ(at(0, 0), Theme::current().color(ColorToken::text1));
    EXPECT_EQ(at(0, 11), Theme::current().color(ColorToken::text1));
    EXPECT_EQ(at(3, 0).alpha(), 0);
}

TEST_F(GaugeTest, texts_below_add_a_line) {
    show({.min = 0, .max = 100});
    EXPECT_EQ(gauge.sizeHint().height(), 12);
    show({.min = 0, .max = 100, .minText = QStringLiteral("0")});
    EXPECT_EQ(gauge.sizeHint().height(), 12 + 2 + 15);
}

TEST_F(GaugeTest, speaks_as_a_progress_bar) {
    show({.label = QStringLiteral("Fan 1"), .spoken = QStringLiteral("2864 RPM")});
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&gauge)->child(0);
    EXPECT_EQ(spoken->role(), QAccessible::ProgressBar);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Fan 1"));
    EXPECT_EQ(spoken->text(QAccessible::Value), QStringLiteral("2864 RPM"));
}

}  // namespace
}  // namespace vtx
