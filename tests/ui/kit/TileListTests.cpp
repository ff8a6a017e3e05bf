// SPDX-License-Identifier: MIT
#include "ui/kit/TileList.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QVBoxLayout>
#include <utility>

#include "ui/kit/Button.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/Switch.h"
#include "ui/support/FixedTheme.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

using Entered = std::pair<QString, QString>;

TileContent tile(const char* id) {
    const QString name = QString::fromUtf8(id);
    const bool hasSwitch = name != QStringLiteral("ane");
    return {name,           hasSwitch ? name.toUpper() : QString(),
            name.toUpper(), hasSwitch ? std::optional(true) : std::nullopt,
            name + " up",   name + " down"};
}

std::vector<TileContent> tiles(const std::vector<const char*>& ids) {
    std::vector<TileContent> all;
    for (const char* id : ids) all.push_back(tile(id));
    return all;
}

class TileListTest : public testing::Test {
protected:
    TileListTest() {
        auto* column = new QVBoxLayout(&window);
        list = new TileList;
        list->setMotion(Motion::reduced);
        list->setTiles(tiles({"cpu", "gpu", "disk", "ane"}));
        column->addWidget(list);
        column->addStretch();
        window.resize(360, 200);
        test::show(window);
        QObject::connect(list, &TileList::entered, [this](const QString& a, const QString& b) {
            entered.emplace_back(a, b);
        });
        QObject::connect(list, &TileList::stepped, [this](const QString& id, TileStep step) {
            steps.emplace_back(id, step);
        });
    }

    void pressAt(int index) {
        test::mouse(*list, QEvent::MouseButtonPress, middleOf(index), Qt::LeftButton);
    }
    void dragTo(QPoint at, Qt::MouseButtons held = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, QPointF(at), QPointF(list->mapToGlobal(at)),
                         Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(list, &move);
    }
    static QPoint middleOf(int index) { return {100, index * 34 + 17}; }
    [[nodiscard]] QStringList order() const {
        QStringList ids;
        for (int i = 0; i < list->rowCount(); ++i) ids.append(list->row(i).content().id);
        return ids;
    }

    test::FixedTheme theme{Appearance::light};
    QWidget window;
    TileList* list = nullptr;
    std::vector<Entered> entered;
    std::vector<std::pair<QString, TileStep>> steps;
};

TEST_F(TileListTest, a_screen_reader_finds_the_rows_in_their_order) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(list);
    const auto names = [spoken] {
        QStringList all;
        for (int i = 0; i < spoken->childCount(); ++i)
            all << spoken->child(i)->text(QAccessible::Name);
        return all;
    };
    ASSERT_EQ(names(), (QStringList{"CPU", "GPU", "DISK", "ANE"}));
    list->setTiles(tiles({"gpu", "ane", "cpu", "disk"}));
    EXPECT_EQ(names(), (QStringList{"GPU", "ANE", "CPU", "DISK"}));
}

TEST_F(TileListTest, rows_are_34_high_in_their_order) {
    EXPECT_EQ(list->sizeHint().height(), 4 * 34);
    EXPECT_EQ(list->row(2).y(), 68);
    list->setTiles(tiles({"gpu", "disk", "ane", "cpu"}));
    EXPECT_EQ(order(), (QStringList{"gpu", "disk", "ane", "cpu"}));
    EXPECT_EQ(list->row(3).y(), 102);
}

TEST_F(TileListTest, the_ends_disable_their_direction) {
    EXPECT_FALSE(list->row(0).button(TileStep::up).isEnabled());
    EXPECT_TRUE(list->row(0).button(TileStep::down).isEnabled());
    EXPECT_TRUE(list->row(3).button(TileStep::up).isEnabled());
    EXPECT_FALSE(list->row(3).button(TileStep::down).isEnabled());
}

TEST_F(TileListTest, a_tile_without_a_switch_keeps_handle_and_buttons_and_can_be_moved) {
    EXPECT_FALSE(list->row(3).toggle().isVisible());
    list->row(3).button(TileStep::up).pressWhole();
    EXPECT_EQ(steps, (std::vector<std::pair<QString, TileStep>>{{"ane", TileStep::up}}));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&list->row(3))->text(QAccessible::Name), "ANE");
}

