// SPDX-License-Identifier: MIT
#include "language/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "language/tables/Tables.h"

namespace vtx {
namespace {

using L10n::Key;

std::string_view english(Key key) { return catalogue::english().text(key).value_or("(none)"); }

std::vector<Key> englishKeysWith(std::string_view part) {
    std::vector<Key> keys;
    std::ranges::copy_if(L10n::allKeys, std::back_inserter(keys), [&](Key key) {
        return english(key).find(part) != std::string_view::npos;
    });
    return keys;
}

std::vector<Key> keysOf(std::span<const TextEntry> list) {
    std::vector<Key> keys;
    std::ranges::transform(list, std::back_inserter(keys), &TextEntry::key);
    std::ranges::sort(keys);
    return keys;
}

TEST(Catalogue, english_has_a_text_for_every_key) {
    for (const Key key : L10n::allKeys) {
        const auto text = catalogue::english().text(key);
        ASSERT_TRUE(text) << L10n::rawValue(key);
        EXPECT_FALSE(text->empty()) << L10n::rawValue(key);
    }
}

TEST(Catalogue, the_automatic_setting_has_no_texts_of_its_own) {
    EXPECT_EQ(catalogue::table(Language::automatic), nullptr);
}

TEST(Catalogue, a_table_is_built_once) {
    ASSERT_NE(catalogue::table(Language::en), nullptr);
    EXPECT_EQ(catalogue::table(Language::en), catalogue::table(Language::en));
    EXPECT_EQ(catalogue::table(Language::en), &catalogue::english());
}

TEST(Catalogue, the_alerts_footer_is_the_one_english_text_worded_anew) {
    const TextLists lists = tables::en();
    const auto base = keysOf(lists.base);
    const auto additions = keysOf(lists.additions);
    std::vector<Key> both;
    std::ranges::set_intersection(base, additions, std::back_inserter(both));

    EXPECT_EQ(both, std::vector{Key::settings_alertsFooter});
    EXPECT_NE(TextTable({lists.base, {}}).text(Key::settings_alertsFooter),
              english(Key::settings_alertsFooter));
    EXPECT_EQ(english(Key::settings_alertsFooter),
              "Notifications only fire after a state persists for a while: CPU/GPU/temperature "
              "~10 s, RAM/pressure ~30 s.");
}

TEST(Catalogue, one_english_text_alone_takes_a_formatted_value) {
    EXPECT_EQ(englishKeysWith("%@"), std::vector{Key::memory_ofTotal});
    EXPECT_EQ(english(Key::memory_ofTotal), "of %@");
}

TEST(Catalogue, four_english_alert_bodies_take_a_value_and_three_of_them_a_threshold) {
    EXPECT_EQ(englishKeysWith("{value}"),
              (std::vector{Key::alert_cpu_body, Key::alert_gpu_body, Key::alert_memory_body,
                           Key::alert_temp_body}));
    EXPECT_EQ(englishKeysWith("{threshold}"),
              (std::vector{Key::alert_cpu_body, Key::alert_gpu_body, Key::alert_temp_body}));
    EXPECT_EQ(englishKeysWith("{"), englishKeysWith("{value}"));
}

struct Wording {
    Key key;
    std::string_view text;
};

TEST(Catalogue, english_texts_keep_their_typographic_characters) {
    constexpr Wording wordings[] = {
        {Key::memory_collecting, "Collecting…"},
        {Key::fanControl_verifying, "Testing …"},
        {Key::settings_menuBarTiles, "Menu bar — visible tiles"},
        {Key::firstRun_changeHint, "You can change the language any time in Settings → Language."},
        {Key::settings_exportCSVFooter,
         "Saves the current session’s history (up to 1 hour) — CPU, GPU, memory, disk, power and "
         "Neural Engine — as a CSV file."},
        {Key::settings_autoReliefBody,
         "Under memory pressure ≠ Normal, Vantrix asks libmalloc to release unused pages in "
         "**its own** process. Other processes are never touched."},
        {Key::settings_alertsDenied,
         "⚠️ macOS denied notifications for Vantrix — enable them in System Settings → "
         "Notifications."},
        {Key::alert_temp_body, "Hottest sensor at {value} °C (threshold: {threshold} °C)"},
    };
    for (const auto& [key, text] : wordings) EXPECT_EQ(english(key), text);
}

TEST(Catalogue, english_has_the_same_word_differ_by_place_where_it_is_meant_to) {
    EXPECT_EQ(english(Key::section_memory), "RAM");
    EXPECT_EQ(english(Key::settings_memory), "Memory");
}

}  // namespace
}  // namespace vtx
