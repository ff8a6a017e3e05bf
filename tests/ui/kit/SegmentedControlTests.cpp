// SPDX-License-Identifier: MIT
#include "ui/kit/SegmentedControl.h"

#include <gtest/gtest.h>

#include "ui/kit/Theme.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class SegmentedControlTest : public testing::Test {
protected:
    SegmentedControlTest() {
        control.setSegments({"60s", "5m", "15m", "1h"});
        control.setCurrent(0);
        control.setMotion(Motion::reduced);
        control.resize(control.sizeHint());
        QObject::connect(&control, &SegmentedControl::selected,
                         [this](int index) { told.push_back(index); });
        test::show(control);
    }
    QAccessibleInterface& spoken() { return *QAccessible::queryAccessibleInterface(&control); }
    QColor ground(int segment) {
        const QImage image = test::picture(control, 1);
        return image.pixelColor(control.partRect(segment).topLeft() + QPoint(4, 3));
    }

    test::FixedTheme theme{Appearance::dark};
    SegmentedControl control;
    std::vector<int> told;
};

TEST_F(SegmentedControlTest, a_press_chooses_and_tells_once) {
    test::click(control, control.partRect(2).center());
    test::click(control, control.partRect(2).center());
    EXPECT_EQ(control.current(), 2);
    EXPECT_EQ(told, std::vector<int>{2});
}

TEST_F(SegmentedControlTest, a_press_that_is_let_go_elsewhere_chooses_nothing) {
    test::mouse(control, QEvent::MouseButtonPress, control.partRect(1).center(), Qt::LeftButton);
    test::mouse(control, QEvent::MouseButtonRelease, control.partRect(3).center(), Qt::LeftButton);
    EXPECT_TRUE(told.empty());
}

TEST_F(SegmentedControlTest, arrows_choose_and_stop_at_the_ends) {
    control.setFocus(Qt::TabFocusReason);
    test::press(control, Qt::Key_Left);
    EXPECT_EQ(control.current(), 0);
    test::press(control, Qt::Key_Right);
    test::press(control, Qt::Key_End);
    test::press(control, Qt::Key_Right);
    test::press(control, Qt::Key_Home);
    EXPECT_EQ(told, (std::vector<int>{1, 3, 0}));
}

TEST_F(SegmentedControlTest, is_one_tab_stop_with_a_ring_for_the_keyboard_alone) {
    EXPECT_EQ(control.focusPolicy(), Qt::StrongFocus);
    control.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(control.showsFocus());
    test::press(control, Qt::Key_Right);
    EXPECT_TRUE(control.showsFocus());
}

TEST_F(SegmentedControlTest, set_from_outside_it_tells_nobody) {
    control.setCurrent(3);
    EXPECT_TRUE(told.empty());
    test::settle();
    test::PaintRecorder recorder(control);
    control.setCurrent(3);
    control.setSegments({"60s", "5m", "15m", "1h"});
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(SegmentedControlTest, the_thumb_is_under_the_choice) {
    const QColor thumb = Theme::current().color(ColorToken::thumb);
    EXPECT_EQ(ground(0), thumb);
    EXPECT_NE(ground(2), thumb);
    control.setCurrent(2);
    EXPECT_EQ(ground(2), thumb);
}

TEST_F(SegmentedControlTest, the_thumb_starts_where_it_was_unless_motion_is_reduced) {
    const QColor thumb = Theme::current().color(ColorToken::thumb);
    control.setMotion(Motion::full);
    control.setCurrent(3);
    EXPECT_EQ(ground(0), thumb);
    control.setMotion(Motion::reduced);
    control.setCurrent(1);
    EXPECT_EQ(ground(1), thumb);
}

TEST_F(SegmentedControlTest, a_hidden_control_does_not_slide) {
    control.setMotion(Motion::full);
    control.hide();
    control.setCurrent(3);
    test::show(control);
    EXPECT_EQ(ground(3), Theme::current().color(ColorToken::thumb));
}

TEST_F(SegmentedControlTest, a_disabled_control_answers_to_nothing) {
    control.setEnabled(false);
    control.pressPart(2);
    EXPECT_EQ(control.current(), 0);
    EXPECT_FALSE(control.part(1).pressable);
}

TEST_F(SegmentedControlTest, each_segment_can_be_hit) {
    EXPECT_EQ(control.sizeHint().height() - 8, 24);
    for (int i = 0; i < control.partCount(); ++i) EXPECT_GE(control.partRect(i).width(), 24);
}

TEST_F(SegmentedControlTest, speaks_as_a_group_of_radio_buttons) {
    EXPECT_EQ(spoken().role(), QAccessible::Grouping);
    ASSERT_EQ(spoken().childCount(), 4);
    EXPECT_EQ(spoken().child(1)->role(), QAccessible::RadioButton);
    EXPECT_EQ(spoken().child(1)->text(QAccessible::Name), "5m");
    EXPECT_TRUE(spoken().child(0)->state().checked);
    EXPECT_FALSE(spoken().child(1)->state().checked);
    spoken().child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(told, std::vector<int>{1});
    EXPECT_TRUE(spoken().child(1)->state().checked);
}

}  // namespace
}  // namespace vtx
