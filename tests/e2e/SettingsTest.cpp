// SPDX-License-Identifier: MIT
// Every setting, changed by the keyboard and read by assistive software, through a restart.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <utility>

#include "support/PageTest.h"

namespace vtx::e2e {
namespace {

/// What a setting says of itself.
std::string lineOf(const Accessible& one) {
    std::string line = wordsOf(one) + " " + one.description();
    if (one.isChecked()) line += " checked";
    if (one.isSelected()) line += " selected";
    return line;
}

class SettingsE2E : public PageTest {
protected:
    void openSettings() {
        applicationName = "vantrix";
        vantrix = desktop.start({VANTRIX_PROGRAM});
        // Which tiles the strip has is a setting, too.
        ASSERT_TRUE(eventually([this] { return strip().has_value(); })) << "no strip";
        ASSERT_NO_FATAL_FAILURE(open());
        ASSERT_NO_FATAL_FAILURE(choose(sections().back()));
    }
    void quit() {
        vantrix->send(SIGTERM);
        ASSERT_EQ(vantrix->exitStatus(), 0);
    }
    /// All that the page says, in its order, a line for each element, once it has come to rest.
    [[nodiscard]] std::string page() {
        std::string text;
        const auto isStill = [&] {
            const std::string before = std::exchange(text, {});
            for (const Accessible& one : everything()) text += lineOf(one) + "\n";
            return text == before;
        };
        EXPECT_TRUE(eventually(isStill)) << "it does not come to rest";
        return text;
    }
    /// Presses keys until the control says something else.
    void changes(const Accessible& control, const std::function<std::string()>& says,
                 const std::function<void()>& act) {
        const std::string before = says();
        act();
        EXPECT_TRUE(eventually([&] { return says() != before; }))
            << wordsOf(control) << " still says " << before;
        ++changed;
    }
    void changes(const Accessible& control, const std::function<void()>& act) {
        changes(control, [&] { return lineOf(control); }, act);
    }
    void chooseAnother(const Accessible& menu) {
        changes(menu, [&] {
            user().press(key::enter);
            ASSERT_TRUE(eventually([this] { return isMenuOpen(); })) << wordsOf(menu);
            user().press(key::down);
            user().press(key::enter);
            ASSERT_TRUE(eventually([this] { return !isMenuOpen(); })) << wordsOf(menu);
        });
    }
    void mixAnother(const Accessible& well) {
        const xcb_window_t ground = display().activeWindow();
        changes(well, [&] {
            user().press(key::enter);
            const auto dialog = [this] { return display().clientOfType("DIALOG"); };
            ASSERT_TRUE(eventually([&] {
                return dialog() != 0 && display().activeWindow() == dialog();
            })) << wordsOf(well);
            user().pressWith(key::alt, key::h);
            // One digit of the six.
            user().press(key::end);
            user().press(key::backspace);
            user().type("7");
            user().press(key::enter);
            ASSERT_TRUE(eventually([&] {
                return dialog() == 0 && display().activeWindow() == ground;
            })) << "the keyboard does not come back from the dialog of "
                << wordsOf(well);
        });
    }
    /// Which of the choices side by side holds.
    [[nodiscard]] static std::string choiceOf(const Accessible& segments) {
        for (const Accessible& one : segments.children())
            if (one.isSelected()) return one.name();
        return {};
    }
    void change(const Accessible& stop) {
        const std::string role = stop.role();
        const auto group = stop.parent();
        if (role == "check box") {
            changes(stop, [this] { user().press(key::space); });
        } else if (role == "slider") {
            changes(stop, [this] { user().press(key::end); });
        } else if (role == "combo box") {
            chooseAnother(stop);
        } else if (role == "color chooser") {
            mixAnother(stop);
        } else if (role == "radio button" && group) {
            changes(stop, [&] { return choiceOf(*group); }, [&] { user().press(key::end); });
        } else if (role == "list item" && group && group->children().back() == stop) {
            // The last tile of the strip goes one up.
            changes(
                stop, [&] { return std::to_string(stop.place().y); },
                [this] { user().pressWith(key::alt, key::up); });
        }
    }
    /// Goes through the page by Tab and changes each setting that it comes to. That takes less time
    /// than an alert needs, whose window would take the keyboard.
    void changeEverything() {
        std::vector<Accessible> done;
        while (const auto stop = goBy(key::tab)) {
            if (stop->role() == "page tab") return;
            if (std::ranges::find(done, *stop) != done.end()) continue;
            done.push_back(*stop);
            ASSERT_NO_FATAL_FAILURE(change(*stop));
        }
        FAIL() << "the way does not lead back to the bar";
    }

    int changed = 0;
};

TEST_F(SettingsE2E, every_setting_is_changed_by_the_keyboard_and_survives_a_restart) {
    ASSERT_NO_FATAL_FAILURE(openSettings());
    ASSERT_NO_FATAL_FAILURE(changeEverything());
    // Tiles, labels, symbols, interval, charts, colours, alerts with their thresholds, and so on.
    constexpr int settings = 50;
    EXPECT_GE(changed, settings);
    const auto before = page();
    ASSERT_NO_FATAL_FAILURE(quit());

    ASSERT_NO_FATAL_FAILURE(openSettings());
    EXPECT_EQ(page(), before);
}

}  // namespace
}  // namespace vtx::e2e
