// SPDX-License-Identifier: MIT
#include "ui/surfaces/ProcessList.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QScrollArea>

#include "support/Snapshots.h"
#include "ui/support/Shown.h"

namespace vtx {
namespace {

std::vector<ProcessSnapshot> processes(int count) {
    std::vector<ProcessSnapshot> all;
    for (int i = 0; i < count; ++i) all.push_back(snapshotOf(1000 + i, 0.5));
    return all;
}

/// A list of a thousand of which ten are seen.
struct ProcessLists : testing::Test {
    ProcessLists() {
        area.setWidgetResizable(true);
        area.setFrameShape(QFrame::NoFrame);
        area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area.setFocusPolicy(Qt::NoFocus);
        list = new ProcessList;
        list->setProcesses(processes(1000));
        area.setWidget(list);
        area.resize(360, 260);
        QObject::connect(list, &ProcessList::menuWanted, [this](int row, QRect) { wanted = row; });
        test::show(area);
    }
    void focus() {
        list->setFocus(Qt::TabFocusReason);
        test::settle();
    }
    [[nodiscard]] std::int32_t currentPid() const { return list->process(list->focusedPart()).pid; }

    QScrollArea area;
    ProcessList* list;
    int wanted = -1;
};

TEST_F(ProcessLists, is_as_tall_as_its_rows) {
    EXPECT_EQ(list->sizeHint().height(), 26000);
    EXPECT_EQ(list->partRect(999), QRect(0, 999 * 26, 360, 26));
}

TEST_F(ProcessLists, paints_only_what_is_seen) {
    test::PaintRecorder recorder(*list);
    list->update();
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_LE(recorder.painted.front().boundingRect().height(), 260);
}

TEST_F(ProcessLists, a_list_that_reads_the_same_paints_nothing) {
    test::settle();
    test::PaintRecorder recorder(*list);
    list->setProcesses(processes(1000));
    test::settle();
    EXPECT_TRUE(recorder.painted.empty());
}

TEST_F(ProcessLists, a_row_that_differs_is_painted_alone) {
    test::PaintRecorder recorder(*list);
    auto changed = processes(1000);
    changed[3].cpuPercent = 0.9;
    changed[700].cpuPercent = 0.9;
    list->setProcesses(changed);
    test::settle();
    ASSERT_EQ(recorder.painted.size(), 1U);
    EXPECT_EQ(recorder.painted.front().boundingRect(), list->partRect(3).adjusted(6, 0, -6, 0));
}

TEST_F(ProcessLists, a_row_speaks_its_name_and_its_figures) {
    auto* spoken = QAccessible::queryAccessibleInterface(list);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::List);
    EXPECT_EQ(spoken->childCount(), 1000);
    auto* row = spoken->child(2);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "node");
    EXPECT_EQ(row->text(QAccessible::Value), "CPU 50%, Mem 1M, PID 1002");
}

TEST_F(ProcessLists, the_keyboard_moves_among_the_rows) {
    focus();
    EXPECT_EQ(list->focusedPart(), 0);
    test::press(*list, Qt::Key_Down);
    EXPECT_EQ(list->focusedPart(), 1);
    test::press(*list, Qt::Key_Up);
    test::press(*list, Qt::Key_Up);
    EXPECT_EQ(list->focusedPart(), 0);
    test::press(*list, Qt::Key_PageDown);
    EXPECT_EQ(list->focusedPart(), 9);
    test::press(*list, Qt::Key_End);
    EXPECT_EQ(list->focusedPart(), 999);
    test::press(*list, Qt::Key_Home);
    EXPECT_EQ(list->focusedPart(), 0);
}

TEST_F(ProcessLists, the_keyboard_follows_its_process_when_the_order_changes) {
    focus();
    for (int i = 0; i < 4; ++i) test::press(*list, Qt::Key_Down);
    auto reversed = processes(1000);
    std::ranges::reverse(reversed);
    list->setProcesses(reversed);
    EXPECT_EQ(currentPid(), 1004);
    EXPECT_EQ(list->focusedPart(), 995);
}

TEST_F(ProcessLists, another_process_with_the_number_is_not_followed) {
    focus();
    auto restarted = processes(1000);
    restarted[0].startTime = 7;
    std::swap(restarted[0], restarted[500]);
    list->setProcesses(restarted);
    EXPECT_EQ(list->focusedPart(), 0) << "the place is kept, not the number";
}

TEST_F(ProcessLists, when_its_process_ends_the_keyboard_stays_in_its_place) {
    focus();
    test::press(*list, Qt::Key_End);
    list->setProcesses(processes(10));
    EXPECT_EQ(list->focusedPart(), 9);
    list->setProcesses({});
    EXPECT_EQ(list->focusedPart(), -1);
    test::press(*list, Qt::Key_Return);
    EXPECT_EQ(wanted, -1);
}

TEST_F(ProcessLists, return_space_and_the_menu_key_ask_for_the_menu) {
    focus();
    test::press(*list, Qt::Key_Down);
    for (const int key : {Qt::Key_Return, Qt::Key_Space}) {
        wanted = -1;
        test::press(*list, key);
        EXPECT_EQ(wanted, 1);
    }
    wanted = -1;
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {5, 5}, list->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(list, &byKey);
    EXPECT_EQ(wanted, 1);
}

TEST_F(ProcessLists, a_click_on_the_symbol_asks_for_the_menu_and_one_on_the_row_does_not) {
    test::click(*list, list->partRect(4).center());
    EXPECT_EQ(wanted, -1);
    EXPECT_EQ(list->focusedPart(), 4);
    test::click(*list, list->actionRect(5).center());
    EXPECT_EQ(wanted, 5);
}

TEST_F(ProcessLists, the_symbol_can_be_hit_over_24_pixels_within_its_row) {
    EXPECT_EQ(list->actionRect(0).size(), QSize(24, 24));
    EXPECT_TRUE(list->partRect(0).contains(list->actionRect(0)));
}

TEST_F(ProcessLists, a_press_that_is_released_elsewhere_asks_for_nothing) {
    test::mouse(*list, QEvent::MouseButtonPress, list->actionRect(5).center(), Qt::LeftButton);
    test::mouse(*list, QEvent::MouseButtonRelease, list->actionRect(7).center(), Qt::LeftButton);
    EXPECT_EQ(wanted, -1);
}

TEST_F(ProcessLists, a_right_click_asks_for_the_menu_of_the_row_under_it) {
    const QPoint at = list->partRect(6).center();
    QContextMenuEvent byPointer(QContextMenuEvent::Mouse, at, list->mapToGlobal(at));
    QApplication::sendEvent(list, &byPointer);
    EXPECT_EQ(wanted, 6);
}

TEST_F(ProcessLists, an_empty_one_says_why) {
    list->setProcesses({});
    list->setPlaceholder(ProcessPlaceholderModel{"hourglass", "Loading processes…"});
    auto* spoken = QAccessible::queryAccessibleInterface(list);
    ASSERT_EQ(spoken->childCount(), 1);
    EXPECT_EQ(spoken->child(0)->text(QAccessible::Name), QString::fromUtf8("Loading processes…"));
}

}  // namespace
}  // namespace vtx
