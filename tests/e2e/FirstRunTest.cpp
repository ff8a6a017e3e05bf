// SPDX-License-Identifier: MIT
// The first start of a new user, up to a program in the language that was chosen.
#include <gmock/gmock.h>

#include <csignal>
#include <set>

#include "language/Catalogue.h"
#include "language/linux/LinuxWording.h"
#include "support/PageTest.h"

namespace vtx::e2e {
namespace {

/// What the program says in English and not in the other language.
std::set<std::string> englishBeside(Language other) {
    const LanguageTexts english{linuxWording(Language::en), catalogue::table(Language::en)};
    const LanguageTexts chosen{linuxWording(other), catalogue::table(other)};
    std::set<std::string> texts, kept;
    for (std::size_t i = 0; i < L10n::keyCount; ++i) {
        const auto key = static_cast<L10n::Key>(i);
        texts.emplace(textOf(key, english, english));
        kept.emplace(textOf(key, chosen, english));
    }
    for (const std::string& text : kept) texts.erase(text);
    // These stand on some page in every language.
    for (const char* text : {"CPU total", "Fan", "P-cores", "Temperature", "Unknown"})
        texts.erase(text);
    return texts;
}

class FirstRunE2E : public PageTest {
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
    void chooseGerman() {
        ASSERT_TRUE(isAskedWithKeyboard());
        user().press(key::right);
        user().press(key::enter);
        ASSERT_TRUE(eventually([this] { return display().clientOfType("DIALOG") == 0; }));
    }
};

TEST_F(FirstRunE2E, german_is_chosen_by_keyboard_holds_everywhere_and_is_not_asked_for_again) {
    startVantrix();
    ASSERT_NO_FATAL_FAILURE(chooseGerman());
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_TRUE(popover()->findNamed("Übersicht")) << popover()->drawing();

    vantrix->send(SIGTERM);
    ASSERT_EQ(vantrix->exitStatus(), 0);
    startVantrix();
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_TRUE(popover()->findNamed("Übersicht"));
    EXPECT_EQ(display().clientOfType("DIALOG"), 0U) << "it was asked for again";
}

TEST_F(FirstRunE2E, every_page_is_in_the_language_that_was_chosen) {
    const auto english = englishBeside(Language::de);
    ASSERT_GT(english.size(), 100U);
    startVantrix();
    ASSERT_NO_FATAL_FAILURE(chooseGerman());
    ASSERT_NO_FATAL_FAILURE(open());
    for (const std::string& section : sections()) {
        ASSERT_NO_FATAL_FAILURE(choose(section));
        for (const Accessible& one : everything())
            for (const std::string& text : {one.name(), one.description()})
                EXPECT_FALSE(english.contains(text)) << "on the page " << section << ": " << text;
    }
}

TEST_F(FirstRunE2E, it_stands_in_the_middle_above_all_and_is_told_as_a_choice_of_one) {
    startVantrix();
    ASSERT_TRUE(isAskedWithKeyboard());
    const xcb_window_t window = display().clientOfType("DIALOG");
    EXPECT_THAT(display().numbers(window, "_NET_WM_STATE"),
                testing::Contains(display().atom("_NET_WM_STATE_ABOVE")));
    const Place place = display().place(window), screen = display().screen();
    constexpr int titleBar = 40;  // the window manager's, at the most
    EXPECT_NEAR(place.middleX(), screen.middleX(), titleBar);
    EXPECT_NEAR(place.middleY(), screen.middleY(), titleBar);

    const auto cards =
        windowNamed("Welcome to Vantrix")->findNamed("English")->parent()->children();
    ASSERT_EQ(cards.size(), 13U);
    for (const Accessible& card : cards) {
        EXPECT_EQ(card.role(), "radio button");
        EXPECT_EQ(card.isChecked(), card.name() == "English") << card.name();
        EXPECT_FALSE(card.description().empty()) << card.name();
    }
    EXPECT_EQ(goBy(key::down)->name(), "Français");
    EXPECT_TRUE(eventually([&] { return cards[2].isChecked() && !cards[0].isChecked(); }));
    EXPECT_EQ(goBy(key::tab)->name(), "Continue");
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
