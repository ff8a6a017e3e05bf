// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxLocale.h"

#include <gtest/gtest.h>

#include <map>

namespace vtx::test {
namespace {

using Variables = std::map<std::string, std::string, std::less<>>;
using Tags = std::vector<std::string>;

Tags languagesOf(Variables variables) {
    const LinuxLocale locale(
        [variables = std::move(variables)](std::string_view name) -> std::optional<std::string> {
            const auto variable = variables.find(name);
            if (variable == variables.end()) return std::nullopt;
            return variable->second;
        });
    return locale.preferredLanguages();
}

struct Case {
    const char* locale;
    std::optional<std::string> tag;
};

TEST(LinuxLocale, a_locale_becomes_a_language_tag) {
    const std::vector<Case> cases{{"de_AT.UTF-8@euro", "de-AT"},
                                  {"en_US.UTF-8", "en-US"},
                                  {"fr", "fr"},
                                  {"zh_TW", "zh-TW"},
                                  {"DE_at", "de-AT"},
                                  {"es_419", "es-419"},
                                  {"ast_ES", "ast-ES"},
                                  {"sr_RS@latin", "sr-Latn-RS"},
                                  {"sr_RS.UTF-8@latin", "sr-Latn-RS"},
                                  {"ca_ES@valencia", "ca-ES-valencia"},
                                  {"de_longregion", "de"},
                                  {"de_1x", "de"},
                                  {"de_{}", "de"},
                                  {"es_41x", "es"},
                                  {"es_4/9", "es"},
                                  {"es_4:9", "es"}};
    for (const auto& [locale, tag] : cases) EXPECT_EQ(LinuxLocale::languageTag(locale), tag);
}

TEST(LinuxLocale, what_names_no_language_gives_no_tag) {
    for (const auto* locale : {"", "C", "POSIX", "C.UTF-8", "_US", ".UTF-8", "@euro", "e", "d3_AT",
                               "../../etc", "english", "\xc3\xa4\xc3\xb6", "d{", "D[", "d`"}) {
        EXPECT_EQ(LinuxLocale::languageTag(locale), std::nullopt) << locale;
    }
}

TEST(LinuxLocale, the_first_variable_that_is_not_empty_says_the_locale) {
    EXPECT_EQ(languagesOf({{"LANG", "de_DE.UTF-8"}}), Tags{"de-DE"});
    EXPECT_EQ(languagesOf({{"LC_MESSAGES", "fr_FR"}, {"LANG", "de_DE"}}), Tags{"fr-FR"});
    EXPECT_EQ(languagesOf({{"LC_ALL", "it_IT"}, {"LC_MESSAGES", "fr_FR"}}), Tags{"it-IT"});
    EXPECT_EQ(languagesOf({{"LC_ALL", ""}, {"LANG", "de_DE"}}), Tags{"de-DE"});
}

TEST(LinuxLocale, the_language_list_comes_before_the_locale_and_each_tag_once) {
    EXPECT_EQ(languagesOf({{"LANGUAGE", "de_AT:de::xx1:en"}, {"LANG", "de_AT.UTF-8"}}),
              (Tags{"de-AT", "de", "en"}));
    EXPECT_EQ(languagesOf({{"LANGUAGE", "ja"}, {"LANG", "en_GB.UTF-8"}}), (Tags{"ja", "en-GB"}));
}

TEST(LinuxLocale, the_plain_locale_is_english_whatever_the_language_list_says) {
    for (const auto* plain : {"C", "POSIX", "C.UTF-8", "C.utf8@euro", "POSIX.UTF-8"}) {
        EXPECT_EQ(languagesOf({{"LANGUAGE", "de"}, {"LANG", plain}}), Tags{"en"}) << plain;
    }
}

TEST(LinuxLocale, without_any_variable_the_locale_is_the_plain_one) {
    EXPECT_EQ(languagesOf({}), Tags{"en"});
    EXPECT_EQ(languagesOf({{"LANGUAGE", "de"}}), Tags{"en"});
    EXPECT_EQ(languagesOf({{"LANGUAGE", "de"}, {"LC_ALL", ""}, {"LANG", ""}}), Tags{"en"});
}

TEST(LinuxLocale, a_plain_locale_that_another_variable_overrules_does_not_count) {
    EXPECT_EQ(languagesOf({{"LC_ALL", "de_DE"}, {"LANG", "C"}}), Tags{"de-DE"});
    EXPECT_EQ(languagesOf({{"LC_ALL", "C"}, {"LANG", "de_DE"}}), Tags{"en"});
}

TEST(LinuxLocale, a_script_is_taken_from_the_modifier_without_a_region_too) {
    EXPECT_EQ(languagesOf({{"LANG", "sr@latin"}}), Tags{"sr-Latn"});
    EXPECT_EQ(languagesOf({{"LANG", "uz_UZ.UTF-8@cyrillic"}}), Tags{"uz-Cyrl-UZ"});
}

TEST(LinuxLocale, entries_that_name_no_language_are_passed_over) {
    EXPECT_EQ(languagesOf({{"LANGUAGE", ":::C:POSIX:%s:..:\xff\xfe:it\n:ko_KR:"}, {"LANG", "??"}}),
              Tags{"ko-KR"});
    EXPECT_EQ(languagesOf({{"LANG", std::string("de\0x", 4)}}), Tags{});
    EXPECT_EQ(languagesOf({{"LANG", std::string(1'000'000, 'd')}}), Tags{});
}

TEST(LinuxLocale, a_list_of_thousands_is_cut_and_the_locale_still_stands_last) {
    std::string list;
    for (char a = 'a'; a <= 'z'; ++a)
        for (char b = 'a'; b <= 'z'; ++b)
            for (char c = 'a'; c <= 'z'; ++c) list += {a, b, c, ':'};

    const Tags tags = languagesOf({{"LANGUAGE", list}, {"LANG", "nl_BE"}});

    EXPECT_EQ(tags.size(), 65U);
    EXPECT_EQ(tags.front(), "aaa");
    EXPECT_EQ(tags.back(), "nl-BE");
}

TEST(LinuxLocale, orders_texts_and_writes_times_as_the_user_does) {
    const LinuxLocale locale([](std::string_view) { return std::nullopt; });
    EXPECT_LT(locale.collationKey("a"), locale.collationKey("b"));
    EXPECT_EQ(locale.timeOfDay(Date{}).size(), std::string_view("00:00:00").size());
}

}  // namespace
}  // namespace vtx::test
