// SPDX-License-Identifier: MIT
// The strip on a real display, and the life of the program.
#include <gmock/gmock.h>

#include <csignal>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class StripE2E : public DesktopTest {};

constexpr int height = 24;

TEST_F(StripE2E, stands_at_the_top_right_and_tells_where_it_is) {
    startVantrix();
    const Place place = stripPlace();
    EXPECT_EQ(place.x + place.width, display().screen().width);
    EXPECT_EQ(place.y, 0);
    EXPECT_EQ(place.height, height);
    EXPECT_EQ(strip()->place(), place);
    EXPECT_TRUE(strip()->isShowing());
}

TEST_F(StripE2E, is_all_that_a_start_shows_and_in_no_list_of_windows) {
    startVantrix();
    constexpr Span aftermath{600};
    watchFor(aftermath, [] {});
    const xcb_window_t dock = display().clientOfType("DOCK");
    EXPECT_THAT(display().clients(), testing::ElementsAre(dock));
    const auto states = display().numbers(dock, "_NET_WM_STATE");
    for (const char* state : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
        EXPECT_THAT(states, testing::Contains(display().atom(state))) << state;
}

TEST_F(StripE2E, is_a_dock_that_reserves_its_height) {
    startVantrix();
    const xcb_window_t window = display().clientOfType("DOCK");
    ASSERT_NE(window, 0U);
    const auto strut = display().numbers(window, "_NET_WM_STRUT_PARTIAL");
    const Place place = stripPlace();
    const auto left = static_cast<unsigned>(place.x);
    const auto right = static_cast<unsigned>(place.x + place.width - 1);
    EXPECT_THAT(strut, testing::ElementsAre(0, 0, height, 0, 0, 0, 0, 0, left, right, 0, 0));
    EXPECT_TRUE(eventually([this] {
        const auto area = display().numbers(display().root(), "_NET_WORKAREA");
        return area.size() >= 4 && area[1] == height;
    })) << "the window manager keeps no room for it";
}

TEST_F(StripE2E, does_not_take_the_keyboard_when_it_appears) {
    startVantrix();
    EXPECT_NE(display().activeWindow(), display().clientOfType("DOCK"));
}

TEST_F(StripE2E, each_new_text_is_announced) {
    start(VANTRIX_SIMULATED_PROGRAM, "vantrix-simulated");
    (void)desktop.accessibility().newEvents("PropertyChange:accessible-name");
    constexpr int wanted = 3;
    int announced = 0;
    EXPECT_TRUE(eventually([&] {
        for (const auto& event :
             desktop.accessibility().newEvents("PropertyChange:accessible-name"))
            announced += event.source.role() == "push button" ? 1 : 0;
        return announced >= wanted;
    })) << announced;
}

TEST_F(StripE2E, asked_to_terminate_the_program_ends_in_order) {
    startVantrix();
    vantrix->send(SIGTERM);
    EXPECT_EQ(vantrix->exitStatus(), 0);
}

TEST_F(StripE2E, an_interruption_ends_it_in_order_with_the_popover_open) {
    startVantrix();
    user().click(stripPlace());
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); }));
    vantrix->send(SIGINT);
    EXPECT_EQ(vantrix->exitStatus(), 0);
}

}  // namespace
}  // namespace vtx::e2e
