// SPDX-License-Identifier: MIT
// The menu of the strip and what its entries do.
#include <gmock/gmock.h>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class MenuE2E : public DesktopTest {
protected:
    [[nodiscard]] static std::vector<std::string> entriesOf(const Accessible& menu) {
        std::vector<std::string> names;
        for (const Accessible& entry : menu.children())
            if (entry.role() == "menu item") names.push_back(entry.name());
        return names;
    }

    [[nodiscard]] xcb_window_t dashboard() { return display().clientOfType("NORMAL"); }

    const testing::Matcher<std::vector<std::string>> allEntries =
        testing::ElementsAre("About Vantrix", "Settings…", "Open Dashboard", "Refresh Now",
                             "Show Mini Widget", "Quit Vantrix");
};

TEST_F(MenuE2E, a_right_click_opens_it_with_all_entries) {
    startVantrix();
    user().click(stripPlace(), UserInput::Button::right);
    const auto menu = openedMenu();
    ASSERT_TRUE(menu);
    EXPECT_THAT(entriesOf(*menu), allEntries);
    EXPECT_FALSE(isPopoverOpen());
}

TEST_F(MenuE2E, escape_closes_it_and_the_next_right_click_opens_it_again) {
    startVantrix();
    user().click(stripPlace(), UserInput::Button::right);
    ASSERT_TRUE(openedMenu());
    user().press(key::escape);
    ASSERT_TRUE(eventually([this] { return !isMenuOpen(); }));
    user().click(stripPlace(), UserInput::Button::right);
    const auto menu = openedMenu();
    ASSERT_TRUE(menu);
    EXPECT_THAT(entriesOf(*menu), allEntries);
}

TEST_F(MenuE2E, a_control_click_opens_it_and_never_the_popover) {
    startVantrix();
    user().clickWith(key::control, stripPlace());
    const auto menu = openedMenu();
    ASSERT_TRUE(menu);
    EXPECT_THAT(entriesOf(*menu), allEntries);
    EXPECT_FALSE(isPopoverOpen());
}

TEST_F(MenuE2E, opens_from_the_strip_with_the_popover_open) {
    startVantrix();
    user().click(stripPlace());
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); }));
    user().click(stripPlace(), UserInput::Button::right);
    EXPECT_TRUE(openedMenu());
}

TEST_F(MenuE2E, open_dashboard_opens_the_window) {
    startVantrix();
    choose("Open Dashboard");
    ASSERT_TRUE(eventually([this] { return dashboard() != 0; }));
    EXPECT_EQ(display().title(dashboard()), "Vantrix");
    EXPECT_GE(display().place(dashboard()).width, 420);
    EXPECT_GE(display().place(dashboard()).height, 620);
    ASSERT_TRUE(eventually([this] { return elementOf(dashboard()).has_value(); }));
    const auto window = elementOf(dashboard());
    EXPECT_TRUE(window->findNamed("Overview"));
    EXPECT_TRUE(window->findNamed("CPU"));
    EXPECT_FALSE(window->findNamed("Als Fenster öffnen")) << "that is for the popover alone";
}

TEST_F(MenuE2E, with_the_dashboard_on_another_desktop_everything_opens_where_the_user_is) {
    startVantrix();
    choose("Open Dashboard");
    ASSERT_TRUE(eventually([this] { return dashboard() != 0; }));
    display().goToDesktop(1);
    ASSERT_TRUE(eventually([this] { return !display().isShown(dashboard()); }));

    user().click(stripPlace());
    const auto popover = [this] { return display().clientOfType("UTILITY"); };
    EXPECT_TRUE(eventually([&] { return popover() != 0 && display().isShown(popover()); }));
    EXPECT_FALSE(display().isShown(dashboard()));
    user().press(key::escape);
    ASSERT_TRUE(eventually([&] { return popover() == 0; }));

    choose("Open Dashboard");
    EXPECT_TRUE(eventually([this] { return display().isShown(dashboard()); }));
}

TEST_F(MenuE2E, a_dashboard_that_the_user_put_on_every_desktop_stays_there) {
    startVantrix();
    choose("Open Dashboard");
    ASSERT_TRUE(eventually([this] { return dashboard() != 0; }));
    display().putOnEveryDesktop(dashboard());
    ASSERT_TRUE(eventually([this] { return display().isOnEveryDesktop(dashboard()); }));
    choose("Open Dashboard");
    constexpr Span aftermath{600};
    bool stayed = true;
    watchFor(aftermath, [&] { stayed = stayed && display().isOnEveryDesktop(dashboard()); });
    EXPECT_TRUE(stayed);
}

TEST_F(MenuE2E, the_simulated_program_says_so_in_its_title) {
    start(VANTRIX_SIMULATED_PROGRAM, "vantrix-simulated");
    // Its machine is a new one with each start, so that it asks for the language first.
    ASSERT_TRUE(eventually([this] { return windowNamed("Welcome to Vantrix").has_value(); }));
    const auto question = [this] { return display().clientOfType("DIALOG"); };
    ASSERT_TRUE(
        eventually([&] { return question() != 0 && display().activeWindow() == question(); }));
    user().press(key::enter);
    ASSERT_TRUE(eventually([&] { return question() == 0; }));
    choose("Open Dashboard");
    ASSERT_TRUE(eventually([this] { return dashboard() != 0; }));
    EXPECT_THAT(display().title(dashboard()), testing::HasSubstr("simulated"));
}

TEST_F(MenuE2E, settings_opens_the_popover) {
    startVantrix();
    choose("Settings…");
    EXPECT_TRUE(eventually([this] { return isPopoverOpen(); }));
}

TEST_F(MenuE2E, settings_closes_the_popover_that_is_open) {
    startVantrix();
    user().click(stripPlace());
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); }));
    choose("Settings…");
    EXPECT_TRUE(eventually([this] { return !isPopoverOpen(); }));
    bool opened = false;
    constexpr Span aftermath{600};
    watchFor(aftermath, [&] { opened = opened || isPopoverOpen(); });
    EXPECT_FALSE(opened);
}

TEST_F(MenuE2E, about_opens_a_panel_that_names_the_version) {
    startVantrix();
    choose("About Vantrix");
    ASSERT_TRUE(eventually([this] { return windowNamed("About Vantrix").has_value(); }));
    EXPECT_THAT(windowNamed("About Vantrix")->description(), testing::StartsWith("Version "));
}

TEST_F(MenuE2E, refresh_now_leaves_the_program_running) {
    startVantrix();
    choose("Refresh Now");
    ASSERT_TRUE(eventually([this] { return !isMenuOpen(); }));
    EXPECT_TRUE(eventually([this] { return spokenCpu().has_value(); }));
    EXPECT_FALSE(vantrix->hasEnded());
}

TEST_F(MenuE2E, quit_ends_the_process_in_order) {
    startVantrix();
    choose("Quit Vantrix");
    EXPECT_EQ(vantrix->exitStatus(), 0);
}

TEST_F(MenuE2E, the_key_of_quit_works_in_the_menu) {
    startVantrix();
    user().click(stripPlace(), UserInput::Button::right);
    ASSERT_TRUE(openedMenu());
    user().pressWith(key::control, key::q);
    EXPECT_EQ(vantrix->exitStatus(), 0);
}

}  // namespace
}  // namespace vtx::e2e
