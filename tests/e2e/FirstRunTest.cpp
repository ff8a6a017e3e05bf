// SPDX-License-Identifier: MIT
// The first start of a new user, up to a program in the language that was chosen.
#include <csignal>

#include "support/DesktopTest.h"

namespace vtx::e2e {
namespace {

class FirstRunE2E : public DesktopTest {
protected:
    FirstRunE2E() { desktop.forgetProfile(); }

    [[nodiscard]] bool isAsked(const std::string& title = "Welcome to Vantrix") {
        return windowNamed(title).has_value();
    }
    [[nodiscard]] bool isAskedWithKeyboard() {
        return eventually([this] {
            const xcb_window_t window = display().clientOfType("DIALOG");
            return isAsked() && window != 0 && display().activeWindow() == window;
        });
    }
    void openPopover() {
        user().click(stripPlace());
        ASSERT_TRUE(eventually([this] { return isPopoverOpen(); })) << "it did not open";
    }
};

TEST_F(FirstRunE2E, german_is_chosen_by_keyboard_holds_everywhere_and_is_not_asked_for_again) {
    startVantrix();
    ASSERT_TRUE(isAskedWithKeyboard());
    user().press(key::right);
    user().press(key::enter);
    ASSERT_TRUE(eventually([this] { return display().clientOfType("DIALOG") == 0; }));
    openPopover();
    EXPECT_TRUE(popover()->findNamed("Übersicht")) << popover()->drawing();

    vantrix->send(SIGTERM);
    ASSERT_EQ(vantrix->exitStatus(), 0);
    startVantrix();
    openPopover();
    EXPECT_TRUE(popover()->findNamed("Übersicht"));
    EXPECT_EQ(display().clientOfType("DIALOG"), 0U) << "it was asked for again";
}

TEST_F(FirstRunE2E, the_desktop_cannot_close_it) {
    startVantrix();
    ASSERT_TRUE(isAskedWithKeyboard());
    user().pressWith(key::alt, key::f4);
    constexpr Span aftermath{600};
    bool stayed = true;
    watchFor(aftermath, [&] { stayed = stayed && display().clientOfType("DIALOG") != 0; });
    EXPECT_TRUE(stayed);
}

TEST_F(FirstRunE2E, who_quits_before_choosing_is_asked_again) {
    startVantrix();
    ASSERT_TRUE(isAskedWithKeyboard());
    user().press(key::escape);
    user().press(key::right);
    vantrix->send(SIGTERM);
    ASSERT_EQ(vantrix->exitStatus(), 0);
    startVantrix();
    EXPECT_TRUE(isAskedWithKeyboard());
}

}  // namespace
}  // namespace vtx::e2e
