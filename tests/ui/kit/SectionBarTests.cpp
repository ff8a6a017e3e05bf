// SPDX-License-Identifier: MIT
#include "ui/kit/SectionBar.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <memory>

#include "ui/kit/Metrics.h"
#include "ui/kit/Theme.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

SectionItem item(const char* id, const char* symbol, const char* title) {
    return {QString::fromLatin1(id), QString::fromLatin1(symbol), QString::fromLatin1(title)};
}

class SectionBarTest : public testing::Test {
protected:
    SectionBarTest() {
        bar.setItems({item("overview", "square.grid.2x2", "Overview"), item("cpu", "cpu", "CPU"),
                      item("ram", "memorychip", "RAM")});
        bar.setAction(item("detach", "pin", "Detach"));
        bar.setCurrent(QStringLiteral("overview"));
        bar.resize(360, bar.sizeHint().height());
        QObject::connect(&bar, &SectionBar::selected, [this](const QString& id) { told = id; });
        QObject::connect(&bar, &SectionBar::triggered, [this](const QString& id) { acted = id; });
        test::show(bar);
    }

    QPoint middleOf(int index) const { return bar.partRect(index).center(); }
    void focusByTab() { bar.setFocus(Qt::TabFocusReason); }
    QAccessibleInterface& spoken() { return *QAccessible::queryAccessibleInterface(&bar); }

    test::FixedTheme theme{Appearance::dark};
    SectionBar bar;
    QString told;
    QString acted;
};

