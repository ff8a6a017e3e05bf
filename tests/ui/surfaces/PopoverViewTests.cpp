// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverView.h"

#include <gtest/gtest.h>

#include <QScrollArea>
#include <QScrollBar>
#include <vector>

#include "SurfaceBench.h"
#include "ui/kit/SectionBar.h"
#include "ui/surfaces/HistoryRangePicker.h"

namespace vtx {
namespace {

using Kind = PopoverView::SurfaceKind;
constexpr auto detachLabel = "Als Fenster öffnen";

class PopoverViewTest : public testing::Test {
protected:
    std::unique_ptr<PopoverView> make(Kind kind, PopoverSection begin = PopoverSection::overview) {
        auto view = std::make_unique<PopoverView>(
            bench.coordinator, kind, begin,
            [this](PopoverSection section) { detached.push_back(section); });
        view->resize(400, 500);
        test::show(*view);
        return view;
    }
    static SectionBar& barOf(PopoverView& view) { return *view.findChild<SectionBar*>(); }
    static QString focusedNameOf(PopoverView& view) {
        return barOf(view).part(barOf(view).focusedPart()).name;
    }

    test::SurfaceBench bench;
    std::vector<PopoverSection> detached;
};

TEST_F(PopoverViewTest, the_popover_alone_offers_to_open_as_a_window) {
    auto* detach = test::spokenAs(*make(Kind::dashboard), detachLabel);
    EXPECT_EQ(detach, nullptr);
    const auto popover = make(Kind::popover);
    detach = test::spokenAs(*popover, detachLabel);
    ASSERT_NE(detach, nullptr);
    EXPECT_EQ(detach->role(), QAccessible::PushButton);
}

TEST_F(PopoverViewTest, the_detach_button_asks_with_the_selected_section) {
    const auto popover = make(Kind::popover);
    auto* detach = test::spokenAs(*popover, detachLabel);
    ASSERT_NE(detach, nullptr);
    popover->select(PopoverSection::memory);
    detach->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(detached, std::vector{PopoverSection::memory});
}

TEST_F(PopoverViewTest, each_section_is_a_tab_with_its_name) {
    const auto popover = make(Kind::popover);
    auto* overview = test::spokenAs(*popover, "Overview");
    ASSERT_NE(overview, nullptr);
    EXPECT_EQ(overview->role(), QAccessible::PageTab);
    EXPECT_TRUE(overview->state().selected);
}

TEST_F(PopoverViewTest, arrows_reach_the_detach_button_and_return_presses_it) {
    const auto popover = make(Kind::popover);
    SectionBar& bar = barOf(*popover);
    const int last = bar.partCount() - 1;
    test::press(bar, Qt::Key_End);
    EXPECT_EQ(bar.focusedPart(), last);
    EXPECT_TRUE(detached.empty()) << "the focus alone does nothing";
    test::press(bar, Qt::Key_Return);
    EXPECT_EQ(detached.size(), 1U);
    test::press(bar, Qt::Key_Home);
    EXPECT_EQ(bar.focusedPart(), 0);
    test::press(bar, Qt::Key_Right);
    test::press(bar, Qt::Key_Space);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::cpu);
}

TEST_F(PopoverViewTest, arrows_begin_at_the_section_that_it_opened_at) {
    const auto window = make(Kind::dashboard, PopoverSection::memory);
    EXPECT_EQ(focusedNameOf(*window), "RAM");
    test::press(barOf(*window), Qt::Key_Right);
    EXPECT_EQ(focusedNameOf(*window), "Network");
    test::press(barOf(*window), Qt::Key_Return);
    EXPECT_EQ(window->selectedSection(), PopoverSection::network);
}

TEST_F(PopoverViewTest, digits_select_wherever_the_focus_is) {
    const auto popover = make(Kind::popover);
    // The picker goes with its page, before the key comes up.
    QKeyEvent two(QEvent::KeyPress, Qt::Key_2, Qt::NoModifier);
    QApplication::sendEvent(popover->findChild<HistoryRangePicker*>(), &two);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::cpu);
    test::press(*popover->findChild<QScrollArea*>(), Qt::Key_1);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
    test::press(*popover, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
}

TEST_F(PopoverViewTest, the_focus_inside_a_page_that_goes_moves_to_the_bar) {
    const auto popover = make(Kind::popover);
    auto* picker = popover->findChild<HistoryRangePicker*>();
    picker->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(popover->focusWidget(), picker);
    popover->select(PopoverSection::cpu);
    EXPECT_EQ(popover->focusWidget(), &barOf(*popover));
    EXPECT_TRUE(barOf(*popover).showsFocus());
    EXPECT_EQ(focusedNameOf(*popover), "CPU");
}

TEST_F(PopoverViewTest, a_section_that_goes_takes_neither_focus_nor_ring_with_it) {
    bench.offerEverySection();
    for (const Kind kind : {Kind::popover, Kind::dashboard}) {
        bench.change([](auto& preferences) { preferences.showDiskIO = true; });
        const auto view = make(kind, PopoverSection::disk);
        SectionBar& bar = barOf(*view);
        bar.setFocus(Qt::TabFocusReason);
        ASSERT_EQ(focusedNameOf(*view), "Disk");
        test::hover(bar, bar.partRect(bar.focusedPart()).center());
        QMetaObject::invokeMethod(&bar.hoverTip().timer(), "timeout");
        ASSERT_TRUE(bar.hoverTip().isShown());
        bench.change([](auto& preferences) { preferences.showDiskIO = false; });
        EXPECT_EQ(view->selectedSection(), PopoverSection::overview);
        EXPECT_EQ(view->focusWidget(), &bar);
        EXPECT_EQ(focusedNameOf(*view), "Overview");
        EXPECT_FALSE(bar.hoverTip().isShown());
    }
}

TEST_F(PopoverViewTest, a_ring_on_another_section_stays_there_as_sections_go) {
    bench.offerEverySection();
    const auto popover = make(Kind::popover);
    SectionBar& bar = barOf(*popover);
    bar.setFocus(Qt::TabFocusReason);
    while (focusedNameOf(*popover) != "Network") test::press(bar, Qt::Key_Right);
    bench.change([](auto& preferences) { preferences.showDiskIO = false; });
    EXPECT_EQ(focusedNameOf(*popover), "Network");
    test::press(bar, Qt::Key_Return);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::network);
}

