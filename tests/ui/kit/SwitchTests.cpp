// SPDX-License-Identifier: MIT
#include "ui/kit/Switch.h"

#include <gtest/gtest.h>

#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class SwitchTest : public testing::Test {
protected:
    SwitchTest() {
        control.setMotion(Motion::reduced);
        control.setAccessibleName(QStringLiteral("Compact mode"));
        control.resize(control.sizeHint());
        test::show(control);
        QObject::connect(&control, &Switch::toggled, [this](bool on) { told.push_back(on); });
    }

    QColor groundAt(int x) {
        return test::picture(control, 1)
            .pixelColor(control.shape().left() + x, control.rect().center().y());
    }

    test::FixedTheme theme{Appearance::light};
    Switch control;
    std::vector<bool> told;
};

TEST_F(SwitchTest, is_32_by_18_with_a_target_of_24_and_more) {
    EXPECT_EQ(control.shape().size(), QSize(32, 18));
    EXPECT_GE(control.height(), 24);
}

TEST_F(SwitchTest, a_click_turns_it_over_and_one_that_ends_outside_does_not) {
    test::click(control, control.rect().center());
    EXPECT_EQ(told, std::vector{true});
    test::mouse(control, QEvent::MouseButtonPress, control.rect().center(), Qt::LeftButton);
    test::mouse(control, QEvent::MouseButtonRelease, {-20, 0}, Qt::LeftButton);
    test::click(control, control.rect().center(), Qt::RightButton);
    EXPECT_TRUE(control.isOn());
    EXPECT_EQ(told, std::vector{true});
}

TEST_F(SwitchTest, space_turns_it_over) {
    control.setFocus(Qt::TabFocusReason);
    test::press(control, Qt::Key_Space);
    test::press(control, Qt::Key_Space);
    test::press(control, Qt::Key_A);
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST_F(SwitchTest, being_set_tells_nobody) {
    control.setOn(true);
    EXPECT_TRUE(control.isOn());
    EXPECT_TRUE(told.empty());
}

TEST_F(SwitchTest, on_it_is_filled_with_the_accent) {
    EXPECT_NE(groundAt(8).rgb(), Theme::current().color(ColorToken::accent).rgb());
    control.setOn(true);
    EXPECT_EQ(groundAt(8).rgb(), Theme::current().color(ColorToken::accent).rgb());
}

TEST_F(SwitchTest, disabled_it_cannot_be_turned_over) {
    control.setEnabled(false);
    test::click(control, control.rect().center());
    control.pressWhole();
    EXPECT_TRUE(told.empty());
}

TEST_F(SwitchTest, the_knob_slides_only_while_it_is_shown) {
    control.setMotion(Motion::full);
    control.hide();
    control.setOn(true);
    control.show();
    EXPECT_EQ(groundAt(8).rgb(), Theme::current().color(ColorToken::accent).rgb());
}

TEST_F(SwitchTest, assistive_technology_finds_a_check_box_and_can_press_it) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&control);
    EXPECT_EQ(spoken->role(), QAccessible::CheckBox);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Compact mode"));
    EXPECT_TRUE(spoken->state().checkable);
    EXPECT_FALSE(spoken->state().checked);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(spoken->state().checked);
    EXPECT_EQ(told, std::vector{true});
}

}  // namespace
}  // namespace vtx
