// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverController.h"

#include <gtest/gtest.h>

#include <QDialog>

#include "ShellFakes.h"
#include "SurfaceBench.h"
#include "ui/shell/StripStatusItem.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

class PopoverControllerTest : public testing::Test {
protected:
    PopoverControllerTest() {
        item.setLength(150);
        item.show();
        popover.onShow = [this] { told += 'o'; };
        popover.onClose = [this] { told += 'c'; };
        popover.didLetGo = [this] { told += 'g'; };
    }

    [[nodiscard]] PopoverView* view() { return popover.window().findChild<PopoverView*>(); }
    void closeForLong() {
        popover.keepPagesFor(0ms);
        popover.close();
        test::settle();
    }

    test::SurfaceBench bench;
    FakeWindowSystem system;
    FakeUserDefaults defaults;
    StripStatusItem item{system, defaults};
    PopoverController popover{system, bench.coordinator, item, "Vantrix", {}};
    std::string told;
};

TEST_F(PopoverControllerTest, opening_and_closing_are_told_once_each) {
    popover.show();
    EXPECT_TRUE(popover.isShown());
    popover.close();
    EXPECT_FALSE(popover.isShown());
    EXPECT_EQ(told, "oc");
}

TEST_F(PopoverControllerTest, has_no_pages_until_it_is_first_shown) {
    EXPECT_EQ(view(), nullptr);
    popover.show();
    EXPECT_NE(view(), nullptr);
}

TEST_F(PopoverControllerTest, opened_again_soon_it_is_as_it_was_left) {
    popover.keepPagesFor(0ms);
    popover.show();
    const PopoverView* const before = view();
    popover.close();
    popover.show();
    test::settle();
    EXPECT_EQ(view(), before);
}

TEST_F(PopoverControllerTest, lets_its_pages_go_some_time_after_it_closed) {
    popover.show();
    popover.keepPagesFor(0ms);
    popover.close();
    EXPECT_NE(view(), nullptr);
    test::settle();
    EXPECT_EQ(view(), nullptr);
    EXPECT_EQ(told, "ocg");
}

TEST_F(PopoverControllerTest, is_at_the_same_section_with_new_pages) {
    popover.show();
    view()->select(PopoverSection::memory);
    closeForLong();
    popover.show();
    ASSERT_NE(view(), nullptr);
    EXPECT_EQ(view()->selectedSection(), PopoverSection::memory);
}

TEST_F(PopoverControllerTest, keeps_its_pages_while_a_dialog_of_theirs_asks_for_an_answer) {
    popover.show();
    auto* const dialog = new QDialog(view());  // goes with the pages
    dialog->open();
    closeForLong();
    EXPECT_NE(view(), nullptr);
    dialog->reject();
    test::settle();
    EXPECT_EQ(view(), nullptr);
}

TEST_F(PopoverControllerTest, closed_it_follows_nothing_whatever_section_it_shows) {
    bench.offerEverySection();
    EXPECT_FALSE(bench.isAnythingFollowed());
    popover.show();
    auto& view = *popover.window().findChild<PopoverView*>();
    popover.close();
    for (const PopoverSection section : test::everySection) {
        popover.show();
        view.select(section);
        test::settle();
        EXPECT_TRUE(bench.isAnythingFollowed());
        popover.close();
        EXPECT_FALSE(bench.isAnythingFollowed()) << describe(section).rawValue;
    }
}

TEST_F(PopoverControllerTest, escape_closes_it) {
    popover.show();
    test::settle();
    test::press(popover.window(), Qt::Key_Escape);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverControllerTest, is_titled_and_stands_below_the_item) {
    popover.show();
    EXPECT_EQ(popover.window().windowTitle(), "Vantrix");
    EXPECT_GT(popover.window().geometry().top(), item.screenGeometry().bottom());
}

}  // namespace
}  // namespace vtx
