// SPDX-License-Identifier: MIT
#include "core/DisplayPreferences.h"

#include <gtest/gtest.h>

#include <cmath>

#include "PreferenceRecords.h"
#include "core/PreferencesCodec.h"
#include "platform/simulated/SimulatedUserDefaults.h"

namespace vtx {
namespace {

using records::allDifferent;
using records::bytes;
using records::Json;
using ChartStyle = DisplayPreferences::ChartStyle;
using HistoryRange = DisplayPreferences::HistoryRange;
using Preset = DisplayPreferences::Preset;
using Tiles = std::vector<std::string>;

constexpr auto v1 = "displayPreferences.v1";
constexpr auto v2 = "displayPreferences.v2";
constexpr auto v3 = "displayPreferences.v3";

DisplayPreferences loaded(SimulatedUserDefaults::Values stored) {
    return DisplayPreferences::load(SimulatedUserDefaults(std::move(stored)));
}

Data withLanguage(const char* code) { return bytes({{"languageCode", code}}); }

/// Every field, in words, as the presets are checked against tables that name them all.
Json asJson(const DisplayPreferences& preferences) {
    return Json::parse(asText(encodePreferences(preferences).value()));
}

/// `base` with the members of `changes` laid over it.
Json overlaid(Json base, const Json& changes) {
    for (const auto& [name, value] : changes.items()) {
        EXPECT_TRUE(base.contains(name)) << name;
        base[name] = value;
    }
    return base;
}

const Json laidDownDefaults{
    {"showCPU", true},
    {"showGPU", false},
    {"showThermal", true},
    {"showMemory", true},
    {"showDiskIO", false},
    {"showPower", false},
    {"showFan", false},
    {"showANE", true},
    {"menuBarLiveCPU", true},
    {"menuBarLiveGPU", true},
    {"menuBarLiveMemory", true},
    {"menuBarLiveTemp", true},
    {"menuBarLiveDisk", true},
    {"menuBarLivePower", true},
    {"menuBarLiveFan", true},
    {"menuBarLiveANE", true},
    {"iconCPU", "cpu"},
    {"iconGPU", "cpu.fill"},
    {"iconThermal", "thermometer.medium"},
    {"iconMemory", "memorychip.fill"},
    {"iconDisk", "internaldrive"},
    {"iconPower", "bolt.fill"},
    {"iconFan", "fan"},
    {"iconANE", "brain"},
    {"menuBarOrder", Tiles{"cpu", "gpu", "thermal", "memory", "disk", "fan", "ane"}},
    {"menuBarCompact", false},
    {"compactPriority", Tiles{"thermal", "memory", "cpu", "fan", "gpu", "disk"}},
    {"refreshIntervalSeconds", 1.0},
    {"autoRelieveOnPressure", false},
    {"launchAtLogin", false},
    {"graphsCPU", true},
    {"graphsPCore", true},
    {"graphsECore", true},
    {"graphsGPU", true},
    {"graphsMemory", true},
    {"graphsDisk", false},
    {"graphsPower", false},
    {"graphsANE", true},
    {"chartStyle", "area"},
    {"historyRange", "oneMinute"},
    {"colorCPU", ""},
    {"colorPCore", ""},
    {"colorECore", ""},
    {"colorGPU", ""},
    {"colorMemory", ""},
    {"colorDisk", ""},
    {"colorPower", ""},
    {"colorANE", ""},
    {"alertCPUEnabled", false},
    {"alertCPUThreshold", 0.9},
    {"alertGPUEnabled", false},
    {"alertGPUThreshold", 0.9},
    {"alertMemoryEnabled", false},
    {"alertMemoryThreshold", 0.9},
    {"alertPressureEnabled", false},
    {"alertTempEnabled", false},
    {"alertTempCelsius", 90.0},
    {"alertDiskEnabled", false},
    {"alertDiskThreshold", 0.85},
    {"alertPowerEnabled", false},
    {"alertPowerWatts", 35.0},
    {"alertFanEnabled", false},
    {"alertFanRPM", 4500},
    {"alertANEEnabled", false},
    {"alertANEThreshold", 0.85},
    {"miniWidgetEnabled", false},
    {"miniWidgetX", -1.0},
    {"miniWidgetY", -1.0},
    {"languageCode", "en"},
    {"hasCompletedFirstRunLanguage", false},
    {"hogDetectorEnabled", false},
    {"hogCPUThreshold", 0.15},
    {"hogMinDurationSeconds", 300.0}};

const Json minimalChanges{{"showCPU", true},
                          {"showThermal", true},
                          {"showGPU", false},
                          {"showMemory", false},
                          {"showDiskIO", false},
                          {"showPower", false},
                          {"showFan", false},
                          {"showANE", false},
                          {"menuBarLiveCPU", false},
                          {"menuBarLiveGPU", false},
                          {"menuBarLiveMemory", false},
                          {"menuBarLiveTemp", false},
                          {"menuBarCompact", true},
                          {"graphsCPU", true},
                          {"graphsPCore", false},
                          {"graphsECore", false},
                          {"graphsGPU", false},
                          {"graphsMemory", false},
                          {"graphsDisk", false},
                          {"graphsPower", false},
                          {"graphsANE", false},
                          {"chartStyle", "line"},
                          {"historyRange", "oneMinute"},
                          {"hogDetectorEnabled", false}};

const Json powerUserChanges{
    {"showCPU", true},           {"showThermal", true},       {"showGPU", true},
    {"showMemory", true},        {"showDiskIO", true},        {"showPower", true},
    {"showFan", true},           {"showANE", true},           {"menuBarLiveCPU", true},
    {"menuBarLiveGPU", true},    {"menuBarLiveMemory", true}, {"menuBarLiveTemp", true},
    {"menuBarLiveDisk", true},   {"menuBarLivePower", true},  {"menuBarLiveFan", true},
    {"menuBarLiveANE", true},    {"menuBarCompact", false},   {"graphsCPU", true},
    {"graphsPCore", true},       {"graphsECore", true},       {"graphsGPU", true},
    {"graphsMemory", true},      {"graphsDisk", true},        {"graphsPower", true},
    {"graphsANE", true},         {"chartStyle", "area"},      {"historyRange", "fifteenMinutes"},
    {"hogDetectorEnabled", true}};

}  // namespace

TEST(DisplayPreferences, the_defaults_are_the_ones_laid_down) {
    EXPECT_EQ(laidDownDefaults.size(), 73u);
    EXPECT_EQ(asJson(DisplayPreferences::defaults()), laidDownDefaults);
}

TEST(DisplayPreferences, raw_values_are_the_names_of_the_cases_in_their_order) {
    Tiles ranges, styles, presets;
    for (const auto range : DisplayPreferences::allHistoryRanges) {
        ranges.emplace_back(rawValue(range));
        EXPECT_EQ(historyRangeFromRawValue(rawValue(range)), range);
    }
    for (const auto style : DisplayPreferences::allChartStyles) {
        styles.emplace_back(rawValue(style));
        EXPECT_EQ(chartStyleFromRawValue(rawValue(style)), style);
    }
    for (const auto preset : DisplayPreferences::allPresets) {
        presets.emplace_back(rawValue(preset));
        EXPECT_EQ(presetFromRawValue(rawValue(preset)), preset);
    }
    EXPECT_EQ(ranges, (Tiles{"oneMinute", "fiveMinutes", "fifteenMinutes", "oneHour"}));
    EXPECT_EQ(styles, (Tiles{"line", "area", "bar"}));
    EXPECT_EQ(presets, (Tiles{"minimal", "balanced", "powerUser"}));
}

TEST(DisplayPreferences, a_text_that_names_no_case_gives_none) {
    EXPECT_EQ(historyRangeFromRawValue(""), std::nullopt);
    EXPECT_EQ(chartStyleFromRawValue("Line"), std::nullopt);
    EXPECT_EQ(presetFromRawValue("power user"), std::nullopt);
}

TEST(DisplayPreferences, a_history_range_knows_its_seconds) {
    EXPECT_EQ(seconds(HistoryRange::oneMinute), 60.0);
    EXPECT_EQ(seconds(HistoryRange::fiveMinutes), 300.0);
    EXPECT_EQ(seconds(HistoryRange::fifteenMinutes), 900.0);
    EXPECT_EQ(seconds(HistoryRange::oneHour), 3600.0);
}

TEST(DisplayPreferences, power_is_no_tile) {
    EXPECT_EQ(
        Tiles(DisplayPreferences::knownTileIDs.begin(), DisplayPreferences::knownTileIDs.end()),
        (Tiles{"cpu", "gpu", "thermal", "memory", "disk", "fan", "ane"}));
}

TEST(DisplayPreferences, equality_looks_at_every_field) {
    forEachPreferenceField([](const auto& field) {
        DisplayPreferences changed;
        changed.*field.member = records::otherThan(changed.*field.member);
        EXPECT_NE(changed, DisplayPreferences::defaults()) << field.name;
    });
    EXPECT_EQ(DisplayPreferences(), DisplayPreferences::defaults());
}

TEST(DisplayPreferences, without_a_stored_record_the_defaults_load_and_no_language_is_chosen) {
    EXPECT_EQ(loaded({}), DisplayPreferences::defaults());
    EXPECT_FALSE(loaded({}).hasCompletedFirstRunLanguage);
}

TEST(DisplayPreferences, a_record_without_the_language_choice_counts_as_chosen) {
    EXPECT_TRUE(loaded({{v3, toData("{}")}}).hasCompletedFirstRunLanguage);
    EXPECT_TRUE(loaded({{v1, toData("{}")}}).hasCompletedFirstRunLanguage);
}

TEST(DisplayPreferences, the_newest_record_wins) {
    const Data first = withLanguage("de"), second = withLanguage("fr"), third = withLanguage("ja");
    EXPECT_EQ(loaded({{v1, first}, {v2, second}, {v3, third}}).languageCode, "ja");
    EXPECT_EQ(loaded({{v1, first}, {v2, second}}).languageCode, "fr");
    EXPECT_EQ(loaded({{v1, first}}).languageCode, "de");
    EXPECT_EQ(loaded({{"displayPreferences", first}}).languageCode, "en");
}

TEST(DisplayPreferences, a_damaged_record_is_passed_over_for_the_next_older_one) {
    const Data older = withLanguage("de");
    for (const char* damaged : {"", "{", "[]", "null", R"({"languageCode":"fr")",
                                R"({"languageCode":"fr","menuBarLiveCPU":"true"})"}) {
        EXPECT_EQ(loaded({{v3, toData(damaged)}, {v1, older}}).languageCode, "de") << damaged;
        EXPECT_EQ(loaded({{v3, older}, {v2, toData(damaged)}}).languageCode, "de") << damaged;
        EXPECT_EQ(loaded({{v3, toData(damaged)}, {v2, older}, {v1, toData(damaged)}}).languageCode,
                  "de")
            << damaged;
    }
}

TEST(DisplayPreferences, a_wrong_type_that_no_default_may_replace_leads_to_the_next_older_record) {
    forEachPreferenceField([]<class T>(const PreferenceField<T>& field) {
        const bool strict = field.fieldClass == FieldClass::presenceOnly;
        for (const Json& wrong : records::wrongValues<T>()) {
            Json newest{{"colorCPU", "newest"}};
            newest[std::string(field.name)] = wrong;
            const auto result = loaded({{v3, bytes(newest)}, {v2, bytes({{"colorGPU", "older"}})}});
            EXPECT_EQ(result.colorGPU, strict ? "older" : "") << field.name << " " << wrong;
        }
    });
}

TEST(DisplayPreferences, records_damaged_under_every_key_give_the_defaults) {
    EXPECT_EQ(loaded({{v1, toData("x")}, {v2, Data(1, std::byte{0xff})}, {v3, {}}}),
              DisplayPreferences::defaults());
}

TEST(DisplayPreferences, a_loaded_interval_lies_within_its_bounds) {
    const auto interval = [](const char* stored) {
        const std::string text = std::string(R"({"refreshIntervalSeconds":)") + stored + "}";
        return loaded({{v3, toData(text)}}).refreshIntervalSeconds;
    };
    EXPECT_EQ(interval("5"), 2.0);
    EXPECT_EQ(interval("0.1"), 0.5);
    EXPECT_EQ(interval("-1e300"), 0.5);
    EXPECT_EQ(interval("0.5"), 0.5);
    EXPECT_EQ(interval("1.25"), 1.25);
    EXPECT_EQ(interval("2.0"), 2.0);
    EXPECT_EQ(interval("\"0.5\""), 1.0);
}

TEST(DisplayPreferences, saving_stores_the_interval_as_it_is) {
    SimulatedUserDefaults store;
    DisplayPreferences preferences;
    preferences.refreshIntervalSeconds = 9;
    preferences.save(store);
    EXPECT_EQ(Json::parse(asText(store.stored.at(v3)))["refreshIntervalSeconds"], 9.0);
    EXPECT_EQ(DisplayPreferences::load(store).refreshIntervalSeconds, 2.0);
}

TEST(DisplayPreferences, loading_writes_nothing_and_removes_nothing) {
    const SimulatedUserDefaults::Values before{{v1, withLanguage("de")}, {v3, toData("damaged")}};
    const SimulatedUserDefaults store(before);
    EXPECT_EQ(DisplayPreferences::load(store).languageCode, "de");
    EXPECT_EQ(store.stored, before);
    EXPECT_EQ(store.writes + store.removals, 0);
}

TEST(DisplayPreferences, saving_writes_the_newest_key_once_and_leaves_the_older_ones) {
    SimulatedUserDefaults store({{v1, withLanguage("de")}, {v2, toData("damaged")}});
    DisplayPreferences preferences = DisplayPreferences::load(store);
    preferences.showGPU = true;
    preferences.save(store);
    EXPECT_EQ(store.writes, 1);
    EXPECT_EQ(store.stored.size(), 3u);
    EXPECT_EQ(store.stored.at(v1), withLanguage("de"));
    EXPECT_EQ(store.stored.at(v2), toData("damaged"));
    EXPECT_EQ(DisplayPreferences::load(store), preferences);
}

TEST(DisplayPreferences, saving_what_json_cannot_hold_leaves_the_stored_record) {
    SimulatedUserDefaults store;
    DisplayPreferences::defaults().save(store);
    const auto before = store.stored;
    DisplayPreferences notFinite, notText;
    notFinite.hogCPUThreshold = NAN;
    notText.iconCPU = "\xff";
    notFinite.save(store);
    notText.save(store);
    EXPECT_EQ(store.stored, before);
    EXPECT_EQ(store.writes, 1);
}

TEST(DisplayPreferences, every_field_survives_saving_and_loading) {
    SimulatedUserDefaults store;
    DisplayPreferences preferences = allDifferent();
    preferences.refreshIntervalSeconds = 0.75;
    preferences.save(store);
    EXPECT_EQ(loaded(store.stored), preferences);
}

TEST(DisplayPreferences, minimal_sets_its_fields_and_keeps_all_others) {
    for (const auto& before : {DisplayPreferences::defaults(), allDifferent()}) {
        EXPECT_EQ(asJson(before.applyingPreset(Preset::minimal)),
                  overlaid(asJson(before), minimalChanges));
    }
}

TEST(DisplayPreferences, minimal_clears_four_live_flags_and_leaves_the_other_four) {
    const auto result = DisplayPreferences::defaults().applyingPreset(Preset::minimal);
    EXPECT_FALSE(result.menuBarLiveTemp);
    EXPECT_TRUE(result.menuBarLiveDisk);
    EXPECT_TRUE(result.menuBarCompact);
}

TEST(DisplayPreferences, power_user_sets_its_fields_and_keeps_all_others) {
    for (const auto& before : {DisplayPreferences::defaults(), allDifferent()}) {
        EXPECT_EQ(asJson(before.applyingPreset(Preset::powerUser)),
                  overlaid(asJson(before), powerUserChanges));
    }
}

TEST(DisplayPreferences, balanced_resets_all_but_what_is_personal) {
    const Json before = asJson(allDifferent());
    Json kept;
    for (const char* name : {"launchAtLogin", "miniWidgetEnabled", "miniWidgetX", "miniWidgetY",
                             "languageCode", "hasCompletedFirstRunLanguage"}) {
        kept[name] = before[name];
    }
    EXPECT_EQ(asJson(allDifferent().applyingPreset(Preset::balanced)),
              overlaid(asJson(DisplayPreferences::defaults()), kept));
}

TEST(DisplayPreferences, balanced_drops_custom_colours_and_keeps_language_and_widget_place) {
    DisplayPreferences before;
    before.colorCPU = "#ff0000";
    before.languageCode = "de";
    before.miniWidgetX = 12;
    const auto result = before.applyingPreset(Preset::balanced);
    EXPECT_EQ(result.colorCPU, "");
    EXPECT_EQ(result.languageCode, "de");
    EXPECT_EQ(result.miniWidgetX, 12.0);
}

TEST(DisplayPreferences, a_preset_is_applied_to_a_copy_and_twice_changes_nothing_more) {
    for (const auto preset : DisplayPreferences::allPresets) {
        const DisplayPreferences before = allDifferent();
        const auto once = before.applyingPreset(preset);
        EXPECT_EQ(before, allDifferent());
        EXPECT_EQ(once.applyingPreset(preset), once);
    }
}

}  // namespace vtx
