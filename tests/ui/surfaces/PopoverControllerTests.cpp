// SPDX-License-Identifier: MIT
#include "ui/surfaces/PopoverController.h"

#include <gtest/gtest.h>

#include "ShellFakes.h"
#include "SurfaceBench.h"
#include "ui/shell/StripStatusItem.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

class PopoverControllerTest : public testing::Test {
protected:
    PopoverControllerTest() {
        item.setLength(150);
        item.show();
        popover.onShow = [this] { told += 'o'; };
        popover.onClose = [this] { told += 'c'; };
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

TEST_F(PopoverControllerTest, has_no_pages_until_it_is_first_shown_and_keeps_them_then) {
    EXPECT_EQ(popover.window().findChild<PopoverView*>(), nullptr);
    popover.show();
    auto* const view = popover.window().findChild<PopoverView*>();
    ASSERT_NE(view, nullptr);
    popover.close();
    popover.show();
    EXPECT_EQ(popover.window().findChild<PopoverView*>(), view);
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