TEST_F(SectionBarTest, a_click_selects_and_tells_once) {
    test::click(bar, middleOf(1));
    EXPECT_EQ(told, QStringLiteral("cpu"));
    EXPECT_EQ(bar.current(), QStringLiteral("cpu"));
    told.clear();
    test::click(bar, middleOf(1));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(SectionBarTest, a_press_let_go_elsewhere_does_nothing) {
    test::mouse(bar, QEvent::MouseButtonPress, middleOf(1), Qt::LeftButton);
    test::mouse(bar, QEvent::MouseButtonRelease, middleOf(2), Qt::LeftButton);
    test::click(bar, middleOf(1), Qt::RightButton);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(SectionBarTest, the_action_at_the_end_acts_and_does_not_select) {
    test::click(bar, middleOf(3));
    EXPECT_EQ(acted, QStringLiteral("detach"));
    EXPECT_EQ(bar.current(), QStringLiteral("overview"));
}

TEST_F(SectionBarTest, arrows_move_the_focus_and_space_presses) {
    focusByTab();
    EXPECT_EQ(bar.focusedPart(), 0);
    test::press(bar, Qt::Key_Right);
    EXPECT_EQ(bar.focusedPart(), 1);
    EXPECT_TRUE(told.isEmpty());
    test::press(bar, Qt::Key_Space);
    EXPECT_EQ(told, QStringLiteral("cpu"));
    test::press(bar, Qt::Key_Left);
    test::press(bar, Qt::Key_Left);
    EXPECT_EQ(bar.focusedPart(), 0);
}

TEST_F(SectionBarTest, home_and_end_go_to_the_ends_and_return_presses) {
    focusByTab();
    test::press(bar, Qt::Key_End);
    test::press(bar, Qt::Key_Return);
    EXPECT_EQ(acted, QStringLiteral("detach"));
    test::press(bar, Qt::Key_Home);
    EXPECT_EQ(bar.focusedPart(), 0);
}

TEST_F(SectionBarTest, a_digit_selects_at_once_and_one_too_many_is_left_to_others) {
    focusByTab();
    test::press(bar, Qt::Key_3);
    EXPECT_EQ(told, QStringLiteral("ram"));
    QKeyEvent four(QEvent::KeyPress, Qt::Key_4, Qt::NoModifier);
    QApplication::sendEvent(&bar, &four);
    EXPECT_FALSE(four.isAccepted());
    QKeyEvent withControl(QEvent::KeyPress, Qt::Key_1, Qt::ControlModifier);
    QApplication::sendEvent(&bar, &withControl);
    EXPECT_EQ(bar.current(), QStringLiteral("ram"));
}

TEST_F(SectionBarTest, the_tenth_item_has_the_key_0) {
    const QKeyEvent zero(QEvent::KeyPress, Qt::Key_0, Qt::NoModifier);
    EXPECT_FALSE(bar.selectByDigit(zero)) << "there are not so many";
    std::vector<SectionItem> items;
    for (int i = 1; i <= 11; ++i) {
        const QString name = QString::number(i);
        items.push_back({name, QStringLiteral("cpu"), name});
    }
    bar.setItems(std::move(items));
    EXPECT_TRUE(bar.selectByDigit(zero));
    EXPECT_EQ(told, QStringLiteral("10"));
}

TEST_F(SectionBarTest, a_digit_pressed_elsewhere_selects_and_one_too_many_does_not) {
    const QKeyEvent three(QEvent::KeyPress, Qt::Key_3, Qt::NoModifier);
    EXPECT_TRUE(bar.selectByDigit(three));
    EXPECT_EQ(told, QStringLiteral("ram"));
    const QKeyEvent four(QEvent::KeyPress, Qt::Key_4, Qt::NoModifier);
    EXPECT_FALSE(bar.selectByDigit(four)) << "the action is no item";
    const QKeyEvent withAlt(QEvent::KeyPress, Qt::Key_1, Qt::AltModifier);
    EXPECT_FALSE(bar.selectByDigit(withAlt));
    EXPECT_EQ(bar.current(), QStringLiteral("ram"));
}

TEST_F(SectionBarTest, the_focus_begins_at_what_was_selected_before_there_were_items) {
    SectionBar late;
    late.setAction(item("detach", "pin", "Detach"));
    late.setCurrent(QStringLiteral("cpu"));
    late.setItems({item("overview", "square.grid.2x2", "Overview"), item("cpu", "cpu", "CPU")});
    EXPECT_EQ(late.focusedPart(), 1);
}

TEST_F(SectionBarTest, the_focus_stays_with_its_button_as_others_go) {
    focusByTab();
    test::press(bar, Qt::Key_End);
    bar.setItems(
        {item("overview", "square.grid.2x2", "Overview"), item("ram", "memorychip", "RAM")});
    EXPECT_EQ(bar.focusedPart(), 2) << "the action, one place nearer";
    test::press(bar, Qt::Key_Left);
    EXPECT_EQ(bar.part(bar.focusedPart()).name, QStringLiteral("RAM"));
    bar.setItems({item("overview", "square.grid.2x2", "Overview"), item("cpu", "cpu", "CPU")});
    EXPECT_EQ(bar.focusedPart(), 0) << "its button is gone: the selected one";
}

TEST_F(SectionBarTest, shown_again_the_focus_begins_at_the_selected_button) {
    focusByTab();
    test::press(bar, Qt::Key_Right);
    ASSERT_EQ(bar.focusedPart(), 1);
    bar.hide();
    test::show(bar);
    EXPECT_EQ(bar.focusedPart(), 0);
}

TEST_F(SectionBarTest, arrows_follow_the_reading_direction) {
    bar.setLayoutDirection(Qt::RightToLeft);
    focusByTab();
    test::press(bar, Qt::Key_Left);
    EXPECT_EQ(bar.focusedPart(), 1);
    EXPECT_LT(bar.partRect(1).x(), bar.partRect(0).x());
}

TEST_F(SectionBarTest, the_focus_ring_shows_for_the_keyboard_only) {
    const QColor accent = Theme::current().color(ColorToken::accent);
    const auto hasRing = [&] {
        const QImage image = test::picture(bar, 1);
        const QPoint beside = bar.partRect(bar.focusedPart()).topLeft() + QPoint(12, -3);
        return image.pixelColor(beside) == accent;
    };
    test::click(bar, middleOf(1));
    bar.setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(bar.hasFocus());
    EXPECT_FALSE(hasRing());
    test::press(bar, Qt::Key_Right);
    EXPECT_TRUE(hasRing());
    test::click(bar, middleOf(1));
    EXPECT_FALSE(hasRing());
    bar.clearFocus();
    focusByTab();
    EXPECT_TRUE(hasRing());
}

TEST_F(SectionBarTest, the_tooltip_waits_for_the_pointer_to_rest) {
    test::hover(bar, middleOf(2));
    EXPECT_TRUE(bar.hoverTip().isPending());
    EXPECT_FALSE(bar.hoverTip().isShown());
    EXPECT_EQ(bar.hoverTip().timer().interval(), 500);
    QMetaObject::invokeMethod(&bar.hoverTip().timer(), "timeout");
    EXPECT_TRUE(bar.hoverTip().isShown());
    test::hover(bar, QPoint(200, 2));
    EXPECT_FALSE(bar.hoverTip().isShown());
    EXPECT_FALSE(bar.hoverTip().isPending());
}

TEST_F(SectionBarTest, hovering_repaints_the_buttons_concerned_and_nothing_else) {
    test::PaintRecorder recorder(bar);
    test::hover(bar, middleOf(2));
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0].boundingRect(), bar.partRect(2).adjusted(-4, -4, 4, 4));
}

