// SPDX-License-Identifier: MIT
#include "ui/surfaces/MiniWidgetWindowController.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

#include "ShellFakes.h"
#include "SurfaceBench.h"

namespace vtx {
namespace {

class MiniWidgetWindowTest : public testing::Test {
protected:
    test::SurfaceBench bench;
    FakeWindowSystem system;
    MiniWidgetWindowController widget{system, bench.coordinator, "Vantrix"};

    void save(double x, double y) {
        bench.change([=](auto& p) {
            p.miniWidgetX = x;
            p.miniWidgetY = y;
        });
    }
    [[nodiscard]] QPoint saved() const {
        const auto& p = *bench.coordinator.preferences;
        return QPointF(p.miniWidgetX, p.miniWidgetY).toPoint();
    }
    void drag(QPoint by) {
        const QPoint from = widget.window()->pos() + QPoint(110, 80);
        press(*widget.window(), from);
        move(*widget.window(), from + by);
        release(*widget.window(), from + by);
    }
    /// What the toolkit tells when a screen changes.
    static void tell() {
        QScreen& screen = *QGuiApplication::primaryScreen();
        Q_EMIT screen.geometryChanged(screen.geometry());
    }
    void change(const StripPlacement::Screens& screens) {
        system.desktop = screens;
        tell();
        test::settle();
    }
    [[nodiscard]] static QRect room() {
        return QGuiApplication::primaryScreen()->availableGeometry();
    }
};

TEST_F(MiniWidgetWindowTest, first_shows_20_from_the_right_and_40_from_the_top) {
    widget.show();
    EXPECT_EQ(widget.window()->geometry(),
              QRect(room().x() + room().width() - 240, room().y() + 40, 220, 170));
    EXPECT_EQ(saved(), QPoint(-1, -1)) << "its own placing is no choice of the user";
}

TEST_F(MiniWidgetWindowTest, a_saved_place_is_honoured_zero_included) {
    save(0, 0);
    widget.show();
    EXPECT_EQ(widget.window()->pos(), QPoint(0, 0));
}

TEST_F(MiniWidgetWindowTest, after_a_drag_it_returns_to_where_it_was_put) {
    widget.show();
    const QPoint there = widget.window()->pos() + QPoint(-150, 70);
    drag({-150, 70});
    EXPECT_EQ(saved(), there);
    widget.close();
    EXPECT_EQ(widget.window(), nullptr);
    widget.show();
    EXPECT_EQ(widget.window()->pos(), there);
}

TEST_F(MiniWidgetWindowTest, a_move_stores_x_and_then_y) {
    widget.show();
    const QPoint before = widget.window()->pos();
    std::vector<QPoint> told;
    const auto token = bench.coordinator.preferences.subscribe(
        [&](const auto& p) { told.push_back(QPointF(p.miniWidgetX, p.miniWidgetY).toPoint()); });
    drag({-30, 12});
    const QPoint after = before + QPoint(-30, 12);
    EXPECT_EQ(told, (std::vector{QPoint(-1, -1), QPoint(after.x(), -1), after}));
}

TEST_F(MiniWidgetWindowTest,
       put_beyond_the_left_edge_it_falls_back_to_the_corner_when_shown_again) {
    widget.show();
    const QPoint corner = widget.window()->pos();
    drag(QPoint(-40, 100) - corner);
    EXPECT_EQ(saved(), QPoint(-40, 100));
    widget.close();
    widget.show();
    EXPECT_EQ(widget.window()->pos(), corner);
}

TEST_F(MiniWidgetWindowTest, a_place_that_is_out_of_view_is_shown_in_view_and_stays_saved) {
    save(90'000, 100);
    widget.show();
    EXPECT_TRUE(room().contains(widget.window()->geometry()));
    EXPECT_EQ(saved(), QPoint(90'000, 100));
}

/// Two screens side by side, and the right one alone gone.
const StripPlacement::Screens both{{"left", QRect(0, 0, 800, 600), 1, {}},
                                   {"right", QRect(800, 0, 800, 600), 1, {}}};
const StripPlacement::Screens leftAlone{both.front()};

TEST_F(MiniWidgetWindowTest, a_screen_that_goes_leaves_it_in_view_and_one_that_comes_back_gets_it) {
    system.desktop = both;
    save(1200, 300);
    widget.show();
    ASSERT_EQ(widget.window()->pos(), QPoint(1200, 300));
    change(leftAlone);
    EXPECT_TRUE(leftAlone.front().geometry.contains(widget.window()->geometry()));
    EXPECT_EQ(saved(), QPoint(1200, 300)) << "that is no choice of the user";
    change(both);
    EXPECT_EQ(widget.window()->pos(), QPoint(1200, 300));
}

TEST_F(MiniWidgetWindowTest, moved_while_a_screen_was_away_it_stays_there_when_it_comes_back) {
    system.desktop = both;
    save(1200, 300);
    widget.show();
    change(leftAlone);
    const QPoint there = widget.window()->pos() + QPoint(-200, 40);
    drag({-200, 40});
    change(both);
    EXPECT_EQ(widget.window()->pos(), there);
    EXPECT_EQ(saved(), there);
}

TEST_F(MiniWidgetWindowTest, a_desktop_that_changes_screen_by_screen_is_looked_at_once_it_has) {
    system.desktop = both;
    save(1200, 300);
    widget.show();
    system.desktop = leftAlone;
    tell();
    system.desktop = both;
    tell();
    test::settle();
    EXPECT_EQ(widget.window()->pos(), QPoint(1200, 300));
}

TEST_F(MiniWidgetWindowTest, without_blending_it_is_cut_anew_for_screens_of_another_scale) {
    system.blends = false;
    widget.show();
    const int before = system.cuts;
    tell();
    test::settle();
    EXPECT_EQ(system.cuts, before + 1);
}

TEST_F(MiniWidgetWindowTest, dragged_back_to_where_it_first_stood_that_place_is_stored) {
    widget.show();
    const QPoint first = widget.window()->pos();
    const QPoint from = first + QPoint(50, 50);
    press(*widget.window(), from);
    move(*widget.window(), from + QPoint(-9, 9));
    move(*widget.window(), from);
    release(*widget.window(), from);
    EXPECT_EQ(saved(), first);
}

TEST_F(MiniWidgetWindowTest, another_button_moves_nothing) {
    widget.show();
    const QPoint before = widget.window()->pos();
    press(*widget.window(), before + QPoint(5, 5), Qt::RightButton);
    move(*widget.window(), before + QPoint(60, 60));
    EXPECT_EQ(widget.window()->pos(), before);
}

TEST_F(MiniWidgetWindowTest, is_made_floating_before_it_is_shown_and_never_takes_the_keyboard) {
    widget.show();
    EXPECT_EQ(system.floating, 1);
    EXPECT_TRUE(widget.window()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(widget.window()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(widget.window()->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(widget.window()->windowTitle(), "Vantrix");
}

TEST_F(MiniWidgetWindowTest, shown_again_it_is_the_same_window) {
    widget.show();
    QWidget* first = widget.window();
    widget.show();
    EXPECT_EQ(widget.window(), first);
    EXPECT_EQ(system.floating, 1);
}

TEST_F(MiniWidgetWindowTest, hidden_it_follows_no_reading) {
    EXPECT_FALSE(bench.isCPUFollowed());
    widget.show();
    EXPECT_TRUE(bench.isCPUFollowed());
    widget.close();
    EXPECT_FALSE(bench.isCPUFollowed());
    widget.close();
}

}  // namespace
}  // namespace vtx
