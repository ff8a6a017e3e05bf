// SPDX-License-Identifier: MIT
// Opening the popover, reading it, and every way of closing it.
#include <array>
#include <regex>

#include "support/ClientWindow.h"
#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class PopoverE2E : public DesktopTest {
protected:
    void open() {
        startVantrix();
        click();
    }
    void click() {
        user().click(stripPlace());
        ASSERT_TRUE(eventually([this] { return isPopoverOpen(); })) << "it did not open";
    }
    [[nodiscard]] bool closes() {
        return eventually([this] { return !isPopoverOpen(); });
    }
    [[nodiscard]] bool hasKeyboard() {
        return eventually([this] {
            const xcb_window_t window = display().clientOfType("UTILITY");
            return window != 0 && display().activeWindow() == window;
        });
    }
};

/// Long enough for a press that was passed on late to open what it had closed.
constexpr Span aftermath{600};

TEST_F(PopoverE2E, a_click_opens_it_below_the_strip_with_the_keyboard) {
    open();
    EXPECT_TRUE(hasKeyboard());
    const Place window = display().place(display().clientOfType("UTILITY"));
    EXPECT_GE(window.y, stripPlace().y + stripPlace().height);
    EXPECT_LE(window.x + window.width, display().screen().width);
}

TEST_F(PopoverE2E, its_rows_are_read_with_their_values) {
    open();
    const auto row = popover()->find(
        [](const Accessible& one) { return one.name() == "CPU" && one.role() == "list item"; });
    ASSERT_TRUE(row);
    EXPECT_TRUE(eventually([&] {
        return std::regex_match(row->description(), std::regex(R"(\d{1,3} %)"));
    })) << row->description();
    EXPECT_TRUE(popover()->findNamed("Overview"));
}

TEST_F(PopoverE2E, escape_closes_it) {
    open();
    ASSERT_TRUE(hasKeyboard());
    user().press(key::escape);
    EXPECT_TRUE(closes());
}

TEST_F(PopoverE2E, a_click_elsewhere_closes_it) {
    open();
    user().click(emptyPlace());
    EXPECT_TRUE(closes());
}

TEST_F(PopoverE2E, another_window_that_comes_to_the_front_closes_it) {
    open();
    ASSERT_TRUE(hasKeyboard());
    const ClientWindow other(display());
    ASSERT_TRUE(other.comesToFront());
    EXPECT_TRUE(closes());
}

TEST_F(PopoverE2E, a_keyboard_that_goes_to_no_window_comes_back_to_it) {
    open();
    ASSERT_TRUE(hasKeyboard());
    constexpr std::array<xcb_window_t, 2> nobody{XCB_INPUT_FOCUS_NONE,
                                                 XCB_INPUT_FOCUS_POINTER_ROOT};
    for (const xcb_window_t focus : nobody) {
        display().giveKeyboardTo(focus);
        bool stayed = true;
        watchFor(aftermath, [&] { stayed = stayed && isPopoverOpen(); });
        ASSERT_TRUE(stayed);
    }
    ASSERT_TRUE(hasKeyboard());
    user().press(key::escape);
    EXPECT_TRUE(closes());
}

TEST_F(PopoverE2E, behind_a_wayland_compositor_a_keyboard_that_no_window_has_closes_it) {
    // What such a session sets; nothing listens there, and nothing asks.
    start({"env", "WAYLAND_DISPLAY=none", "QT_QPA_PLATFORM=xcb", VANTRIX_PROGRAM}, "vantrix");
    click();
    ASSERT_TRUE(hasKeyboard());
    display().giveKeyboardTo(XCB_INPUT_FOCUS_NONE);
    EXPECT_TRUE(closes());
}

TEST_F(PopoverE2E, an_empty_desktop_closes_it) {
    open();
    ASSERT_TRUE(hasKeyboard());
    display().goToDesktop(1);
    EXPECT_TRUE(closes());
    bool opened = false;
    watchFor(aftermath, [&] { opened = opened || isPopoverOpen(); });
    EXPECT_FALSE(opened);
}

TEST_F(PopoverE2E, a_click_inside_keeps_it) {
    open();
    user().click(popover()->findNamed("CPU")->place());
    bool stayed = true;
    watchFor(aftermath, [&] { stayed = stayed && isPopoverOpen(); });
    EXPECT_TRUE(stayed);
}

TEST_F(PopoverE2E, a_second_click_on_the_strip_closes_it_for_good) {
    open();
    ASSERT_TRUE(hasKeyboard());
    user().click(stripPlace());
    ASSERT_TRUE(closes());
    bool opened = false;
    watchFor(aftermath, [&] { opened = opened || isPopoverOpen(); });
    EXPECT_FALSE(opened);
}

TEST_F(PopoverE2E, it_opens_again_after_each_way_of_closing) {
    open();
    user().click(emptyPlace());
    ASSERT_TRUE(closes());
    user().click(stripPlace());
    ASSERT_TRUE(eventually([this] { return isPopoverOpen(); }));
    ASSERT_TRUE(hasKeyboard());
    user().press(key::escape);
    ASSERT_TRUE(closes());
    user().click(stripPlace());
    EXPECT_TRUE(eventually([this] { return isPopoverOpen(); }));
}

TEST_F(PopoverE2E, the_strip_stands_still_while_it_is_open) {
    open();
    const Place before = stripPlace();
    constexpr Span someReadings{2'500};
    bool stoodStill = true;
    watchFor(someReadings, [&] { stoodStill = stoodStill && stripPlace() == before; });
    EXPECT_TRUE(stoodStill);
}

TEST_F(PopoverE2E, its_pin_opens_the_dashboard_in_its_place) {
    open();
    user().click(popover()->findNamed("Als Fenster öffnen")->place());
    EXPECT_TRUE(eventually([this] { return display().clientOfType("NORMAL") != 0; }));
    EXPECT_TRUE(closes());
}

}  // namespace
}  // namespace vtx::e2e
