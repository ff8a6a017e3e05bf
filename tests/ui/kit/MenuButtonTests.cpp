// SPDX-License-Identifier: MIT
#include "ui/kit/MenuButton.h"

#include <gtest/gtest.h>

#include <QAction>

#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

class MenuButtonTest : public testing::Test {
protected:
    MenuButtonTest() {
        button.setChoices({{QStringLiteral("Thermometer"), QStringLiteral("thermometer.medium")},
                           {QStringLiteral("Flame & Co"), QStringLiteral("flame")},
                           {QStringLiteral("Gauge"), QStringLiteral("gauge.medium")}});
        button.setCurrent(0);
        button.setAccessibleName(QStringLiteral("CPU temperature"));
        button.resize(button.sizeHint());
        test::show(button);
        QObject::connect(&button, &MenuButton::chosen,
                         [this](int index) { told.push_back(index); });
    }
    ~MenuButtonTest() override {
        if (button.menu()) button.menu()->close();
        test::settle();
    }

    test::FixedTheme theme{Appearance::light};
    MenuButton button;
    std::vector<int> told;
};

TEST_F(MenuButtonTest, is_24_high_and_as_wide_as_its_choice) {
    EXPECT_EQ(button.shape().height(), 24);
    const int before = button.sizeHint().width();
    button.setCurrent(2);
    EXPECT_LT(button.sizeHint().width(), before);
}

TEST_F(MenuButtonTest, a_press_opens_the_choices_with_a_mark_at_the_one_that_holds) {
    test::click(button, button.rect().center());
    ASSERT_NE(button.menu(), nullptr);
    const auto rows = button.menu()->actions();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_TRUE(rows[0]->isChecked());
    EXPECT_FALSE(rows[1]->isChecked());
    EXPECT_EQ(rows[1]->text(), QStringLiteral("Flame && Co"));
    EXPECT_EQ(rows[1]->data().toString(), QStringLiteral("flame"));
}

TEST_F(MenuButtonTest, a_choice_is_told_once_and_the_same_one_again_is_not) {
    button.pressWhole();
    button.menu()->actions()[2]->trigger();
    EXPECT_EQ(button.current(), 2);
    button.menu()->close();
    test::settle();
    button.pressWhole();
    button.menu()->actions()[2]->trigger();
    EXPECT_EQ(told, std::vector{2});
}

TEST_F(MenuButtonTest, the_keyboard_opens_and_chooses) {
    button.setFocus(Qt::TabFocusReason);
    test::press(button, Qt::Key_Down);
    ASSERT_NE(button.menu(), nullptr);
    test::press(*button.menu(), Qt::Key_Down);
    test::press(*button.menu(), Qt::Key_Return);
    EXPECT_EQ(told, std::vector{1});
}

TEST_F(MenuButtonTest, a_menu_goes_with_its_button) {
    button.pressWhole();
    button.hide();
    test::settle();
    EXPECT_EQ(button.menu(), nullptr);
}

TEST_F(MenuButtonTest, none_of_the_choices_reads_as_a_dash) {
    button.setCurrent(-1);
    EXPECT_EQ(button.accessibleDescription(), QStringLiteral("—"));
}

TEST_F(MenuButtonTest, assistive_technology_finds_a_combo_box_with_its_choice) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(spoken->role(), QAccessible::ComboBox);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("CPU temperature"));
    EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("Thermometer"));
    EXPECT_TRUE(spoken->state().hasPopup);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_NE(button.menu(), nullptr);
}

}  // namespace
}  // namespace vtx
