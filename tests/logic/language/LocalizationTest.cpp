// SPDX-License-Identifier: MIT
#include "language/Localization.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Shared.h"
#include "platform/Locale.h"

namespace vtx {
namespace {

using L10n::Key;

class FakeLocale : public Locale {
public:
    explicit FakeLocale(std::vector<std::string> languages = {"en-US"}) : preferred(languages) {}
    std::vector<std::string> preferredLanguages() const override { return preferred; }
    std::string collationKey(std::string_view text) const override { return std::string(text); }
    std::string lowercased(std::string_view text) const override { return std::string(text); }
    std::string timeOfDay(Date date) const override {
        return date == Date{} ? "the first moment" : "another";
    }

    std::vector<std::string> preferred;
};

/// What an observer of everything is told, in order: "preference de", "effective de", "object".
class Diary {
public:
    explicit Diary(Localization& localization) {
        held_.push_back(localization.preference.subscribe(
            [this](Language to) { lines.push_back("preference " + std::string(rawValue(to))); }));
        held_.push_back(localization.effective.subscribe(
            [this](Language to) { lines.push_back("effective " + std::string(rawValue(to))); }));
        held_.push_back(
            localization.objectWillChange.subscribe([this] { lines.emplace_back("object"); }));
        lines.clear();
    }

    std::vector<std::string> lines;

private:
    Subscriptions held_;
};

using Lines = std::vector<std::string>;

TEST(Localization, starts_automatic_and_in_the_systems_first_language) {
    const FakeLocale locale({"de-AT", "fr-FR"});
    const Localization localization(locale);

    EXPECT_EQ(localization.preference.get(), Language::automatic);
    EXPECT_EQ(localization.effective.get(), Language::de);
}

TEST(Localization, script_and_region_of_the_systems_language_play_no_part) {
    EXPECT_EQ(Localization(FakeLocale({"zh-Hant-TW"})).effective.get(), Language::zh);
    EXPECT_EQ(Localization(FakeLocale({"pt-BR"})).effective.get(), Language::pt);
}

TEST(Localization, an_unsupported_first_language_gives_english_whatever_follows) {
    EXPECT_EQ(Localization(FakeLocale({"sv-SE", "de-DE", "fr-FR"})).effective.get(), Language::en);
    EXPECT_EQ(Localization(FakeLocale({"", "de-DE"})).effective.get(), Language::en);
}

TEST(Localization, a_system_without_languages_gives_english) {
    EXPECT_EQ(Localization(FakeLocale(Lines{})).effective.get(), Language::en);
}

TEST(Localization, an_explicit_choice_wins_over_the_system) {
    const FakeLocale locale({"de-AT"});
    Localization localization(locale);

    localization.setPreference(Language::ja);

    EXPECT_EQ(localization.preference.get(), Language::ja);
    EXPECT_EQ(localization.effective.get(), Language::ja);
}

TEST(Localization, going_back_to_automatic_takes_the_systems_language_of_that_moment) {
    FakeLocale locale({"de-AT"});
    Localization localization(locale);
    localization.setPreference(Language::fr);

    locale.preferred = {"it-IT"};
    EXPECT_EQ(localization.effective.get(), Language::fr);
    localization.setPreference(Language::automatic);

    EXPECT_EQ(localization.effective.get(), Language::it);
}

TEST(Localization, the_present_preference_again_tells_nobody_and_resolves_nothing) {
    FakeLocale locale({"de-AT"});
    Localization localization(locale);
    Diary diary(localization);

    locale.preferred = {"it-IT"};
    localization.setPreference(Language::automatic);

    EXPECT_EQ(diary.lines, Lines{});
    EXPECT_EQ(localization.effective.get(), Language::de);
}

TEST(Localization, a_change_tells_of_the_preference_and_then_of_the_language) {
    const FakeLocale locale;
    Localization localization(locale);
    Diary diary(localization);

    localization.setPreference(Language::ko);

    EXPECT_EQ(diary.lines, (Lines{"preference ko", "object", "effective ko", "object"}));
}

TEST(Localization, the_language_in_force_is_told_even_where_it_stays_the_same) {
    const FakeLocale locale({"de-AT"});
    Localization localization(locale);
    Diary diary(localization);

    localization.setPreference(Language::de);

    EXPECT_EQ(diary.lines, (Lines{"preference de", "object", "effective de", "object"}));
}

TEST(Localization, texts_are_in_english_when_english_is_in_force) {
    const FakeLocale locale;
    const Localization localization(locale);

    EXPECT_EQ(localization.string(Key::section_overview), "Overview");
    EXPECT_EQ(localization.string(Key::battery_discharging), "On battery");
    EXPECT_EQ(localization.string(Key::last60s), "Last 60 s");
}

TEST(Localization, placeholders_are_left_for_the_caller) {
    const FakeLocale locale;
    const Localization localization(locale);

    EXPECT_EQ(localization.string(Key::memory_ofTotal), "of %@");
    EXPECT_EQ(localization.string(Key::alert_cpu_body),
              "CPU at {value}% (threshold: {threshold}%)");
}

struct Gap {
    Language language;
    Key key;
    std::string_view english;
};

class LocalizationGap : public ::testing::TestWithParam<Gap> {};

TEST_P(LocalizationGap, a_key_without_a_text_in_the_language_reads_in_english) {
    const auto& [language, key, english] = GetParam();
    const FakeLocale locale;
    Localization localization(locale);

    localization.setPreference(language);

    EXPECT_EQ(localization.string(key), english);
}

INSTANTIATE_TEST_SUITE_P(
    Catalogue, LocalizationGap,
    ::testing::Values(Gap{Language::fr, Key::section_energy, "Energy"},
                      Gap{Language::ja, Key::alert_cpu_title, "CPU usage high"},
                      Gap{Language::nl, Key::settings_colors, "Colors (override default)"},
                      Gap{Language::ru, Key::fanControl_autoButton, "Automatic"}));

TEST(Localization, no_language_leaves_a_key_without_words) {
    const FakeLocale locale;
    Localization localization(locale);
    for (const Language language : allLanguages) {
        localization.setPreference(language);
        for (const Key key : L10n::allKeys) {
            const std::string_view text = localization.string(key);
            EXPECT_TRUE(!text.empty() && text != L10n::rawValue(key)) << L10n::rawValue(key);
        }
    }
}

TEST(Localization, a_time_of_day_is_written_as_the_system_does_whatever_the_language) {
    const FakeLocale locale;
    Localization localization(locale);
    localization.setPreference(Language::ja);
    EXPECT_EQ(localization.timeOfDay(Date{}), "the first moment");
    EXPECT_EQ(localization.timeOfDay(Date{std::chrono::seconds(1)}), "another");
}

TEST(Localization, the_shared_one_is_made_at_first_use_from_the_registered_locale) {
    const FakeLocale locale({"pl-PL"});
    Shared<Localization>::setFactory([&] { return std::make_unique<Localization>(locale); });

    Localization& shared = Localization::shared();

    EXPECT_EQ(shared.effective.get(), Language::pl);
    EXPECT_EQ(&Localization::shared(), &shared);
    Shared<Localization>::reset();
}

}  // namespace
}  // namespace vtx
