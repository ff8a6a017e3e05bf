// SPDX-License-Identifier: MIT
#include "ui/shell/StripStatusItem.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QScreen>

#include "ShellFakes.h"
#include "ui/shell/NormalWindowStatusItem.h"
#include "ui/shell/StatusItemFactory.h"
#include "ui/shell/StripRecordCodec.h"
#include "ui/shell/StripSurface.h"

namespace vtx {
namespace {

class StripStatusItemTest : public testing::Test {
protected:
    static QRect screen() { return QGuiApplication::primaryScreen()->geometry(); }

    /// An item that is shown, 150 wide.
    std::unique_ptr<StripStatusItem> shown() {
        auto item = std::make_unique<StripStatusItem>(system, defaults);
        item->setLength(150);
        item->setContent(content = new QWidget);
        item->show();
        return item;
    }

    StripSurface& surface() const { return *dynamic_cast<StripSurface*>(content->parentWidget()); }

    void drag(QPoint from, QPoint to) const {
        press(surface(), from);
        move(surface(), to);
        release(surface(), to);
    }

    FakeWindowSystem system;
    FakeUserDefaults defaults;
    QPointer<QWidget> content;
};

TEST_F(StripStatusItemTest, becomes_a_strip_before_it_is_shown) {
    const auto item = shown();
    EXPECT_EQ(system.strips, 1);
    EXPECT_TRUE(surface().window()->isVisible());
}

TEST_F(StripStatusItemTest, starts_docked_at_the_top_right_with_its_height_reserved) {
    const auto item = shown();
    EXPECT_EQ(item->screenGeometry(), QRect(screen().right() - 149, screen().top(), 150, 24));
    EXPECT_EQ(item->edge(), DockEdge::top);
    ASSERT_EQ(system.reserved.size(), 1U);
    ASSERT_TRUE(system.reserved[0]);
    EXPECT_EQ((*system.reserved[0])[2], 24U);
}

TEST_F(StripStatusItemTest, a_fraction_of_a_pixel_of_length_is_rounded_up) {
    const auto item = shown();
    item->setLength(160.2);
    EXPECT_EQ(item->screenGeometry().width(), 161);
    EXPECT_EQ(item->screenGeometry().right(), screen().right());
    EXPECT_EQ(content->width(), 161);
}

TEST_F(StripStatusItemTest, the_same_length_again_changes_nothing) {
    const auto item = shown();
    int moves = 0;
    item->onMove = [&] { ++moves; };
    item->setLength(150);
    EXPECT_EQ(moves, 0);
    item->setLength(151);
    EXPECT_EQ(moves, 1);
}

TEST_F(StripStatusItemTest, dragged_off_the_edge_it_floats_and_reserves_nothing) {
    const auto item = shown();
    const QPoint from = item->screenGeometry().center();
    drag(from, from + QPoint(-200, 300));
    EXPECT_EQ(item->edge(), DockEdge::none);
    EXPECT_EQ(item->screenGeometry().center(), from + QPoint(-200, 300));
    EXPECT_EQ(system.reserved.back(), std::nullopt);
}

TEST_F(StripStatusItemTest, its_place_survives_a_restart) {
    auto item = shown();
    drag(item->screenGeometry().center(), QPoint(screen().center()));
    const QRect before = item->screenGeometry();
    item.reset();
    item = shown();
    EXPECT_EQ(item->screenGeometry(), before);
    EXPECT_EQ(item->edge(), DockEdge::none);
}

TEST_F(StripStatusItemTest, a_place_that_makes_no_sense_is_not_followed) {
    defaults.setData(StripRecordCodec::key, toData("{\"screen\":[],\"edge\":"));
    EXPECT_EQ(shown()->edge(), DockEdge::top);
}

TEST_F(StripStatusItemTest, nothing_is_stored_before_the_user_moves_it) {
    const auto item = shown();
    item->setLength(99);
    EXPECT_TRUE(defaults.values.empty());
}

TEST_F(StripStatusItemTest, a_width_that_comes_during_a_drag_waits_for_its_end) {
    const auto item = shown();
    const QPoint from = item->screenGeometry().center();
    press(surface(), from);
    move(surface(), from + QPoint(-100, 200));
    item->setLength(170);
    EXPECT_EQ(item->screenGeometry().width(), 150);
    release(surface(), from + QPoint(-100, 200));
    EXPECT_EQ(item->screenGeometry().width(), 170);
}

TEST_F(StripStatusItemTest, clicks_reach_the_owner) {
    const auto item = shown();
    int clicks = 0;
    item->onClick = [&](StatusItemClick, QPoint) { ++clicks; };
    press(surface(), item->screenGeometry().center());
    release(surface(), item->screenGeometry().center());
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(defaults.values.empty());
}

TEST_F(StripStatusItemTest, panels_of_other_programs_are_kept_clear_of) {
    const auto last = static_cast<std::uint32_t>(screen().right());
    system.others = {{0, 0, 30, 0, 0, 0, 0, 0, 0, last, 0, 0}};
    const auto item = shown();
    EXPECT_EQ(item->screenGeometry().top(), screen().top() + 30);
    EXPECT_EQ((*system.reserved.back())[2], 54U);
}

TEST_F(StripStatusItemTest, is_cut_out_only_where_windows_do_not_blend) {
    auto item = shown();
    EXPECT_TRUE(surface().window()->mask().isEmpty());
    system.blends = false;
    item = shown();
    const QRegion mask = surface().window()->mask();
    EXPECT_FALSE(mask.contains(QPoint(0, 23)));
    EXPECT_TRUE(mask.contains(QPoint(149, 23)));
}

TEST_F(StripStatusItemTest, does_not_hold_up_the_end_of_the_application) {
    const auto item = shown();
    EXPECT_TRUE(surface().window()->close());
}

TEST(NormalWindowStatusItem, is_never_wider_than_the_widest_screen) {
    auto* content = new QWidget;
    NormalWindowStatusItem item;
    item.setContent(content);
    item.setLength(600'000);
    EXPECT_EQ(content->parentWidget()->width(),
              QGuiApplication::primaryScreen()->availableGeometry().width());
}

TEST(StatusItemFactory, where_windows_cannot_be_placed_a_normal_window_serves) {
    WindowSystem granting_nothing;
    FakeUserDefaults defaults;
    const auto item = makeStatusItem(granting_nothing, defaults);
    EXPECT_NE(dynamic_cast<NormalWindowStatusItem*>(item.get()), nullptr);
    item->setLength(99.5);
    item->show();
    EXPECT_EQ(item->screenGeometry().size(), QSize(100, 24));
    EXPECT_EQ(item->edge(), DockEdge::none);
}

}  // namespace
}  // namespace vtx
