// SPDX-License-Identifier: MIT
#include "ui/kit/Slider.h"

#include <gtest/gtest.h>

#include <QWheelEvent>
#include <limits>

#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class SliderTest : public testing::Test {
protected:
    SliderTest() {
        slider.setRange({50, 100, 1});
        slider.setValue(90);
        slider.setAccessibleName(QStringLiteral("CPU"));
        slider.setSpokenValue(QStringLiteral("90%"));
        slider.resize(216, 24);
        test::show(slider);
        QObject::connect(&slider, &Slider::moved, [this](double value) { told.push_back(value); });
    }

    [[nodiscard]] int knobX() const { return slider.knobRect().center().toPoint().x(); }
    void drag(int from, int to) {
        test::mouse(slider, QEvent::MouseButtonPress, {from, 12}, Qt::LeftButton);
        QMouseEvent move(QEvent::MouseMove, QPointF(to, 12), slider.mapToGlobal(QPointF(to, 12)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&slider, &move);
        test::mouse(slider, QEvent::MouseButtonRelease, {to, 12}, Qt::LeftButton);
    }

    test::FixedTheme theme{Appearance::dark};
    Slider slider;
    std::vector<double> told;
};

TEST_F(SliderTest, the_knob_stands_where_the_value_is) {
    EXPECT_EQ(knobX(), 8 + 160);
    slider.setValue(50);
    EXPECT_EQ(knobX(), 8);
    slider.setValue(100);
    EXPECT_EQ(knobX(), 208);
    EXPECT_TRUE(told.empty());
}

TEST_F(SliderTest, arrows_pages_home_and_end_move_it_in_steps) {
    const auto at = [this](int key) {
        test::press(slider, key);
        return slider.value();
    };
    EXPECT_EQ(at(Qt::Key_Right), 91);
    EXPECT_EQ(at(Qt::Key_Up), 92);
    EXPECT_EQ(at(Qt::Key_Left), 91);
    EXPECT_EQ(at(Qt::Key_Down), 90);
    EXPECT_EQ(at(Qt::Key_PageDown), 85);
    EXPECT_EQ(at(Qt::Key_PageUp), 90);
    EXPECT_EQ(at(Qt::Key_Home), 50);
    EXPECT_EQ(at(Qt::Key_End), 100);
    EXPECT_EQ(told.size(), 8U);
    EXPECT_EQ(at(Qt::Key_Right), 100);
    EXPECT_EQ(told.size(), 8U);
}

TEST_F(SliderTest, a_press_in_the_strip_brings_the_knob_there) {
    test::click(slider, {8, 2});
    EXPECT_EQ(slider.value(), 50);
    test::click(slider, {108, 22});
    EXPECT_EQ(slider.value(), 75);
}

TEST_F(SliderTest, a_drag_goes_by_whole_steps_and_ends_at_the_bounds) {
    drag(knobX(), knobX() - 40);
    EXPECT_EQ(slider.value(), 80);
    drag(knobX(), 4000);
    EXPECT_EQ(slider.value(), 100);
    drag(knobX(), -4000);
    EXPECT_EQ(slider.value(), 50);
}

TEST_F(SliderTest, taken_beside_its_middle_the_knob_does_not_jump) {
    drag(knobX() + 5, knobX() + 5);
    EXPECT_TRUE(told.empty());
}

TEST_F(SliderTest, a_value_beyond_the_bounds_shows_at_the_bound) {
    slider.setValue(1e300);
    EXPECT_EQ(knobX(), 208);
    slider.setValue(-5);
    EXPECT_EQ(knobX(), 8);
    slider.setValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(knobX(), 8);
    test::press(slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 51);
}

TEST_F(SliderTest, steps_meet_the_upper_bound_though_they_do_not_divide_the_range) {
    slider.setRange({0, 10, 4});
    slider.setValue(8);
    test::press(slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 10);
}

TEST_F(SliderTest, in_a_layout_from_right_to_left_it_is_mirrored) {
    slider.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(knobX(), 216 - 168);
    test::press(slider, Qt::Key_Left);
    EXPECT_EQ(slider.value(), 91);
}

TEST_F(SliderTest, the_wheel_is_left_to_the_page) {
    QWheelEvent wheel(QPointF(100, 12), QPointF(100, 12), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_EQ(slider.value(), 90);
    EXPECT_FALSE(wheel.isAccepted());
}

TEST_F(SliderTest, assistive_technology_hears_its_value_and_can_set_it) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&slider);
    EXPECT_EQ(spoken->role(), QAccessible::Slider);
    EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("90%"));
    QAccessibleValueInterface* value = spoken->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 90);
    EXPECT_EQ(value->minimumValue().toDouble(), 50);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    value->setCurrentValue(85);
    EXPECT_EQ(told, std::vector{85.0});
    slider.setEnabled(false);
    value->setCurrentValue(60);
    EXPECT_EQ(slider.value(), 85);
}

}  // namespace
}  // namespace vtx
