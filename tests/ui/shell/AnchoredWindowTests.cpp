// SPDX-License-Identifier: MIT
#include "ui/shell/AnchoredWindow.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <string>
#include <vector>

#include "ShellFakes.h"
#include "ui/support/PooledThreads.h"

namespace vtx {
namespace {

const QRect strip(300, 0, 150, 24);
const QPoint onStrip(310, 12), elsewhere(700, 700);

/// A window that writes down when it opens (o) and closes (c), beside one that takes the focus
/// away from it.
class AnchoredWindowTest : public testing::Test {
protected:
    AnchoredWindowTest() {
        window.onShow = [this] { told += 'o'; };
        window.onClose = [this] { told += 'c'; };
        window.setContent(content = new QLineEdit);
        other.show();
    }

    void open() {
        window.showAt(strip, DockEdge::top);
        QApplication::processEvents();
        ASSERT_TRUE(window.isActiveWindow());
    }

    void workElsewhere() {
        other.activateWindow();
        QApplication::processEvents();
    }

    /// What the window itself draws of each of those parts.
    [[nodiscard]] QImage drawn(const std::vector<QRect>& parts, double scale) {
        QImage image((QSizeF(window.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        for (const QRect& part : parts)
            window.render(&image, part.topLeft(), part, QWidget::IgnoreMask);
        return image;
    }

    FakeWindowSystem system;
    AnchoredWindow window{system};
    QWidget other;
    QLineEdit* content;
    std::string told;
};

TEST_F(AnchoredWindowTest, opens_beside_its_anchor_with_its_content_inside) {
    open();
    EXPECT_EQ(told, "o");
    EXPECT_EQ(system.popovers, 1);
    EXPECT_EQ(system.broughtHere, 1);
    EXPECT_EQ(window.geometry(), window.place().window);
    EXPECT_EQ(content->geometry(), window.place().content);
    EXPECT_EQ(window.geometry().top(), 26);
}

TEST_F(AnchoredWindowTest, is_made_a_companion_each_time_that_its_window_is_made_anew) {
    for (int round = 0; round < 3; ++round) {
        open();
        window.dismiss();
        workElsewhere();
    }
    EXPECT_EQ(told, "ocococ");
    EXPECT_EQ(system.popovers, 3);
}

TEST_F(AnchoredWindowTest, opening_and_closing_twice_is_told_once) {
    open();
    window.showAt(strip.translated(40, 0), DockEdge::top);
    window.dismiss();
    window.dismiss();
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, closes_on_escape_even_from_its_content) {
    open();
    pressKey(*content, Qt::Key_Escape);
    EXPECT_EQ(told, "oc");
    EXPECT_FALSE(window.isShown());
}

TEST_F(AnchoredWindowTest, closes_when_the_desktop_closes_it) {
    open();
    window.close();
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, closes_when_the_user_turns_to_another_window) {
    open();
    system.pointerAt = elsewhere;
    workElsewhere();
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, closes_when_another_program_gets_the_keyboard_but_not_when_nobody_does) {
    open();
    system.pointerAt = elsewhere;
    system.userWorksElsewhere = false;
    Q_EMIT qGuiApp->focusWindowChanged(nullptr);
    EXPECT_EQ(told, "o");
    system.userWorksElsewhere = true;
    Q_EMIT qGuiApp->focusWindowChanged(nullptr);
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, closes_on_a_press_anywhere_else_and_then_listens_no_more) {
    open();
    ASSERT_TRUE(system.pressed);
    system.pressed(elsewhere);
    EXPECT_EQ(told, "oc");
    EXPECT_FALSE(system.pressed);
}

TEST_F(AnchoredWindowTest, a_press_inside_or_on_the_anchor_does_not_close_it) {
    open();
    system.pressed(window.geometry().center());
    system.pressed(onStrip);
    EXPECT_EQ(told, "o");
}

TEST_F(AnchoredWindowTest, stays_open_for_the_click_when_a_press_on_the_anchor_moved_the_focus) {
    open();
    system.pointerAt = onStrip;
    workElsewhere();
    EXPECT_TRUE(window.isShown());
    window.anchorPressed();
    EXPECT_TRUE(window.isShown());
    window.dismiss();  // the click
    window.anchorReleased();
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, a_focus_that_moves_after_the_press_on_the_anchor_does_not_close_it) {
    open();
    window.anchorPressed();
    system.pointerAt = onStrip;
    workElsewhere();
    EXPECT_EQ(told, "o");
    window.anchorReleased();  // a right click: the menu opens, the window stays
    QApplication::processEvents();
    EXPECT_TRUE(window.isActiveWindow());
}

TEST_F(AnchoredWindowTest, a_dialog_of_its_own_does_not_close_it) {
    open();
    QDialog dialog(&window);
    dialog.show();
    dialog.activateWindow();
    QApplication::processEvents();
    EXPECT_EQ(told, "o");
}

TEST_F(AnchoredWindowTest, a_dialog_to_be_answered_keeps_it_while_the_user_works_elsewhere) {
    open();
    QDialog dialog(&window);
    dialog.open();
    QApplication::processEvents();
    workElsewhere();
    EXPECT_EQ(told, "o");
    dialog.reject();
    window.activateWindow();
    QApplication::processEvents();
    workElsewhere();
    EXPECT_EQ(told, "oc");
}

TEST_F(AnchoredWindowTest, going_while_open_tells_nobody) {
    std::string heard;
    {
        AnchoredWindow shortLived(system);
        shortLived.onClose = [&] { heard += 'c'; };
        shortLived.showAt(strip, DockEdge::top);
    }
    EXPECT_EQ(heard, "");
    EXPECT_FALSE(system.pressed);
}

TEST_F(AnchoredWindowTest, is_cut_out_where_windows_do_not_blend) {
    system.blends = false;
    open();
    EXPECT_FALSE(window.mask().contains(QPoint(1, 1)));
    EXPECT_TRUE(window.mask().contains(QPoint(window.place().tip, 8)));
}

TEST_F(AnchoredWindowTest, parts_of_it_are_drawn_as_the_whole_is) {
    for (const bool blends : {true, false}) {
        system.blends = blends;
        open();
        std::vector<QRect> parts;
        // Each begins at a whole pixel of the screen at every scale.
        for (int y = 0; y < window.height(); y += 36)
            for (int x = 0; x < window.width(); x += 44)
                parts.push_back(QRect(x, y, 44, 36) & window.rect());
        for (const double scale : {1.0, 1.25, 1.5, 2.0})
            EXPECT_EQ(drawn(parts, scale), drawn({window.rect()}, scale)) << blends << scale;
        window.dismiss();
        QApplication::processEvents();
    }
}

TEST_F(AnchoredWindowTest, a_change_within_is_drawn_by_the_thread_that_asks) {
    open();
    const QRect body = window.place().content;
    const QRect rows = body.adjusted(6, 80, -6, -30);
    const QRect belowTheEdge(body.left() + 12, body.bottom() - 99, body.width() - 24, 100);
    EXPECT_EQ(test::pooledThreadsFor([&] { (void)drawn({rows, belowTheEdge}, 2); }), 0);
}

}  // namespace
}  // namespace vtx