TEST_F(TileListTest, alt_and_arrows_move_the_focused_tile_and_stop_at_the_end) {
    list->row(1).setFocus(Qt::TabFocusReason);
    test::press(list->row(1), Qt::Key_Up, Qt::AltModifier);
    test::press(list->row(1).toggle(), Qt::Key_Down, Qt::AltModifier);
    test::press(list->row(1), Qt::Key_Down);
    test::press(list->row(0), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(steps, (std::vector<std::pair<QString, TileStep>>{{"gpu", TileStep::up},
                                                                {"gpu", TileStep::down}}));
}

TEST_F(TileListTest, the_focus_goes_with_a_tile_that_moved) {
    list->row(1).setFocus(Qt::TabFocusReason);
    list->setTiles(tiles({"gpu", "cpu", "disk", "ane"}));
    EXPECT_TRUE(list->row(0).hasFocus());
    test::press(list->row(0), Qt::Key_Tab);
    EXPECT_TRUE(list->row(0).toggle().hasFocus());
}

TEST_F(TileListTest, the_tab_key_goes_through_the_rows_as_they_are_seen) {
    list->setTiles(tiles({"disk", "cpu", "gpu", "ane"}));
    list->row(0).setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 3; ++i) test::press(*QApplication::focusWidget(), Qt::Key_Tab);
    // Its way up is disabled.
    EXPECT_TRUE(list->row(1).hasFocus());
}

TEST_F(TileListTest, a_drag_asks_for_the_place_of_each_row_that_it_comes_to) {
    pressAt(0);
    dragTo(middleOf(0) + QPoint(0, 3));
    EXPECT_FALSE(list->draggingItem());
    dragTo(middleOf(0) + QPoint(0, 12));
    EXPECT_EQ(list->draggingItem(), std::optional<QString>("cpu"));
    EXPECT_TRUE(entered.empty());
    dragTo(middleOf(2));
    EXPECT_EQ(entered, (std::vector<Entered>{{"cpu", "disk"}}));
    list->setTiles(tiles({"gpu", "disk", "cpu", "ane"}));
    dragTo(middleOf(2) + QPoint(0, 2));
    EXPECT_EQ(entered.size(), 1U);
    test::mouse(*list, QEvent::MouseButtonRelease, middleOf(2), Qt::LeftButton);
    EXPECT_FALSE(list->draggingItem());
}

TEST_F(TileListTest, outside_the_list_a_drag_asks_for_nothing_and_letting_go_ends_it) {
    pressAt(1);
    dragTo({4000, 17});
    dragTo({100, -500});
    EXPECT_EQ(list->draggingItem(), std::optional<QString>("gpu"));
    EXPECT_TRUE(entered.empty());
    test::mouse(*list, QEvent::MouseButtonRelease, {100, -500}, Qt::LeftButton);
    EXPECT_FALSE(list->draggingItem());
    EXPECT_TRUE(list->row(1).toggle().isVisible());
}

TEST_F(TileListTest, a_drag_whose_end_nobody_told_ends_with_the_next_move) {
    pressAt(1);
    dragTo(middleOf(2));
    dragTo(middleOf(3), Qt::NoButton);
    EXPECT_FALSE(list->draggingItem());
    EXPECT_EQ(entered.size(), 1U);
}

TEST_F(TileListTest, hiding_escape_and_the_tiles_going_end_a_drag) {
    pressAt(1);
    dragTo(middleOf(2));
    test::press(*list, Qt::Key_Escape);
    EXPECT_FALSE(list->draggingItem());
    pressAt(1);
    dragTo(middleOf(2));
    list->setTiles(tiles({"cpu"}));
    EXPECT_FALSE(list->draggingItem());
    pressAt(0);
    dragTo(middleOf(0) + QPoint(30, 0));
    EXPECT_TRUE(list->draggingItem());
    window.hide();
    EXPECT_FALSE(list->draggingItem());
}

TEST_F(TileListTest, a_list_that_goes_in_a_drag_leaves_nothing_behind) {
    pressAt(1);
    dragTo(middleOf(2));
    const auto before = window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size();
    delete list;
    EXPECT_EQ(window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(),
              before - 2);
}

