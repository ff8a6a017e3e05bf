// SPDX-License-Identifier: MIT
#include "ui/shell/StripSurface.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <string>

#include "ShellFakes.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

/// A strip that writes down what it tells: L, R and C for clicks, p and r for press and release,
/// d for a drag, D for its end.
class StripSurfaceTest : public testing::Test {
protected:
    StripSurfaceTest() {
        surface.resize(150, 24);
        surface.onClick = [this](StatusItemClick click, QPoint) {
            told += click == StatusItemClick::left    ? 'L'
                    : click == StatusItemClick::right ? 'R'
                                                      : 'C';
        };
        surface.onPress = [this] { told += 'p'; };
        surface.onRelease = [this] { told += 'r'; };
        surface.onDrag = [this](QPoint moved) {
            told += 'd';
            dragged = moved;
        };
        surface.onDrop = [this](QPoint) { told += 'D'; };
    }

    QPoint middle() const { return surface.mapToGlobal(surface.rect().center()); }

    StripSurface surface{nullptr};
    std::string told;
    QPoint dragged;
};

TEST_F(StripSurfaceTest, painted_in_parts_it_looks_as_painted_at_once) {
    QImage whole(surface.size(), QImage::Format_ARGB32_Premultiplied);
    whole.fill(Qt::transparent);
    QImage parts = whole;
    surface.render(&whole);
    const QRegion region = QRegion(0, 0, 40, 24) + QRect(60, 3, 30, 21) + QRect(120, 0, 30, 20);
    surface.render(&parts, {}, region);
    QImage expected(surface.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setClipRegion(region);
    painter.drawImage(0, 0, whole);
    painter.end();
    EXPECT_EQ(parts, expected);
}

TEST_F(StripSurfaceTest, a_click_counts_when_the_button_is_let_go) {
    press(surface, middle());
    EXPECT_EQ(told, "p");
    release(surface, middle());
    EXPECT_EQ(told, "pLr");
}

TEST_F(StripSurfaceTest, the_right_button_and_control_are_told_apart_from_a_click) {
    press(surface, middle(), Qt::RightButton);
    release(surface, middle(), Qt::RightButton);
    press(surface, middle());
    release(surface, middle(), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(told, "pRrpCr");
}

TEST_F(StripSurfaceTest, a_button_let_go_elsewhere_is_no_click) {
    press(surface, middle(), Qt::RightButton);
    release(surface, middle() + QPoint(0, 300), Qt::RightButton);
    EXPECT_EQ(told, "pr");
}

TEST_F(StripSurfaceTest, other_buttons_do_nothing) {
    press(surface, middle(), Qt::MiddleButton);
    release(surface, middle(), Qt::MiddleButton);
    EXPECT_EQ(told, "");
}

TEST_F(StripSurfaceTest, a_small_move_is_still_a_click) {
    const QPoint near = middle() + QPoint(QApplication::startDragDistance() - 1, 0);
    press(surface, middle());
    move(surface, near);
    release(surface, near);
    EXPECT_EQ(told, "pLr");
}

TEST_F(StripSurfaceTest, a_move_beyond_the_drag_distance_drags_and_never_clicks) {
    press(surface, middle());
    move(surface, middle() + QPoint(40, 30));
    move(surface, middle() + QPoint(1, 0));
    release(surface, middle() + QPoint(1, 0));
    EXPECT_EQ(told, "prddD");
    EXPECT_EQ(dragged, QPoint(1, 0));
}

TEST_F(StripSurfaceTest, the_right_button_does_not_drag) {
    press(surface, middle(), Qt::RightButton);
    sendMouse(surface, QEvent::MouseMove, middle() + QPoint(60, 0), Qt::RightButton);
    release(surface, middle(), Qt::RightButton);
    EXPECT_EQ(told, "pRr");
}

TEST_F(StripSurfaceTest, the_keyboard_clicks_and_asks_for_the_menu) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) pressKey(surface, key);
    EXPECT_EQ(told, "LLL");
    pressKey(surface, Qt::Key_Menu);
    pressKey(surface, Qt::Key_F10, Qt::ShiftModifier);
    pressKey(surface, Qt::Key_F10);
    EXPECT_EQ(told, "LLLRR");
}

TEST_F(StripSurfaceTest, assistive_software_finds_a_button_and_can_press_it) {
    surface.setAccessibleName("Vantrix");
    auto* accessible = QAccessible::queryAccessibleInterface(&surface);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Vantrix");
    ASSERT_NE(accessible->actionInterface(), nullptr);
    EXPECT_TRUE(accessible->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    surface.click();  // where that action leads
    EXPECT_EQ(told, "L");
}

TEST_F(StripSurfaceTest, content_fills_the_strip_and_lets_the_mouse_through) {
    auto* content = new QWidget;
    surface.setContent(content);
    surface.resize(200, 24);
    surface.show();
    EXPECT_EQ(content->geometry(), QRect(0, 0, 200, 24));
    EXPECT_EQ(surface.childAt(10, 10), nullptr);
}

TEST_F(StripSurfaceTest, new_content_replaces_the_old) {
    const QPointer<QWidget> old = new QWidget;
    surface.setContent(old);
    surface.setContent(new QWidget);
    EXPECT_TRUE(old.isNull());
}

QColor ground(StripSurface& surface) {
    return surface.grab().toImage().pixelColor(surface.rect().center());
}

TEST_F(StripSurfaceTest, being_highlighted_shows) {
    const QColor plain = ground(surface);
    surface.setHighlighted(true);
    const QColor open = ground(surface);
    surface.setHighlighted(false);
    EXPECT_NE(plain, open);
    EXPECT_EQ(plain, ground(surface));
}

// A menu takes the pointer away without a word about hovering.
TEST_F(StripSurfaceTest, the_pointer_that_is_taken_away_leaves_no_patches) {
    test::show(surface);
    test::settle();
    test::PaintRecorder recorder(surface);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&surface, &leave);
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted[0].boundingRect(), surface.rect());
}

}  // namespace
}  // namespace vtx