TEST_F(PopoverViewTest, digits_select_sections_and_never_the_detach_button) {
    bench.offerEverySection();
    const auto popover = make(Kind::popover);
    int key = Qt::Key_1;
    for (const PopoverSection section : test::everySection) {
        if (key > Qt::Key_9) break;
        test::press(barOf(*popover), key++);
        EXPECT_EQ(popover->selectedSection(), section);
    }
    bench.change([](auto& preferences) { preferences.showFan = preferences.showDiskIO = false; });
    test::press(barOf(*popover), Qt::Key_9);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::settings) << "9 sections are left";
    EXPECT_TRUE(detached.empty());
}

TEST_F(PopoverViewTest, offers_what_the_machine_has_and_the_user_shows) {
    const auto popover = make(Kind::popover);
    EXPECT_EQ(test::spokenAs(*popover, "Disk"), nullptr);
    bench.offerEverySection();
    EXPECT_NE(test::spokenAs(*popover, "Disk"), nullptr);
    EXPECT_NE(test::spokenAs(*popover, "Battery"), nullptr);
    bench.tellMachine([](SystemInfo& machine) { machine.hasBattery = false; });
    EXPECT_EQ(test::spokenAs(barOf(*popover), "Battery"), nullptr);
}

TEST_F(PopoverViewTest, a_section_that_is_no_longer_offered_gives_way_to_the_overview) {
    bench.offerEverySection();
    const auto popover = make(Kind::popover);
    popover->select(PopoverSection::fan);
    bench.change([](auto& preferences) { preferences.showDiskIO = false; });
    EXPECT_EQ(popover->selectedSection(), PopoverSection::fan);
    bench.change([](auto& preferences) { preferences.showFan = false; });
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
    EXPECT_EQ(barOf(*popover).current(), "overview");
    EXPECT_NE(test::spokenAs(*popover, "Now"), nullptr);
}

TEST_F(PopoverViewTest, what_changed_while_it_was_hidden_is_seen_when_it_is_shown) {
    bench.offerEverySection();
    const auto popover = make(Kind::popover);
    popover->select(PopoverSection::disk);
    popover->hide();
    bench.change([](auto& preferences) { preferences.showDiskIO = false; });
    EXPECT_EQ(popover->selectedSection(), PopoverSection::disk);
    test::show(*popover);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
}

TEST_F(PopoverViewTest, a_section_that_is_not_offered_is_not_selected) {
    const auto popover = make(Kind::popover);
    popover->select(PopoverSection::ane);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
}

TEST_F(PopoverViewTest, names_its_sections_in_the_language_in_force) {
    const auto popover = make(Kind::popover);
    Localization::shared().setPreference(Language::de);
    EXPECT_NE(test::spokenAs(*popover, "Netzwerk"), nullptr);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
}

TEST_F(PopoverViewTest, a_new_section_begins_at_its_top) {
    const auto popover = make(Kind::popover);
    popover->resize(360, 300);
    popover->select(PopoverSection::system);
    test::settle();
    QScrollBar& bar = *popover->findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(bar.maximum());
    ASSERT_GT(bar.value(), 0);
    popover->select(PopoverSection::battery);
    test::settle();
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(PopoverViewTest, hidden_no_section_follows_anything_and_none_is_painted) {
    bench.offerEverySection();
    const auto popover = make(Kind::popover);
    for (const PopoverSection section : test::everySection) {
        popover->select(section);
        test::settle();
        EXPECT_TRUE(bench.isAnythingFollowed());
        popover->hide();
        EXPECT_FALSE(bench.isAnythingFollowed()) << describe(section).rawValue;
        test::PaintRecorder recorder(*popover->findChild<QScrollArea*>()->widget());
        bench.readEverything();
        test::settle();
        EXPECT_TRUE(recorder.painted.empty()) << describe(section).rawValue;
        test::show(*popover);
    }
}

TEST_F(PopoverViewTest, hidden_it_follows_nothing) {
    const auto popover = make(Kind::popover);
    EXPECT_TRUE(bench.isCPUFollowed());
    popover->hide();
    EXPECT_FALSE(bench.isCPUFollowed());
}

TEST_F(PopoverViewTest, selecting_again_leaves_one_page_that_follows) {
    const auto popover = make(Kind::popover);
    popover->select(PopoverSection::overview);
    test::settle();
    EXPECT_TRUE(bench.isCPUFollowed());
    popover->hide();
    EXPECT_FALSE(bench.isCPUFollowed());
}

}  // namespace
}  // namespace vtx
