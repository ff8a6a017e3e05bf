// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "language/Catalogue.h"
#include "language/tables/Tables.h"

namespace vtx {
namespace {

using L10n::Key;
using enum L10n::Key;
using Keys = std::set<Key>;

// The texts of fan control and of the alerts' notifications, and what came with them, exist in
// English and German only.
const Keys& keysOfTwoLanguages() {
    static const Keys keys{section_energy,
                           power_total,
                           power_chip,
                           fanControl_title,
                           fanControl_warning,
                           fanControl_failsafeNote,
                           fanControl_consentTitle,
                           fanControl_consentBody,
                           fanControl_consentToggle,
                           fanControl_verifyTitle,
                           fanControl_verifyBody,
                           fanControl_verifyButton,
                           fanControl_verifying,
                           fanControl_verifiedBadge,
                           fanControl_noResponse,
                           fanControl_enableToggle,
                           fanControl_manualLabel,
                           fanControl_autoButton,
                           fanControl_targetLabel,
                           fanControl_blocked,
                           fanControl_helperTitle,
                           fanControl_helperBody,
                           fanControl_helperInstall,
                           fanControl_helperApprove,
                           fanControl_helperApprovalNeeded,
                           fanControl_helperInstalled,
                           settings_data,
                           settings_exportCSV,
                           settings_exportCSVFooter,
                           settings_checkUpdates,
                           settings_autoUpdate,
                           alert_cpu_title,
                           alert_cpu_body,
                           alert_gpu_title,
                           alert_gpu_body,
                           alert_memory_title,
                           alert_memory_body,
                           alert_pressure_title,
                           alert_pressure_body,
                           alert_temp_title,
                           alert_temp_body};
    return keys;
}

// What four languages lack besides.
const Keys& keysOfNineLanguages() {
    static const Keys keys{
        settings_menuBarLive,   settings_menuBarLiveFooter,  settings_cpuLive,
        settings_gpuLive,       settings_memoryLive,         settings_cpuTempLive,
        settings_colors,        settings_colorsFooter,       settings_alertsDenied,
        settings_memorySection, settings_autoRelief,         settings_autoReliefBody,
        settings_widgetBody,    settings_launchAtLoginError, settings_aboutFooter};
    return keys;
}

/// How a language is written down: what it lacks, and in how many lists.
struct Extent {
    Language language;
    std::size_t texts;
    bool hasAdditions;
    bool rewordsTheAlertsFooter;
};

constexpr Extent extents[] = {
    {Language::en, 252, true, true},   {Language::de, 252, true, true},
    {Language::fr, 211, true, true},   {Language::es, 211, true, true},
    {Language::it, 211, true, true},   {Language::pt, 211, true, true},
    {Language::nl, 196, true, false},  {Language::pl, 196, true, false},
    {Language::ja, 196, true, false},  {Language::zh, 196, true, false},
    {Language::tr, 211, false, false}, {Language::ru, 211, false, false},
    {Language::ko, 211, false, false},
};

TextLists listsOf(Language language) {
    static const std::map<Language, TextLists> all{
        {Language::de, tables::de()}, {Language::en, tables::en()}, {Language::fr, tables::fr()},
        {Language::es, tables::es()}, {Language::it, tables::it()}, {Language::pt, tables::pt()},
        {Language::nl, tables::nl()}, {Language::pl, tables::pl()}, {Language::ja, tables::ja()},
        {Language::zh, tables::zh()}, {Language::tr, tables::tr()}, {Language::ru, tables::ru()},
        {Language::ko, tables::ko()}};
    return all.at(language);
}

Keys keysOf(std::span<const TextEntry> list) {
    Keys keys;
    for (const auto& [key, text] : list) keys.insert(key);
    return keys;
}

Keys gapsOf(Language language) {
    Keys gaps;
    for (const Key key : L10n::allKeys)
        if (!catalogue::table(language)->text(key)) gaps.insert(key);
    return gaps;
}

class Translation : public ::testing::TestWithParam<Extent> {
protected:
    static Language language() { return GetParam().language; }
    static std::string_view text(Key key) {
        return catalogue::table(language())->text(key).value_or("");
    }
    static std::string_view english(Key key) { return *catalogue::english().text(key); }