/// The list on a page of which 100 of 336 are seen; the list is 100 below the top.
class ScrolledTileListTest : public testing::Test {
protected:
    ScrolledTileListTest() {
        auto* contents = new QWidget;
        auto* column = new QVBoxLayout(contents);
        column->setContentsMargins(0, 100, 0, 100);
        list->setMotion(Motion::reduced);
        list->setTiles(tiles({"cpu", "gpu", "disk", "ane"}));
        column->addWidget(list);
        page.setContents(contents);
        page.resize(360, 100);
        test::show(page);
        QObject::connect(list, &TileList::entered,
                         [this](const QString&, const QString& b) { entered.push_back(b); });
    }
    void scrollTo(int value) {
        page.verticalScrollBar()->setValue(value);
        test::settle();
    }
    [[nodiscard]] int scrolled() const { return page.verticalScrollBar()->value(); }
    /// In the coordinates of the page.
    void pointer(QEvent::Type type, QPoint at) {
        const QPoint global = page.viewport()->mapToGlobal(at);
        const bool moves = type == QEvent::MouseMove;
        const bool released = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, QPointF(list->mapFromGlobal(global)), QPointF(global),
                          moves ? Qt::NoButton : Qt::LeftButton,
                          released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list, &event);
    }
    void frames(int count) {
        for (int i = 0; i < count && list->scrolling().isActive(); ++i)
            QMetaObject::invokeMethod(&list->scrolling(), "timeout");
    }

    test::FixedTheme theme{Appearance::light};
    ScrollArea page;
    TileList* list = new TileList;
    QStringList entered;
};

TEST_F(ScrolledTileListTest, a_drag_near_the_edge_scrolls_as_far_as_there_are_tiles) {
    scrollTo(50);  // the first row is the second half of the page
    pointer(QEvent::MouseButtonPress, {100, 60});
    pointer(QEvent::MouseMove, {100, 75});
    EXPECT_FALSE(list->scrolling().isActive()) << "that is not near it";
    pointer(QEvent::MouseMove, {100, 95});
    EXPECT_TRUE(list->scrolling().isActive());
    frames(1);
    EXPECT_GT(scrolled(), 50);
    frames(1000);
    EXPECT_EQ(scrolled(), 100 + 4 * 34 - 100);
    EXPECT_FALSE(list->scrolling().isActive());
    EXPECT_EQ(entered.back(), "ane");
}

TEST_F(ScrolledTileListTest, a_drag_to_the_upper_edge_scrolls_back) {
    scrollTo(136);
    pointer(QEvent::MouseButtonPress, {100, 80});
    pointer(QEvent::MouseMove, {100, 2});
    frames(1000);
    EXPECT_EQ(scrolled(), 100);
    EXPECT_EQ(entered.back(), "cpu");
}

TEST_F(ScrolledTileListTest, beyond_the_edge_only_rows_that_are_seen_are_asked_for) {
    scrollTo(50);
    pointer(QEvent::MouseButtonPress, {100, 60});
    pointer(QEvent::MouseMove, {100, 5000});
    EXPECT_EQ(entered, QStringList{"gpu"});
    entered.clear();
    pointer(QEvent::MouseMove, {5000, 5000});
    EXPECT_TRUE(entered.isEmpty());
}

TEST_F(ScrolledTileListTest, letting_go_ends_the_scrolling) {
    scrollTo(50);
    pointer(QEvent::MouseButtonPress, {100, 60});
    pointer(QEvent::MouseMove, {100, 99});
    EXPECT_TRUE(list->scrolling().isActive());
    pointer(QEvent::MouseButtonRelease, {100, 99});
    EXPECT_FALSE(list->scrolling().isActive());
}

TEST_F(ScrolledTileListTest, a_window_that_closes_in_a_drag_goes_through_all_its_parts) {
    scrollTo(100);
    pointer(QEvent::MouseButtonPress, {100, 10});
    pointer(QEvent::MouseMove, {100, 40});
    EXPECT_TRUE(list->draggingItem());
    auto* last = new QWidget(&page);
    last->show();
    page.close();
    EXPECT_FALSE(list->draggingItem());
    EXPECT_FALSE(last->isVisible());
}

TEST_F(TileListTest, the_same_tile_twice_is_two_rows) {
    list->setTiles(tiles({"cpu", "cpu", "gpu"}));
    EXPECT_EQ(order(), (QStringList{"cpu", "cpu", "gpu"}));
    EXPECT_NE(&list->row(0), &list->row(1));
}

}  // namespace
}  // namespace vtx
