// SPDX-License-Identifier: MIT
#include "ui/shell/StatusMenu.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPointer>
#include <QScreen>
#include <string>

#include "ShellFakes.h"

namespace vtx {
namespace {

class StatusMenuTest : public testing::Test {
protected:
    std::vector<StatusMenuItem> items() {
        return {{"About & more", "", [this] { ran += 'a'; }, false, true},
                StatusMenuItem::separator(),
                {"Refresh Now", "Ctrl+R", [this] { ran += 'r'; }, false, true},
                {"Quit", "Ctrl+Q", [this] { ran += 'q'; }, false, false}};
    }

    FakeWindowSystem system;
    StatusMenu menu{system, items()};
    std::string ran;
};

TEST_F(StatusMenuTest, rows_are_25_high_and_in_order) {
    menu.popup(QPoint(10, 10));
    const auto rows = menu.actions();
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(menu.actionGeometry(rows[0]).height(), 25);
    EXPECT_TRUE(rows[1]->isSeparator());
    EXPECT_EQ(menu.actionGeometry(rows[2]).height(), 25);
    EXPECT_FALSE(rows[3]->isEnabled());
}

TEST_F(StatusMenuTest, the_keyboard_chooses_a_row_and_skips_separators) {
    menu.popup(QPoint(10, 10));
    pressKey(menu, Qt::Key_Down);
    pressKey(menu, Qt::Key_Down);
    pressKey(menu, Qt::Key_Return);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(ran, "");
    QApplication::processEvents();
    EXPECT_EQ(ran, "r");
}

TEST_F(StatusMenuTest, a_shortcut_works_while_the_menu_is_open) {
    menu.popup(QPoint(10, 10));
    pressKey(menu, Qt::Key_R, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(ran, "r");
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(StatusMenuTest, a_disabled_rows_shortcut_does_nothing) {
    menu.popup(QPoint(10, 10));
    pressKey(menu, Qt::Key_Q, Qt::ControlModifier);
    QApplication::processEvents();
    EXPECT_EQ(ran, "");
}

TEST_F(StatusMenuTest, escape_closes_it_without_an_action) {
    menu.popup(QPoint(10, 10));
    pressKey(menu, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(ran, "");
}

TEST_F(StatusMenuTest, assistive_software_reads_the_titles) {
    auto* accessible = QAccessible::queryAccessibleInterface(&menu);
    ASSERT_EQ(accessible->childCount(), 4);
    EXPECT_EQ(accessible->child(0)->text(QAccessible::Name), "About & more");
    EXPECT_EQ(accessible->child(0)->role(), QAccessible::MenuItem);
    EXPECT_EQ(accessible->child(1)->role(), QAccessible::Separator);
}

TEST_F(StatusMenuTest, opening_does_not_wait_and_the_menu_deletes_itself) {
    StatusMenu::popUp(system, items(), QRect(10, 0, 150, 24));
    const QPointer<QWidget> open = QApplication::activePopupWidget();
    ASSERT_FALSE(open.isNull());
    open->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(open.isNull());
}

TEST_F(StatusMenuTest, opens_below_its_anchor_and_above_one_at_the_bottom) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QRect anchor(screen.left() + 10, screen.top(), 150, 24);
    StatusMenu::popUp(system, items(), anchor);
    EXPECT_EQ(QApplication::activePopupWidget()->geometry().top(), anchor.bottom() + 5);
    QApplication::activePopupWidget()->close();
    anchor.moveBottom(screen.bottom());
    StatusMenu::popUp(system, items(), anchor);
    EXPECT_EQ(QApplication::activePopupWidget()->geometry().bottom(), anchor.top() - 5);
    QApplication::activePopupWidget()->close();
}

}  // namespace
}  // namespace vtx
