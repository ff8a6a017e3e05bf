// SPDX-License-Identifier: MIT
#include "language/linux/LinuxWording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "language/Catalogue.h"
#include "language/Localization.h"
#include "platform/Locale.h"

namespace vtx {
namespace {

using L10n::Key;
using enum L10n::Key;

/// The words by which a text speaks of the Mac, of its system, its libraries or its programs.
/// "MAC", an address, is none of them.
constexpr std::string_view wordsOfTheMac[] = {
    "Mac",
    "macOS",
    "Apple",
    "Mach",
    "IOKit",
    "IOAccelerator",
    "libmalloc",
    "Finder",
    "System Settings",
    "Systemeinstellungen",
    "Réglages Système",
    "Ajustes del Sistema",
    "Impostazioni di Sistema",
    "Definições do Sistema",
    "systeeminstellingen",
    "Ustawieniach systemowych",
    "システム設定",
    "系统设置",
    "Sistem Ayarları",
    "Системные настройки",
    "시스템 설정",
    "Activity Monitor",
};

bool speaksOfTheMac(std::string_view text) {
    return std::ranges::any_of(wordsOfTheMac, [&](std::string_view word) {
        return text.find(word) != std::string_view::npos;
    });
}

std::set<Key> keysThatSpeakOfTheMac() {
    std::set<Key> keys;
    for (const Language language : allLanguages) {
        if (language == Language::automatic) continue;
        for (const Key key : L10n::allKeys)
            if (speaksOfTheMac(catalogue::table(language)->text(key).value_or("")))
                keys.insert(key);
    }
    return keys;
}

std::set<Key> keysWordedIn(Language language) {
    std::set<Key> keys;
    for (const auto& [key, text] : linuxWording(language)) keys.insert(key);
    return keys;
}

class LinuxWording : public ::testing::TestWithParam<Language> {};

INSTANTIATE_TEST_SUITE_P(Each, LinuxWording,
                         ::testing::ValuesIn(allLanguages.begin() + 1, allLanguages.end()),
                         [](const auto& each) { return std::string(rawValue(each.param)); });

TEST(LinuxWordingKeys, every_key_that_speaks_of_the_mac_is_worded_but_the_name_of_the_chips) {
    auto keys = keysThatSpeakOfTheMac();
    EXPECT_EQ(keys.erase(system_archAppleSilicon), 1U);
    EXPECT_TRUE(keys.contains(settings_languageFooter));

    for (const Key key : keys)
        EXPECT_TRUE(keysWordedIn(Language::en).contains(key)) << L10n::rawValue(key);
}

TEST_P(LinuxWording, words_the_keys_that_the_language_has_a_text_for_and_no_others) {
    const auto words = keysWordedIn(GetParam());
    for (const Key key : keysWordedIn(Language::en))
        EXPECT_EQ(words.contains(key), catalogue::table(GetParam())->text(key).has_value())
            << L10n::rawValue(key);
    for (const Key key : words)
        EXPECT_TRUE(keysWordedIn(Language::en).contains(key)) << L10n::rawValue(key);
}

TEST_P(LinuxWording, words_no_key_twice) {
    EXPECT_EQ(keysWordedIn(GetParam()).size(), linuxWording(GetParam()).size());
}

TEST_P(LinuxWording, does_not_speak_of_the_mac_and_differs_from_the_catalogue) {
    for (const auto& [key, text] : linuxWording(GetParam())) {
        EXPECT_FALSE(speaksOfTheMac(text)) << text;
        EXPECT_NE(catalogue::table(GetParam())->text(key), text);
    }
}

std::size_t countOf(std::string_view part, std::string_view whole) {
    std::size_t count = 0;
    for (auto at = whole.find(part); at != std::string_view::npos; at = whole.find(part, at + 1))
        ++count;
    return count;
}

TEST_P(LinuxWording, keeps_placeholders_marks_and_the_end_of_a_sentence) {
    for (const auto& [key, text] : linuxWording(GetParam())) {
        const std::string_view replaced = *catalogue::table(GetParam())->text(key);
        for (const auto* mark : {"%", "{", "}", "**", "⚠️", "≠", "→", "—", "…"})
            EXPECT_EQ(countOf(mark, text), countOf(mark, replaced)) << text << " " << mark;
        EXPECT_EQ(std::string_view(text).ends_with('.'), replaced.ends_with('.')) << text;
        EXPECT_EQ(std::string_view(text).ends_with("。"), replaced.ends_with("。")) << text;
    }
}

TEST(LinuxWordingKeys, the_automatic_setting_has_no_words_of_its_own) {
    EXPECT_TRUE(linuxWording(Language::automatic).empty());
}

class EnglishLocale : public Locale {
public:
    std::vector<std::string> preferredLanguages() const override { return {"en-GB"}; }
    std::string collationKey(std::string_view text) const override { return std::string(text); }
    std::string lowercased(std::string_view text) const override { return std::string(text); }
    std::string timeOfDay(Date) const override { return {}; }
};

std::string_view saidIn(Language language, Key key, PlatformWording wording) {
    const EnglishLocale locale;
    Localization localization(locale, wording);
    localization.setPreference(language);
    return localization.string(key);
}

TEST(LinuxWordingInForce, is_said_in_the_language_in_force) {
    EXPECT_EQ(saidIn(Language::en, battery_unavailable, linuxWording),
              "This computer has no battery.");
    EXPECT_EQ(saidIn(Language::de, battery_unavailable, linuxWording),
              "Dieser Computer hat keine Batterie.");
    EXPECT_EQ(saidIn(Language::ko, battery_unavailable, linuxWording),
              "이 컴퓨터에는 배터리가 없습니다.");
}

TEST(LinuxWordingInForce, a_key_that_the_language_lacks_reads_in_the_english_of_linux) {
    EXPECT_EQ(saidIn(Language::fr, fanControl_verifyTitle, linuxWording),
              "Verify on this computer");
    EXPECT_EQ(saidIn(Language::ja, fanControl_verifyTitle, linuxWording),
              "Verify on this computer");
}

TEST(LinuxWordingInForce, leaves_all_other_texts_to_the_catalogue) {
    for (const Language language : allLanguages) {
        for (const Key key : L10n::allKeys) {
            if (keysWordedIn(Language::en).contains(key)) continue;
            EXPECT_EQ(saidIn(language, key, linuxWording), saidIn(language, key, nullptr));
        }
    }
}

TEST(LinuxWordingInForce, without_a_wording_the_catalogue_speaks_as_it_stands) {
    EXPECT_EQ(saidIn(Language::en, battery_unavailable, nullptr), "This Mac has no battery.");
    EXPECT_EQ(saidIn(Language::pl, fanControl_verifyTitle, nullptr), "Verify on this Mac");
}

}  // namespace
}  // namespace vtx
