// SPDX-License-Identifier: MIT
#include "ui/kit/Button.h"

#include <gtest/gtest.h>

#include <QAccessibleActionInterface>

#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class ButtonTest : public testing::Test {
protected:
    ButtonTest() {
        button.setText(QStringLiteral("Free RAM"));
        button.resize(button.sizeHint());
        test::show(button);
        // Wherever the pointer happens to be, it is not here.
        QEvent left(QEvent::Leave);
        QApplication::sendEvent(&button, &left);
        QObject::connect(&button, &Button::pressed, [this] { ++pressed; });
    }

    QColor ground() { return test::picture(button, 1).pixelColor(button.shape().left() + 6, 8); }
    // The ring is drawn 2 outside the shape.
    QColor beside() { return test::picture(button, 1).pixelColor(1, button.height() / 2); }

    test::FixedTheme theme{Appearance::dark};
    Button button{ButtonKind::primary};
    int pressed = 0;
};

TEST_F(ButtonTest, is_26_high_with_room_for_its_focus_ring) {
    EXPECT_EQ(button.shape().height(), 26);
    EXPECT_EQ(button.height(), 34);
    Button icon(ButtonKind::quiet);
    icon.setSymbol(QStringLiteral("arrow.clockwise"));
    icon.resize(icon.sizeHint());
    EXPECT_EQ(icon.shape().size(), QSize(24, 24));
}

TEST_F(ButtonTest, a_click_within_presses_and_one_that_ends_outside_does_not) {
    test::click(button, button.rect().center());
    EXPECT_EQ(pressed, 1);
    test::mouse(button, QEvent::MouseButtonPress, button.rect().center(), Qt::LeftButton);
    test::mouse(button, QEvent::MouseButtonRelease, {-20, 0}, Qt::LeftButton);
    test::click(button, button.rect().center(), Qt::RightButton);
    EXPECT_EQ(pressed, 1);
}

TEST_F(ButtonTest, space_and_return_press) {
    button.setFocus(Qt::TabFocusReason);
    test::press(button, Qt::Key_Space);
    test::press(button, Qt::Key_Return);
    test::press(button, Qt::Key_A);
    EXPECT_EQ(pressed, 2);
}

TEST_F(ButtonTest, the_ring_shows_for_keyboard_focus_only) {
    const QColor ring = Theme::current().color(ColorToken::accent);
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_NE(beside(), ring);
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(beside(), ring);
    test::click(button, button.rect().center());
    EXPECT_NE(beside(), ring);
}

TEST_F(ButtonTest, ground_follows_hover_and_press) {
    const QColor accent = Theme::current().color(ColorToken::accent);
    EXPECT_EQ(ground(), accent);
    test::mouse(button, QEvent::MouseButtonPress, button.rect().center(), Qt::LeftButton);
    EXPECT_EQ(ground().rgb(), over(accent, withOpacity(Qt::black, 0.2F)).rgb());
    test::mouse(button, QEvent::MouseButtonRelease, button.rect().center(), Qt::LeftButton);
    const QColor text = Theme::current().color(ColorToken::text1, 0.12F);
    EXPECT_EQ(ground().rgb(), over(accent, text).rgb());
}

TEST_F(ButtonTest, disabled_it_neither_presses_nor_looks_pressable) {
    button.setEnabled(false);
    test::click(button, button.rect().center());
    button.pressWhole();
    EXPECT_EQ(pressed, 0);
    EXPECT_NE(ground(), Theme::current().color(ColorToken::accent));
}

TEST_F(ButtonTest, assistive_technology_finds_a_button_and_can_press_it) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Free RAM"));
    QAccessibleActionInterface* action = spoken->actionInterface();
    ASSERT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, 1);
    button.setEnabled(false);
    EXPECT_FALSE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

}  // namespace
}  // namespace vtx
