// SPDX-License-Identifier: MIT
// What the controller of the bar does with the mini widget and with the first start's choice.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CoordinatorBench.h"
#include "support/FakeSurfaces.h"
#include "ui/controller/MenuBarController.h"

namespace vtx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SimulatedUserDefaults::Values storedWith(const std::function<void(DisplayPreferences&)>& edit) {
    DisplayPreferences preferences;
    preferences.hasCompletedFirstRunLanguage = true;
    edit(preferences);
    SimulatedUserDefaults store;
    preferences.save(store);
    return store.stored;
}

struct Started {
    explicit Started(const SimulatedUserDefaults::Values& stored = {})
        : bench(MacShape::standard(), stored) {}

    AppBench bench;
    FakeSurfaces surfaces;
    MenuBarController controller{bench.ports(), bench.executors(), surfaces};

    [[nodiscard]] const DisplayPreferences& preferences() {
        return *controller.coordinator().preferences;
    }
    [[nodiscard]] DisplayPreferences stored() {
        return DisplayPreferences::load(bench.platform.userDefaults);
    }
    void choose(const std::string& title) {
        surfaces.item->onClick(ButtonEvent::rightMouseUp);
        surfaces.item->choose(title);
    }
    [[nodiscard]] std::vector<std::string>& widget() { return surfaces.miniWidget->did; }
};

const auto widgetOn = [](DisplayPreferences& p) { p.miniWidgetEnabled = true; };

TEST(MiniWidgetVisibility, an_enabled_widget_shows_with_the_start) {
    EXPECT_THAT(Started(storedWith(widgetOn)).widget(), ElementsAre("show"));
}

TEST(MiniWidgetVisibility, a_first_start_shows_none) {
    EXPECT_THAT(Started().widget(), ElementsAre("close"));
}

TEST(MiniWidgetVisibility, follows_its_preference_and_no_other) {
    Started started(storedWith([](auto&) {}));
    started.widget().clear();
    auto& preferences = started.controller.coordinator().preferences;
    preferences.modify([](auto& p) { p.showGPU = true; });
    EXPECT_THAT(started.widget(), IsEmpty());
    preferences.modify(widgetOn);
    preferences.modify([](auto& p) { p.miniWidgetX = 10; });
    EXPECT_THAT(started.widget(), ElementsAre("show"));
    preferences.modify([](auto& p) { p.miniWidgetEnabled = false; });
    EXPECT_THAT(started.widget(), ElementsAre("show", "close"));
}

TEST(MiniWidgetVisibility, the_menu_turns_it_on_and_off_by_what_it_would_do) {
    Started started;
    started.widget().clear();
    started.choose("Show Mini Widget");
    EXPECT_TRUE(started.stored().miniWidgetEnabled);
    started.choose("Hide Mini Widget");
    EXPECT_FALSE(started.stored().miniWidgetEnabled);
    EXPECT_THAT(started.widget(), ElementsAre("show", "close"));
}

TEST(MiniWidgetVisibility, quitting_closes_it_and_keeps_it_enabled) {
    Started started(storedWith(widgetOn));
    started.choose("Quit Vantrix");
    EXPECT_THAT(started.widget(), ElementsAre("show", "close"));
    EXPECT_TRUE(started.stored().miniWidgetEnabled);
}

TEST(FirstRunLanguage, a_new_profile_is_asked_with_english_marked) {
    Started started;
    EXPECT_THAT(started.surfaces.languagePicker->presented, ElementsAre(Language::en));
    EXPECT_FALSE(started.preferences().hasCompletedFirstRunLanguage);
}

TEST(FirstRunLanguage, once_chosen_nothing_is_asked_and_the_language_stands) {
    Started started(storedWith([](auto& p) { p.languageCode = "ja"; }));
    EXPECT_THAT(started.surfaces.languagePicker->presented, IsEmpty());
    EXPECT_EQ(*Localization::shared().effective, Language::ja);
}

TEST(FirstRunLanguage, the_stored_language_is_marked_and_an_unknown_one_is_english) {
    const std::pair<const char*, Language> marked[] = {
        {"ko", Language::ko}, {"xx", Language::en}, {"auto", Language::automatic}};
    for (const auto& [code, language] : marked) {
        Started started(storedWith([code](auto& p) {
            p.hasCompletedFirstRunLanguage = false;
            p.languageCode = code;
        }));
        EXPECT_THAT(started.surfaces.languagePicker->presented, ElementsAre(language)) << code;
    }
}

TEST(FirstRunLanguage, confirming_puts_the_program_in_the_language_and_then_sets_the_flag) {
    Started started;
    std::vector<std::string> told;
    const auto token = started.controller.coordinator().preferences.subscribe([&](const auto& p) {
        told.push_back(p.languageCode + (p.hasCompletedFirstRunLanguage ? " done" : ""));
    });
    started.surfaces.languagePicker->confirm(Language::de);
    EXPECT_THAT(told, ElementsAre("en", "de", "de done"));
    EXPECT_EQ(*Localization::shared().effective, Language::de);
    EXPECT_EQ(started.stored().languageCode, "de");
    EXPECT_TRUE(started.stored().hasCompletedFirstRunLanguage);
}

TEST(FirstRunLanguage, quitting_before_a_choice_leaves_the_question_open) {
    Started started;
    started.choose("Quit Vantrix");
    EXPECT_FALSE(started.stored().hasCompletedFirstRunLanguage);
}

TEST(FirstRunLanguage, automatic_that_was_stored_and_confirmed_is_stored_again) {
    Started started;
    started.surfaces.languagePicker->confirm(Language::automatic);
    EXPECT_EQ(started.stored().languageCode, "auto");
}

TEST(ShowPopover, opens_it_and_leaves_an_open_one_open) {
    Started started;
    for (int time = 0; time < 2; ++time) {
        started.controller.showPopover();
        EXPECT_TRUE(started.surfaces.popover->shown);
    }
    EXPECT_EQ(*started.controller.coordinator().pollingMode, PollingMode::active);
}

}  // namespace
}  // namespace vtx
