// SPDX-License-Identifier: MIT
#include "language/Language.h"

#include <algorithm>

namespace vtx {
namespace {

struct Naming {
    std::string_view rawValue;
    std::string_view nativeName;
};

// In the order of the enumeration, as is all that follows.
constexpr std::array<Naming, allLanguages.size()> namings{{
    {"auto", "Auto"},
    {"de", "Deutsch"},
    {"en", "English"},
    {"fr", "Français"},
    {"es", "Español"},
    {"it", "Italiano"},
    {"pt", "Português"},
    {"nl", "Nederlands"},
    {"pl", "Polski"},
    {"ja", "日本語"},
    {"zh", "中文"},
    {"tr", "Türkçe"},
    {"ru", "Русский"},
    {"ko", "한국어"},
}};

// The name of one language in each display language; `automatic` is none of these.
using Labels = std::array<std::string_view, allLanguages.size() - 1>;

constexpr std::array<Labels, allLanguages.size()> displayLabels{{
    // auto
    {"Automatisch", "Automatic", "Automatique", "Automático", "Automatico", "Automático",
     "Automatisch", "Automatycznie", "自動", "自动", "Otomatik", "Автоматически", "자동"},
    // de
    {"Deutsch", "German", "Allemand", "Alemán", "Tedesco", "Alemão", "Duits", "Niemiecki",
     "ドイツ語", "德语", "Almanca", "Немецкий", "독일어"},
    // en
    {"Englisch", "English", "Anglais", "Inglés", "Inglese", "Inglês", "Engels", "Angielski", "英語",
     "英语", "İngilizce", "Английский", "영어"},
    // fr
    {"Französisch", "French", "Français", "Francés", "Francese", "Francês", "Frans", "Francuski",
     "フランス語", "法语", "Fransızca", "Французский", "프랑스어"},
    // es
    {"Spanisch", "Spanish", "Espagnol", "Español", "Spagnolo", "Espanhol", "Spaans", "Hiszpański",
     "スペイン語", "西班牙语", "İspanyolca", "Испанский", "스페인어"},
    // it
    {"Italienisch", "Italian", "Italien", "Italiano", "Italiano", "Italiano", "Italiaans", "Włoski",
     "イタリア語", "意大利语", "İtalyanca", "Итальянский", "이탈리아어"},
    // pt
    {"Portugiesisch", "Portuguese", "Portugais", "Portugués", "Portoghese", "Português",
     "Portugees", "Portugalski", "ポルトガル語", "葡萄牙语", "Portekizce", "Португальский",
     "포르투갈어"},
    // nl
    {"Niederländisch", "Dutch", "Néerlandais", "Neerlandés", "Olandese", "Holandês", "Nederlands",
     "Niderlandzki", "オランダ語", "荷兰语", "Felemenkçe", "Нидерландский", "네덜란드어"},
    // pl
    {"Polnisch", "Polish", "Polonais", "Polaco", "Polacco", "Polaco", "Pools", "Polski",
     "ポーランド語", "波兰语", "Lehçe", "Польский", "폴란드어"},
    // ja
    {"Japanisch", "Japanese", "Japonais", "Japonés", "Giapponese", "Japonês", "Japans", "Japoński",
     "日本語", "日语", "Japonca", "Японский", "일본어"},
    // zh
    {"Chinesisch", "Chinese", "Chinois", "Chino", "Cinese", "Chinês", "Chinees", "Chiński",
     "中国語", "中文", "Çince", "Китайский", "중국어"},
    // tr
    {"Türkisch", "Turkish", "Turc", "Turco", "Turco", "Turco", "Turks", "Turecki", "トルコ語",
     "土耳其语", "Türkçe", "Турецкий", "터키어"},
    // ru
    {"Russisch", "Russian", "Russe", "Ruso", "Russo", "Russo", "Russisch", "Rosyjski", "ロシア語",
     "俄语", "Rusça", "Русский", "러시아어"},
    // ko
    {"Koreanisch", "Korean", "Coréen", "Coreano", "Coreano", "Coreano", "Koreaans", "Koreański",
     "韓国語", "韩语", "Korece", "Корейский", "한국어"},
}};

}  // namespace

std::string_view rawValue(Language language) { return namings[indexOf(language)].rawValue; }

std::optional<Language> languageFromRawValue(std::string_view rawValue) {
    const auto found = std::ranges::find(namings, rawValue, &Naming::rawValue);
    if (found == namings.end()) return std::nullopt;
    return allLanguages[static_cast<std::size_t>(found - namings.begin())];
}

Language languageFromStoredCode(std::string_view code) {
    return languageFromRawValue(code).value_or(Language::en);
}

Language languageOfTag(std::string_view tag) {
    tag.remove_prefix(std::min(tag.find_first_not_of('-'), tag.size()));
    const Language language = languageFromStoredCode(tag.substr(0, tag.find('-')));
    return language == Language::automatic ? Language::en : language;
}

std::string_view nativeName(Language language) { return namings[indexOf(language)].nativeName; }

std::string_view displayLabel(Language language, Language display) {
    const Language column = display == Language::automatic ? Language::en : display;
    return displayLabels[indexOf(language)][indexOf(column) - indexOf(Language::de)];
}

}  // namespace vtx
