// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverView.h"

#include <gtest/gtest.h>

#include <vector>

#include "SurfaceBench.h"
#include "ui/kit/SectionBar.h"

namespace vtx {
namespace {

using Kind = PopoverView::SurfaceKind;
constexpr auto detachLabel = "Als Fenster öffnen";

class PopoverViewTest : public testing::Test {
protected:
    std::unique_ptr<PopoverView> make(Kind kind) {
        auto view = std::make_unique<PopoverView>(
            bench.coordinator, kind, PopoverSection::overview,
            [this](PopoverSection section) { detached.push_back(section); });
        view->resize(400, 500);
        test::show(*view);
        return view;
    }
    static SectionBar& barOf(PopoverView& view) { return *view.findChild<SectionBar*>(); }

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
    detach->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(detached, std::vector{PopoverSection::overview});
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
    for (int i = 1; i < bar.partCount(); ++i) test::press(bar, Qt::Key_Right);
    EXPECT_EQ(bar.focusedPart(), bar.partCount() - 1);
    EXPECT_TRUE(detached.empty()) << "the focus alone does nothing";
    test::press(bar, Qt::Key_Return);
    EXPECT_EQ(detached.size(), 1U);
    test::press(bar, Qt::Key_Home);
    EXPECT_EQ(bar.focusedPart(), 0);
}

TEST_F(PopoverViewTest, digits_select_sections_and_never_the_detach_button) {
    const auto popover = make(Kind::popover);
    test::press(barOf(*popover), Qt::Key_1);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::overview);
    test::press(barOf(*popover), Qt::Key_2);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::settings);
    test::press(barOf(*popover), Qt::Key_3);
    EXPECT_EQ(popover->selectedSection(), PopoverSection::settings);
    EXPECT_TRUE(detached.empty());
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
