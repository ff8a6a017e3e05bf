// SPDX-License-Identifier: MIT
#include "language/L10n.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

namespace vtx {
namespace {

using L10n::Key;

bool isAlphanumeric(std::string_view text) {
    return !text.empty() &&
           std::ranges::all_of(text, [](unsigned char c) { return std::isalnum(c) != 0; });
}

TEST(L10n, has_252_keys) {
    EXPECT_EQ(L10n::keyCount, 252U);
    EXPECT_EQ(L10n::allKeys.size(), 252U);
}

TEST(L10n, lists_the_keys_from_the_first_to_the_last_declared) {
    EXPECT_EQ(L10n::allKeys.front(), Key::section_overview);
    EXPECT_EQ(L10n::allKeys.back(), Key::last60s);
    EXPECT_TRUE(std::ranges::is_sorted(L10n::allKeys));
}

TEST(L10n, the_raw_text_of_a_key_is_its_name) {
    EXPECT_EQ(L10n::rawValue(Key::section_overview), "section_overview");
    EXPECT_EQ(L10n::rawValue(Key::memory_purgeTitle), "memory_purgeTitle");
    EXPECT_EQ(L10n::rawValue(Key::fanControl_helperInstalled), "fanControl_helperInstalled");
    EXPECT_EQ(L10n::rawValue(Key::settings_hogCPUThreshold), "settings_hogCPUThreshold");
    EXPECT_EQ(L10n::rawValue(Key::network_ipv6), "network_ipv6");
    EXPECT_EQ(L10n::rawValue(Key::alert_temp_body), "alert_temp_body");
    EXPECT_EQ(L10n::rawValue(Key::last60s), "last60s");
}

TEST(L10n, every_raw_text_leads_back_to_its_key) {
    for (const Key key : L10n::allKeys) {
        EXPECT_EQ(L10n::keyFromRawValue(L10n::rawValue(key)), key) << L10n::rawValue(key);
    }
}

TEST(L10n, no_two_keys_share_a_raw_text) {
    std::set<std::string_view> names;
    for (const Key key : L10n::allKeys) names.insert(L10n::rawValue(key));
    EXPECT_EQ(names.size(), L10n::keyCount);
}

TEST(L10n, unknown_text_is_no_key) {
    for (const auto* text : {"", "section", "section_", "Section_Overview", "section_overview ",
                             "Key::section_overview"}) {
        EXPECT_EQ(L10n::keyFromRawValue(text), std::nullopt) << text;
    }
}

TEST(L10n, every_name_but_one_is_an_area_an_underscore_and_an_item) {
    for (const Key key : L10n::allKeys) {
        if (key == Key::last60s) continue;
        const std::string_view name = L10n::rawValue(key);
        const std::size_t cut = name.find('_');
        ASSERT_NE(cut, std::string_view::npos) << name;
        EXPECT_TRUE(isAlphanumeric(name.substr(0, cut))) << name;
        // Alerts have a title and a body each: a second underscore.
        const std::size_t item = name.starts_with("alert_") ? name.rfind('_') : cut;
        EXPECT_TRUE(isAlphanumeric(name.substr(item + 1))) << name;
    }
}

}  // namespace
}  // namespace vtx
