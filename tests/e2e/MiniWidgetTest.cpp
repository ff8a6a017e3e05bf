// SPDX-License-Identifier: MIT
// The mini widget on a desktop: above all else, out of the way, and where it was put.
#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <ctime>
#include <regex>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class MiniWidgetE2E : public DesktopTest {
protected:
    /// The popover is of the same type, and closed here.
    [[nodiscard]] xcb_window_t widget() { return display().clientOfType("UTILITY"); }
    [[nodiscard]] bool isWidgetShown() {
        return eventually([this] { return widget() != 0 && elementOf(widget()).has_value(); });
    }
    [[nodiscard]] bool standsAt(const Place& place) {
        return eventually([&] { return widget() != 0 && display().place(widget()) == place; });
    }
};

TEST_F(MiniWidgetE2E, the_menu_shows_it_above_all_in_the_corner_and_hides_it) {
    startVantrix();
    choose("Show Mini Widget");
    ASSERT_TRUE(isWidgetShown());
    const Place place = display().place(widget());
    EXPECT_EQ(place.width, 220);
    EXPECT_EQ(place.x, display().screen().width - 220 - 20);
    const auto states = display().numbers(widget(), "_NET_WM_STATE");
    for (const char* state :
         {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"})
        EXPECT_THAT(states, testing::Contains(display().atom(state))) << state;
    constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
    EXPECT_THAT(display().numbers(widget(), "_NET_WM_DESKTOP"), testing::ElementsAre(everyDesktop));
    choose("Hide Mini Widget");
    EXPECT_TRUE(eventually([this] { return widget() == 0; }));
}

TEST_F(MiniWidgetE2E, its_figures_are_read_and_a_click_leaves_the_active_window_active) {
    startVantrix();
    choose("Open Dashboard");
    const auto dashboard = [this] { return display().clientOfType("NORMAL"); };
    ASSERT_TRUE(
        eventually([&] { return dashboard() != 0 && display().activeWindow() == dashboard(); }));
    choose("Show Mini Widget");
    ASSERT_TRUE(isWidgetShown());
    const auto cpu = elementOf(widget())->findNamed("CPU");
    ASSERT_TRUE(cpu);
    EXPECT_TRUE(eventually([&] { return cpu->description().ends_with("%"); }));
    user().click(display().place(widget()));
    bool stayed = true;
    constexpr Span aftermath{400};
    watchFor(aftermath, [&] { stayed = stayed && display().activeWindow() == dashboard(); });
    EXPECT_TRUE(stayed);
}

TEST_F(MiniWidgetE2E, tells_the_second_of_its_readings_and_the_loads_of_the_clusters) {
    start(VANTRIX_SIMULATED_PROGRAM, "vantrix-simulated");
    choose("Show Mini Widget");
    ASSERT_TRUE(isWidgetShown());
    const auto said = [this](const char* name) {
        // The panel has the name of its first row.
        const auto row = elementOf(widget())->find([name](const Accessible& element) {
            return element.role() == "list item" && element.name() == name;
        });
        return row ? row->description() : "";
    };
    for (const char* chip : {"P", "E"})
        EXPECT_TRUE(eventually([&] {
            return std::regex_match(said(chip), std::regex(R"(\d|[1-9]\d|100)"));
        })) << chip
            << " says " << said(chip);
    // Readings are a second apart, and the machine may be busy.
    constexpr std::time_t latest = 4;
    const auto isOfThisSecond = [&] {
        const std::string time = said("Live");
        const std::time_t now = std::time(nullptr);
        for (std::time_t age = 0; age <= latest; ++age) {
            const std::time_t second = now - age;
            std::tm parts{};
            ::localtime_r(&second, &parts);
            std::array<char, 16> written{};
            std::strftime(written.data(), written.size(), "%H:%M:%S", &parts);
            if (time == written.data()) return true;
        }
        return false;
    };
    int agreed = 0;
    constexpr Span threeReadings{3'000};
    watchFor(threeReadings, [&] { agreed += isOfThisSecond() ? 1 : -1000; });
    EXPECT_GT(agreed, 0) << "it said " << said("Live");
}

TEST_F(MiniWidgetE2E, it_stands_where_it_was_dragged_after_a_restart_too) {
    startVantrix();
    choose("Show Mini Widget");
    ASSERT_TRUE(isWidgetShown());
    Place place = display().place(widget());
    user().drag(place, -400, 250);
    place.x -= 400;
    place.y += 250;
    ASSERT_TRUE(standsAt(place));
    vantrix->send(SIGTERM);
    ASSERT_EQ(vantrix->exitStatus(), 0);
    startVantrix();
    EXPECT_TRUE(standsAt(place));
}

}  // namespace
}  // namespace vtx::e2e
