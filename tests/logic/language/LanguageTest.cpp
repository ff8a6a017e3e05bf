// SPDX-License-Identifier: MIT
#include "language/Language.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace vtx {
namespace {

std::vector<std::string_view> ofAll(std::string_view (*name)(Language)) {
    std::vector<std::string_view> names;
    for (const Language language : allLanguages) names.push_back(name(language));
    return names;
}

TEST(Language, has_fourteen_settings_stored_by_their_codes) {
    EXPECT_EQ(ofAll(rawValue),
              (std::vector<std::string_view>{"auto", "de", "en", "fr", "es", "it", "pt", "nl", "pl",
                                             "ja", "zh", "tr", "ru", "ko"}));
}

TEST(Language, each_is_listed_at_its_own_place) {
    for (std::size_t i = 0; i < allLanguages.size(); ++i) EXPECT_EQ(indexOf(allLanguages[i]), i);
}

TEST(Language, each_calls_itself_in_its_own_script) {
    EXPECT_EQ(ofAll(nativeName),
              (std::vector<std::string_view>{"Auto", "Deutsch", "English", "Français", "Español",
                                             "Italiano", "Português", "Nederlands", "Polski",
                                             "日本語", "中文", "Türkçe", "Русский", "한국어"}));
}

TEST(Language, every_raw_text_leads_back_to_its_language) {
    for (const Language language : allLanguages) {
        EXPECT_EQ(languageFromRawValue(rawValue(language)), language);
    }
}

TEST(Language, unknown_text_is_no_language) {
    for (const auto* text : {"", "xx", "DE", "de-AT", "automatic", "Deutsch", " de"}) {
        EXPECT_EQ(languageFromRawValue(text), std::nullopt) << text;
    }
}

TEST(Language, an_unknown_stored_code_is_english_and_not_automatic) {
    EXPECT_EQ(languageFromStoredCode("xx"), Language::en);
    EXPECT_EQ(languageFromStoredCode(""), Language::en);
    EXPECT_EQ(languageFromStoredCode("auto"), Language::automatic);
    EXPECT_EQ(languageFromStoredCode("ko"), Language::ko);
}

TEST(Language, in_its_own_language_each_is_called_what_it_calls_itself) {
    for (const Language language : allLanguages) {
        if (language == Language::automatic) continue;
        EXPECT_EQ(displayLabel(language, language), nativeName(language));
    }
}

TEST(Language, each_has_a_label_in_every_language) {
    for (const Language language : allLanguages) {
        for (const Language display : allLanguages) {
            EXPECT_FALSE(displayLabel(language, display).empty())
                << rawValue(language) << " in " << rawValue(display);
        }
    }
}

TEST(Language, no_two_have_the_same_label_in_any_language) {
    for (const Language display : allLanguages) {
        std::set<std::string_view> labels;
        for (const Language language : allLanguages) labels.insert(displayLabel(language, display));
        EXPECT_EQ(labels.size(), allLanguages.size()) << rawValue(display);
    }
}

TEST(Language, labels_shown_in_the_automatic_setting_are_the_english_ones) {
    for (const Language language : allLanguages) {
        EXPECT_EQ(displayLabel(language, Language::automatic),
                  displayLabel(language, Language::en));
    }
}

struct Label {
    Language language;
    Language display;
    std::string_view text;
};

class LanguageLabel : public ::testing::TestWithParam<Label> {};

TEST_P(LanguageLabel, is_the_word_of_the_display_language) {
    const auto& [language, display, text] = GetParam();
    EXPECT_EQ(displayLabel(language, display), text);
}

using enum Language;

INSTANTIATE_TEST_SUITE_P(
    Automatic, LanguageLabel,
    ::testing::Values(Label{automatic, automatic, "Automatic"}, Label{automatic, de, "Automatisch"},
                      Label{automatic, en, "Automatic"}, Label{automatic, fr, "Automatique"},
                      Label{automatic, es, "Automático"}, Label{automatic, it, "Automatico"},
                      Label{automatic, pt, "Automático"}, Label{automatic, nl, "Automatisch"},
                      Label{automatic, pl, "Automatycznie"}, Label{automatic, ja, "自動"},
                      Label{automatic, zh, "自动"}, Label{automatic, tr, "Otomatik"},
                      Label{automatic, ru, "Автоматически"}, Label{automatic, ko, "자동"}));

INSTANTIATE_TEST_SUITE_P(
    OneAfterAnother, LanguageLabel,
    ::testing::Values(Label{de, automatic, "German"}, Label{de, pl, "Niemiecki"},
                      Label{en, de, "Englisch"}, Label{en, tr, "İngilizce"},
                      Label{fr, en, "French"}, Label{fr, nl, "Frans"}, Label{es, fr, "Espagnol"},
                      Label{es, pl, "Hiszpański"}, Label{it, es, "Italiano"},
                      Label{it, ja, "イタリア語"}, Label{pt, it, "Portoghese"},
                      Label{pt, fr, "Portugais"}, Label{nl, pt, "Holandês"},
                      Label{nl, it, "Olandese"}, Label{pl, nl, "Pools"}, Label{pl, tr, "Lehçe"},
                      Label{ja, pl, "Japoński"}, Label{ja, zh, "日语"}, Label{zh, ja, "中国語"},
                      Label{zh, ko, "중국어"}, Label{tr, zh, "土耳其语"}, Label{tr, en, "Turkish"},
                      Label{ru, tr, "Rusça"}, Label{ru, ko, "러시아어"}, Label{ko, ru, "Корейский"},
                      Label{ko, ja, "韓国語"}));

struct Tag {
    std::string_view tag;
    Language language;
};

class LanguageOfTag : public ::testing::TestWithParam<Tag> {};

TEST_P(LanguageOfTag, is_its_first_part_where_that_is_supported_and_english_otherwise) {
    EXPECT_EQ(languageOfTag(GetParam().tag), GetParam().language) << GetParam().tag;
}

INSTANTIATE_TEST_SUITE_P(Supported, LanguageOfTag,
                         ::testing::Values(Tag{"de", de}, Tag{"de-AT", de}, Tag{"en-GB", en},
                                           Tag{"fr-CA", fr}, Tag{"es-419", es}, Tag{"it", it},
                                           Tag{"pt-BR", pt}, Tag{"pt-PT", pt}, Tag{"nl-BE", nl},
                                           Tag{"pl-PL", pl}, Tag{"ja-JP", ja},
                                           Tag{"zh-Hant-TW", zh}, Tag{"zh-Hans", zh}, Tag{"tr", tr},
                                           Tag{"ru-RU", ru}, Tag{"ko-KR", ko}));

INSTANTIATE_TEST_SUITE_P(EmptyPartsLeftOut, LanguageOfTag,
                         ::testing::Values(Tag{"--de", de}, Tag{"-ja-JP", ja}, Tag{"de-", de},
                                           Tag{"ru--RU", ru}));

// Compared exactly: no other case, no other separator, no longer code. And the raw text of the
// automatic setting is no language.
INSTANTIATE_TEST_SUITE_P(Unsupported, LanguageOfTag,
                         ::testing::Values(Tag{"", en}, Tag{"-", en}, Tag{"---", en},
                                           Tag{"sv-SE", en}, Tag{"DE", en}, Tag{"pt_BR", en},
                                           Tag{"deu", en}, Tag{"d-e", en}, Tag{" de", en},
                                           Tag{"auto", en}, Tag{"x-de", en}));

}  // namespace
}  // namespace vtx