TEST_F(SectionBarTest, speaks_as_a_list_of_pages_with_one_selected) {
    QAccessibleInterface& list = spoken();
    EXPECT_EQ(list.role(), QAccessible::PageTabList);
    ASSERT_EQ(list.childCount(), 4);
    EXPECT_EQ(list.child(1)->text(QAccessible::Name), QStringLiteral("CPU"));
    EXPECT_EQ(list.child(1)->role(), QAccessible::PageTab);
    EXPECT_TRUE(list.child(0)->state().selected);
    EXPECT_FALSE(list.child(1)->state().selected);
    EXPECT_EQ(list.child(3)->role(), QAccessible::Button);
    EXPECT_EQ(list.child(1)->parent(), &list);
    EXPECT_EQ(list.indexOfChild(list.child(2)), 2);
    const QRect there = list.child(2)->rect();
    EXPECT_EQ(there.topLeft(), bar.mapToGlobal(bar.partRect(2).topLeft()));
    EXPECT_EQ(list.childAt(there.center().x(), there.center().y()), list.child(2));
}

TEST_F(SectionBarTest, can_be_pressed_through_assistive_technology) {
    QAccessibleActionInterface* action = spoken().child(2)->actionInterface();
    ASSERT_NE(action, nullptr);
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(told, QStringLiteral("ram"));
    EXPECT_TRUE(spoken().child(2)->state().selected);
}

TEST_F(SectionBarTest, tells_assistive_technology_which_button_has_the_focus) {
    focusByTab();
    test::press(bar, Qt::Key_Right);
    EXPECT_TRUE(spoken().child(1)->state().focused);
    EXPECT_EQ(spoken().focusChild(), spoken().child(1));
}

TEST_F(SectionBarTest, a_part_that_is_gone_says_so) {
    QAccessibleInterface* last = spoken().child(3);
    bar.setAction(std::nullopt);
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->text(QAccessible::Name).isEmpty());
    EXPECT_EQ(spoken().childCount(), 3);
}

TEST_F(SectionBarTest, every_button_can_be_hit_and_none_overlap_at_the_least_width) {
    bar.resize(bar.sizeHint());
    for (int i = 0; i < bar.partCount(); ++i) {
        EXPECT_EQ(bar.partRect(i).size(), QSize(24, 24));
        EXPECT_TRUE(bar.rect().contains(bar.partRect(i)));
        if (i > 0) {
            EXPECT_GE(bar.partRect(i).left() - bar.partRect(i - 1).right() - 1, 4);
        }
    }
}

TEST_F(SectionBarTest, the_line_below_is_one_even_hairline_at_every_scale) {
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = test::picture(bar, scale);
        const int last = image.height() - 1;
        const int line = Theme::current().color(ColorToken::separator).alpha();
        for (const int x : {0, image.width() / 2, image.width() - 1}) {
            int rows = 0;
            for (int y = last; y > last - 4; --y) rows += qAlpha(image.pixel(x, y)) == line ? 1 : 0;
            EXPECT_EQ(rows, 1) << "at scale " << scale;
        }
    }
}

}  // namespace
}  // namespace vtx