    /// Every text of the language, those of both lists, beside its key.
    static std::vector<std::pair<Key, std::string>> all() {
        std::vector<std::pair<Key, std::string>> texts;
        for (const auto& list : {listsOf(language()).base, listsOf(language()).additions})
            for (const auto& [key, words] : list) texts.emplace_back(key, words);
        return texts;
    }
    static std::string where(Key key) {
        return std::string(rawValue(language())) + " " + std::string(L10n::rawValue(key));
    }
};

std::string codeOf(const ::testing::TestParamInfo<Extent>& info) {
    return std::string(rawValue(info.param.language));
}

INSTANTIATE_TEST_SUITE_P(Each, Translation, ::testing::ValuesIn(extents), codeOf);

TEST_P(Translation, lacks_exactly_the_keys_of_its_group) {
    Keys expected;
    if (GetParam().texts < 252) expected = keysOfTwoLanguages();
    if (GetParam().texts < 211)
        expected.insert(keysOfNineLanguages().begin(), keysOfNineLanguages().end());

    const Keys gaps = gapsOf(language());

    EXPECT_EQ(L10n::keyCount - gaps.size(), GetParam().texts);
    for (const Key key : L10n::allKeys)
        EXPECT_EQ(gaps.contains(key), expected.contains(key)) << where(key);
}

TEST_P(Translation, its_additions_reword_the_alerts_footer_or_nothing) {
    const TextLists lists = listsOf(language());
    const Keys base = keysOf(lists.base);
    Keys both;
    for (const Key key : keysOf(lists.additions))
        if (base.contains(key)) both.insert(key);

    EXPECT_EQ(!lists.additions.empty(), GetParam().hasAdditions);
    EXPECT_EQ(both, GetParam().rewordsTheAlertsFooter ? Keys{settings_alertsFooter} : Keys{});
}

TEST_P(Translation, the_newer_wording_of_the_alerts_footer_is_in_force) {
    if (!GetParam().rewordsTheAlertsFooter) return;
    const TextLists lists = listsOf(language());

    EXPECT_EQ(text(settings_alertsFooter),
              TextTable({lists.additions, {}}).text(settings_alertsFooter));
    EXPECT_NE(text(settings_alertsFooter), TextTable({lists.base, {}}).text(settings_alertsFooter));
}

TEST_P(Translation, the_alerts_footer_in_force_names_both_spans) {
    EXPECT_NE(text(settings_alertsFooter).find("10"), std::string_view::npos);
    EXPECT_NE(text(settings_alertsFooter).find("30"), std::string_view::npos);
}

std::size_t countOf(std::string_view part, std::string_view whole) {
    std::size_t count = 0;
    for (auto at = whole.find(part); at != std::string_view::npos; at = whole.find(part, at + 1))
        ++count;
    return count;
}

TEST_P(Translation, holds_the_placeholders_and_marks_of_the_english_text) {
    for (const auto& [key, words] : all()) {
        for (const auto* mark : {"%@", "{value}", "{threshold}", "{", "}", "**", "⚠️", "≠"})
            EXPECT_EQ(countOf(mark, words), countOf(mark, english(key)))
                << where(key) << " " << mark;
    }
}

TEST_P(Translation, has_no_empty_text_and_no_stray_space) {
    for (const auto& [key, words] : all()) {
        EXPECT_FALSE(words.empty()) << where(key);
        EXPECT_FALSE(words.starts_with(' ') || words.ends_with(' ')) << where(key);
        for (const auto* stray : {"  ", "\t", "\n", "\r", " .", " ,", "\u200b", "\ufeff", "\ufffd"})
            EXPECT_EQ(countOf(stray, words), 0U) << where(key);
    }
}

TEST_P(Translation, uses_the_typographic_ellipsis_and_arrow) {
    for (const auto& [key, words] : all()) {
        for (const auto* typed : {"...", "->", " - ", "--", "''", "!="})
            EXPECT_EQ(countOf(typed, words), 0U) << where(key);
        EXPECT_EQ(countOf("…", words), countOf("…", english(key))) << where(key);
        EXPECT_EQ(countOf("→", words), countOf("→", english(key))) << where(key);
    }
}

TEST_P(Translation, ends_a_sentence_where_the_english_text_does) {
    for (const auto& [key, words] : all()) {
        if (!english(key).ends_with('.')) continue;
        EXPECT_TRUE(words.ends_with('.') || words.ends_with("。")) << where(key);
    }
}

// Words of English that are no words of the other twelve languages.
TEST_P(Translation, no_sentence_was_left_in_english) {
    if (language() == Language::en) return;
    for (const auto& [key, words] : all()) {
        EXPECT_TRUE(english(key).size() <= 24 || words != english(key)) << where(key);
        for (const auto* left : {" the ", "The ", " this ", "This ", " your ", " and ", " with ",
                                 " when ", " while ", " from ", " are "})
            EXPECT_EQ(countOf(left, words), 0U) << where(key) << left;
    }
}

TEST_P(Translation, sentences_are_written_in_the_script_of_the_language) {
    // What the bytes of its letters begin with.
    static const std::map<Language, std::string_view> letters{
        {Language::ru, "\xD0\xD1"},
        {Language::ja, "\xE3"},
        {Language::zh, "\xE4\xE5\xE6\xE7\xE8\xE9"},
        {Language::ko, "\xEA\xEB\xEC\xED"}};
    const auto script = letters.find(language());
    if (script == letters.end()) return;
    for (const auto& [key, words] : all()) {
        if (!english(key).ends_with('.')) continue;
        EXPECT_GT(
            std::ranges::count_if(
                words, [&](char c) { return script->second.find(c) != std::string_view::npos; }),
            4)
            << where(key);
    }
}

TEST_P(Translation, names_the_place_of_the_language_setting_as_it_is_labelled) {
    const std::string_view hint = text(firstRun_changeHint);
    EXPECT_NE(hint.find(text(section_settings)), std::string_view::npos);
    EXPECT_NE(hint.find(text(settings_language)), std::string_view::npos);
}

TEST_P(Translation, quotes_the_automatic_setting_as_it_is_labelled) {
    if (language() == Language::ru) return;  // the footer shortens it there
    EXPECT_NE(text(settings_languageFooter).find(displayLabel(Language::automatic, language())),
              std::string_view::npos);
}

TEST_P(Translation, names_the_normal_pressure_as_it_is_labelled) {
    if (text(settings_autoReliefBody).empty()) return;
    EXPECT_NE(text(settings_autoReliefBody).find(text(memory_statusNormal)),
              std::string_view::npos);
}

struct Row {
    Language language;
    std::string_view overview, cpu, memory, used, hogs, next;
};

class TellingRow : public ::testing::TestWithParam<Row> {};

TEST_P(TellingRow, is_worded_so) {
    const TextTable& table = *catalogue::table(GetParam().language);
    EXPECT_EQ(table.text(section_overview), GetParam().overview);
    EXPECT_EQ(table.text(section_cpu), GetParam().cpu);
    EXPECT_EQ(table.text(section_memory), GetParam().memory);
    EXPECT_EQ(table.text(memory_used), GetParam().used);
    EXPECT_EQ(table.text(hog_title), GetParam().hogs);
    EXPECT_EQ(table.text(firstRun_continue), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(
    Each, TellingRow,
    ::testing::Values(
        Row{Language::de, "Übersicht", "CPU", "RAM", "belegt", "Hintergrund-Hogs", "Weiter"},
        Row{Language::en, "Overview", "CPU", "RAM", "used", "Background hogs", "Continue"},
        Row{Language::fr, "Vue d'ensemble", "CPU", "RAM", "utilisé",
            "Gros consommateurs en arrière-plan", "Continuer"},
        Row{Language::es, "Resumen", "CPU", "RAM", "usado", "Procesos en segundo plano",
            "Continuar"},
        Row{Language::it, "Panoramica", "CPU", "RAM", "usato", "Processi in background",
            "Continua"},
        Row{Language::pt, "Visão geral", "CPU", "RAM", "usado", "Processos em segundo plano",
            "Continuar"},
        Row{Language::nl, "Overzicht", "CPU", "RAM", "gebruikt", "Achtergrond-veelvraten",
            "Doorgaan"},
        Row{Language::pl, "Przegląd", "CPU", "RAM", "użyte", "Procesy w tle", "Kontynuuj"},
        Row{Language::ja, "概要", "CPU", "RAM", "使用中", "バックグラウンドの大食漢", "続ける"},
        Row{Language::zh, "概览", "CPU", "内存", "已用", "后台耗电进程", "继续"},
        Row{Language::tr, "Genel Bakış", "CPU", "RAM", "kullanımda", "Arka plan obur işlemler",
            "Devam et"},
        Row{Language::ru, "Обзор", "ЦП", "ОЗУ", "используется", "Фоновые потребители",
            "Продолжить"},
        Row{Language::ko, "개요", "CPU", "메모리", "사용 중", "백그라운드 과부하 프로세스",
            "계속"}));

struct Wording {
    Language language;
    Key key;
    std::string_view text;
};

class GivenWording : public ::testing::TestWithParam<Wording> {};

TEST_P(GivenWording, stands_in_the_catalogue) {
    const auto& [language, key, text] = GetParam();
    EXPECT_EQ(catalogue::table(language)->text(key), text);
}

INSTANTIATE_TEST_SUITE_P(
    German, GivenWording,
    ::testing::Values(
        Wording{Language::de, alert_cpu_title, "CPU-Auslastung hoch"},
        Wording{Language::de, alert_cpu_body, "CPU bei {value}% (Schwelle: {threshold}%)"},
        Wording{Language::de, alert_gpu_title, "GPU-Auslastung hoch"},
        Wording{Language::de, alert_gpu_body, "GPU bei {value}% (Schwelle: {threshold}%)"},
        Wording{Language::de, alert_memory_title, "Arbeitsspeicher fast voll"},
        Wording{Language::de, alert_memory_body, "RAM bei {value}% belegt"},
        Wording{Language::de, alert_pressure_title, "Speicherdruck kritisch"},
        Wording{Language::de, alert_pressure_body,
                "macOS meldet seit einer Weile kritischen Speicherdruck. Schließe große Apps oder "
                "gib Speicher frei."},
        Wording{Language::de, alert_temp_title, "Temperatur hoch"},
        Wording{Language::de, alert_temp_body,
                "Höchster Sensor bei {value} °C (Schwelle: {threshold} °C)"},
        Wording{Language::de, fanControl_failsafeNote,
                "Fail-Safe: Beim Beenden, im Ruhezustand und nach 30 Minuten kehren die Lüfter "
                "automatisch in den Firmware-Modus zurück."},
        Wording{Language::de, hog_disabledHint,
                "Aktiviere die Erkennung in den Einstellungen, um Hintergrund-Hogs zu sehen."},
        Wording{Language::de, settings_alertsDenied,
                "⚠️ macOS hat Benachrichtigungen für Vantrix abgelehnt — aktiviere sie in den "
                "Systemeinstellungen → Mitteilungen."}));

INSTANTIATE_TEST_SUITE_P(
    LanguageFooter, GivenWording,
    ::testing::Values(
        Wording{Language::de, settings_languageFooter,
                "'Automatisch' folgt der Region in den macOS-Systemeinstellungen."},
        Wording{Language::en, settings_languageFooter,
                "'Automatic' follows the region set in macOS System Settings."},
        Wording{Language::fr, settings_languageFooter,
                "'Automatique' suit la région définie dans les Réglages Système macOS."},
        Wording{Language::es, settings_languageFooter,
                "'Automático' sigue la región configurada en los Ajustes del Sistema de macOS."},
        Wording{Language::it, settings_languageFooter,
                "'Automatico' segue la regione impostata nelle Impostazioni di Sistema macOS."},
        Wording{Language::pt, settings_languageFooter,
                "'Automático' segue a região definida nas Definições do Sistema macOS."},
        Wording{Language::nl, settings_languageFooter,
                "'Automatisch' volgt de regio in de macOS-systeeminstellingen."},
        Wording{Language::pl, settings_languageFooter,
                "'Automatycznie' podąża za regionem ustawionym w Ustawieniach systemowych macOS."},
        Wording{Language::ja, settings_languageFooter,
                "「自動」はmacOSシステム設定の地域に従います。"},
        Wording{Language::zh, settings_languageFooter, "「自动」会跟随macOS系统设置中的地区。"},
        Wording{Language::tr, settings_languageFooter,
                "Tercihiniz hemen geçerli olur. 'Otomatik' macOS bölge ayarınızı takip eder."},
        Wording{Language::ru, settings_languageFooter,
                "Изменения вступают в силу немедленно. 'Авто' следует региональным настройкам "
                "macOS."},
        Wording{Language::ko, settings_languageFooter,
                "변경 사항이 즉시 적용됩니다. '자동'은 macOS 지역 설정을 따릅니다."}));

}  // namespace
}  // namespace vtx
