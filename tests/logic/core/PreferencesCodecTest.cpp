// SPDX-License-Identifier: MIT
#include "core/PreferencesCodec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <string>

#include "PreferenceRecords.h"
#include "core/PreferencesFields.h"

namespace vtx {
namespace {

using records::allDifferent;
using records::bytes;
using records::decode;
using records::emptyRecord;
using records::Json;
using Tiles = std::vector<std::string>;

constexpr std::array<std::string_view, 73> memberNames{"showCPU",
                                                       "showGPU",
                                                       "showThermal",
                                                       "showMemory",
                                                       "showDiskIO",
                                                       "showPower",
                                                       "showFan",
                                                       "showANE",
                                                       "menuBarLiveCPU",
                                                       "menuBarLiveGPU",
                                                       "menuBarLiveMemory",
                                                       "menuBarLiveTemp",
                                                       "menuBarLiveDisk",
                                                       "menuBarLivePower",
                                                       "menuBarLiveFan",
                                                       "menuBarLiveANE",
                                                       "iconCPU",
                                                       "iconGPU",
                                                       "iconThermal",
                                                       "iconMemory",
                                                       "iconDisk",
                                                       "iconPower",
                                                       "iconFan",
                                                       "iconANE",
                                                       "menuBarOrder",
                                                       "menuBarCompact",
                                                       "compactPriority",
                                                       "refreshIntervalSeconds",
                                                       "autoRelieveOnPressure",
                                                       "launchAtLogin",
                                                       "graphsCPU",
                                                       "graphsPCore",
                                                       "graphsECore",
                                                       "graphsGPU",
                                                       "graphsMemory",
                                                       "graphsDisk",
                                                       "graphsPower",
                                                       "graphsANE",
                                                       "chartStyle",
                                                       "historyRange",
                                                       "colorCPU",
                                                       "colorPCore",
                                                       "colorECore",
                                                       "colorGPU",
                                                       "colorMemory",
                                                       "colorDisk",
                                                       "colorPower",
                                                       "colorANE",
                                                       "alertCPUEnabled",
                                                       "alertCPUThreshold",
                                                       "alertGPUEnabled",
                                                       "alertGPUThreshold",
                                                       "alertMemoryEnabled",
                                                       "alertMemoryThreshold",
                                                       "alertPressureEnabled",
                                                       "alertTempEnabled",
                                                       "alertTempCelsius",
                                                       "alertDiskEnabled",
                                                       "alertDiskThreshold",
                                                       "alertPowerEnabled",
                                                       "alertPowerWatts",
                                                       "alertFanEnabled",
                                                       "alertFanRPM",
                                                       "alertANEEnabled",
                                                       "alertANEThreshold",
                                                       "miniWidgetEnabled",
                                                       "miniWidgetX",
                                                       "miniWidgetY",
                                                       "languageCode",
                                                       "hasCompletedFirstRunLanguage",
                                                       "hogDetectorEnabled",
                                                       "hogCPUThreshold",
                                                       "hogMinDurationSeconds"};

constexpr std::size_t fieldCount = [] {
    std::size_t count = 0;
    forEachPreferenceField([&](const auto&) { ++count; });
    return count;
}();

/// Converts to anything, so that an aggregate's members can be counted by initialising it.
struct Anything {
    template <class T>
    operator T() const;
};

template <std::size_t... I>
consteval bool takes(std::index_sequence<I...>) {
    return requires { DisplayPreferences{((void)I, Anything{})...}; };
}

static_assert(takes(std::make_index_sequence<fieldCount>()), "A listed field is no longer there.");
static_assert(!takes(std::make_index_sequence<fieldCount + 1>()),
              "A field of the preferences is missing from forEachPreferenceField.");

Json encoded(const DisplayPreferences& preferences) {
    const auto data = encodePreferences(preferences);
    return data ? Json::parse(asText(*data)) : Json();
}

}  // namespace

TEST(PreferencesCodec, the_field_list_names_every_member_once_in_order_of_declaration) {
    std::vector<std::string_view> names;
    std::vector<const void*> places;
    const DisplayPreferences preferences;
    forEachPreferenceField([&](const auto& field) {
        names.push_back(field.name);
        places.push_back(&(preferences.*field.member));
    });
    EXPECT_EQ(names, std::vector<std::string_view>(memberNames.begin(), memberNames.end()));
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end(), std::less<const void*>()));
    EXPECT_EQ(std::set(places.begin(), places.end()).size(), memberNames.size());
}

TEST(PreferencesCodec, an_encoded_record_is_an_object_of_73_members_named_as_the_fields) {
    const Json record = encoded({});
    ASSERT_TRUE(record.is_object());
    EXPECT_EQ(record.size(), 73u);
    for (const auto name : memberNames) EXPECT_TRUE(record.contains(name)) << name;
}

TEST(PreferencesCodec, members_have_the_json_type_of_their_field) {
    const Json record = encoded({});
    EXPECT_EQ(record["showCPU"], true);
    EXPECT_EQ(record["iconThermal"], "thermometer.medium");
    EXPECT_EQ(record["compactPriority"], Json({"thermal", "memory", "cpu", "fan", "gpu", "disk"}));
    EXPECT_EQ(record["refreshIntervalSeconds"], 1.0);
    EXPECT_TRUE(record["alertFanRPM"].is_number_integer());
    EXPECT_EQ(record["chartStyle"], "area");
    EXPECT_EQ(record["historyRange"], "oneMinute");
}

TEST(PreferencesCodec, a_record_of_which_every_field_differs_from_its_default_comes_back_equal) {
    const DisplayPreferences written = allDifferent();
    const auto data = encodePreferences(written);
    ASSERT_TRUE(data);
    EXPECT_EQ(decodePreferences(*data), written);
    const DisplayPreferences defaults;
    forEachPreferenceField([&](const auto& field) {
        EXPECT_NE(written.*field.member, defaults.*field.member) << field.name;
    });
}

TEST(PreferencesCodec, floats_and_integers_at_their_limits_come_back_exactly) {
    for (const double value : {0.1, -0.0, 5e-324, 1.7976931348623157e308, 1.0 / 3.0}) {
        DisplayPreferences written = emptyRecord();
        written.miniWidgetX = value;
        written.alertFanRPM = std::numeric_limits<std::int64_t>::min();
        EXPECT_EQ(decodePreferences(encodePreferences(written).value()), written) << value;
    }
}

TEST(PreferencesCodec, an_empty_object_means_the_defaults_with_the_language_chosen) {
    EXPECT_EQ(decode("{}"), emptyRecord());
}

TEST(PreferencesCodec, each_absent_member_leaves_its_default_and_all_others_as_stored) {
    const Json whole = encoded(allDifferent());
    forEachPreferenceField([&](const auto& field) {
        DisplayPreferences expected = allDifferent();
        expected.*field.member = emptyRecord().*field.member;
        Json record = whole;
        record.erase(std::string(field.name));
        EXPECT_EQ(decodePreferences(bytes(record)), expected) << field.name;
        record[std::string(field.name)] = nullptr;
        EXPECT_EQ(decodePreferences(bytes(record)), expected) << field.name << " null";
    });
}

TEST(PreferencesCodec, a_member_of_the_wrong_type_costs_what_its_class_says) {
    const Json whole = encoded(allDifferent());
    forEachPreferenceField([&]<class T>(const PreferenceField<T>& field) {
        DisplayPreferences fallback = allDifferent();
        fallback.*field.member = emptyRecord().*field.member;
        for (const Json& wrong : records::wrongValues<T>()) {
            Json record = whole;
            record[std::string(field.name)] = wrong;
            const auto decoded = decodePreferences(bytes(record));
            if (field.fieldClass == FieldClass::presenceOnly) {
                EXPECT_EQ(decoded, std::nullopt) << field.name << " " << wrong;
            } else {
                EXPECT_EQ(decoded, fallback) << field.name << " " << wrong;
            }
        }
    });
}

TEST(PreferencesCodec, the_classes_of_the_fields_are_the_ones_laid_down) {
    forEachPreferenceField([](const auto& field) {
        const bool strict = field.name.starts_with("menuBar") || field.name.starts_with("icon") ||
                            field.name == "compactPriority";
        const auto expected = strict ? FieldClass::presenceOnly
                              : field.name == "hasCompletedFirstRunLanguage"
                                  ? FieldClass::trueWhenUnread
                                  : FieldClass::tolerant;
        EXPECT_EQ(field.fieldClass, expected) << field.name;
    });
}

TEST(PreferencesCodec,
     a_record_without_the_language_choice_or_with_a_damaged_one_counts_as_chosen) {
    EXPECT_TRUE(decode("{}")->hasCompletedFirstRunLanguage);
    EXPECT_TRUE(decode(R"({"hasCompletedFirstRunLanguage":"no"})")->hasCompletedFirstRunLanguage);
    EXPECT_TRUE(decode(R"({"hasCompletedFirstRunLanguage":0})")->hasCompletedFirstRunLanguage);
    EXPECT_FALSE(decode(R"({"hasCompletedFirstRunLanguage":false})")->hasCompletedFirstRunLanguage);
}

TEST(PreferencesCodec, a_live_flag_stored_as_a_string_makes_the_record_unusable) {
    EXPECT_EQ(decode(R"({"menuBarLiveCPU":"true"})"), std::nullopt);
}

TEST(PreferencesCodec, a_show_flag_stored_as_a_string_takes_its_default) {
    const auto decoded = decode(R"({"showCPU":"false","showGPU":"true","showFan":true})");
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(decoded->showCPU);
    EXPECT_FALSE(decoded->showGPU);
    EXPECT_TRUE(decoded->showFan);
}

TEST(PreferencesCodec, a_stored_tile_order_loses_unknown_tiles_and_gains_missing_ones_at_the_end) {
    EXPECT_EQ(decode(R"({"menuBarOrder":["fan","cpu","clock"]})")->menuBarOrder,
              (Tiles{"fan", "cpu", "gpu", "thermal", "memory", "disk", "ane"}));
}

TEST(PreferencesCodec, an_empty_tile_order_becomes_the_default_order) {
    EXPECT_EQ(decode(R"({"menuBarOrder":[]})")->menuBarOrder, DisplayPreferences().menuBarOrder);
}

TEST(PreferencesCodec, duplicates_in_the_tile_order_stay_and_power_has_no_tile) {
    EXPECT_EQ(decode(R"({"menuBarOrder":["ane","power","ane"]})")->menuBarOrder,
              (Tiles{"ane", "ane", "cpu", "gpu", "thermal", "memory", "disk", "fan"}));
}

TEST(PreferencesCodec, a_compact_priority_is_filtered_and_never_completed) {
    EXPECT_EQ(decode(R"({"compactPriority":["gpu","power","cpu","gpu"]})")->compactPriority,
              (Tiles{"gpu", "cpu", "gpu"}));
    EXPECT_EQ(decode(R"({"compactPriority":["power","clock"]})")->compactPriority, Tiles{});
    EXPECT_EQ(decode(R"({"compactPriority":[]})")->compactPriority, Tiles{});
}

TEST(PreferencesCodec, the_interval_is_decoded_as_stored) {
    EXPECT_EQ(decode(R"({"refreshIntervalSeconds":5})")->refreshIntervalSeconds, 5.0);
}

TEST(PreferencesCodec, an_unknown_raw_value_of_a_case_takes_the_default) {
    const auto decoded = decode(R"({"chartStyle":"pie","historyRange":"Area"})");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->chartStyle, DisplayPreferences::ChartStyle::area);
    EXPECT_EQ(decoded->historyRange, DisplayPreferences::HistoryRange::oneMinute);
}

TEST(PreferencesCodec, a_language_that_nobody_knows_is_kept) {
    EXPECT_EQ(decode(R"({"languageCode":"tlh"})")->languageCode, "tlh");
}

struct NumberCase {
    const char* text;
    std::int64_t rpm;
};

class FanRPM : public testing::TestWithParam<NumberCase> {};

TEST_P(FanRPM, is_a_whole_number_of_64_bits_or_the_default) {
    const auto decoded =
        decode(std::string(R"({"showFan":true,"alertFanRPM":)") + GetParam().text + "}");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->alertFanRPM, GetParam().rpm);
    EXPECT_TRUE(decoded->showFan);
}

INSTANTIATE_TEST_SUITE_P(
    PreferencesCodec, FanRPM,
    testing::Values(NumberCase{"3000", 3000}, NumberCase{"-1", -1}, NumberCase{"3000.0", 3000},
                    NumberCase{"3e3", 3000}, NumberCase{"3000.5", 4500},
                    NumberCase{"9223372036854775807", 9223372036854775807},
                    NumberCase{"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
                    NumberCase{"9223372036854775808", 4500},
                    NumberCase{"18446744073709551616", 4500}, NumberCase{"1e19", 4500},
                    NumberCase{"-1e19", 4500}, NumberCase{"1e999", 4500},
                    NumberCase{"\"3000\"", 4500}));

TEST(PreferencesCodec, a_whole_number_is_valid_for_a_float) {
    EXPECT_EQ(decode(R"({"alertTempCelsius":80})")->alertTempCelsius, 80.0);
    EXPECT_EQ(decode(R"({"alertTempCelsius":18446744073709551615})")->alertTempCelsius,
              18446744073709551615.0);
}

TEST(PreferencesCodec, a_number_beyond_every_float_costs_its_own_member_only) {
    const auto decoded = decode(R"({"alertTempCelsius":-1.5E+400,"alertPowerWatts":1e-400,)"
                                R"("colorCPU":"1e999\\","languageCode":"de"})");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->alertTempCelsius, 90.0);
    EXPECT_EQ(decoded->alertPowerWatts, 0.0);
    EXPECT_EQ(decoded->colorCPU, "1e999\\");
    EXPECT_EQ(decoded->languageCode, "de");
    EXPECT_EQ(decode(R"({"menuBarCompact":1e999})"), std::nullopt);
    EXPECT_EQ(decode("{\"alertTempCelsius\":" + std::string(400, '9') + "}"), emptyRecord());
}

TEST(PreferencesCodec, a_number_is_too_large_by_its_value_however_it_is_written) {
    const auto temperature = [](const std::string& number) {
        const auto decoded = decode(R"({"languageCode":"de","alertTempCelsius":)" + number + "}");
        EXPECT_TRUE(decoded && decoded->languageCode == "de") << number;
        return decoded ? decoded->alertTempCelsius : NAN;
    };
    const std::string manyDigits(400, '9');
    const std::string manyZeros(400, '0');
    EXPECT_EQ(temperature(manyDigits + ".5"), 90.0);
    EXPECT_EQ(temperature("-" + manyDigits + "e-5"), 90.0);
    EXPECT_EQ(temperature("1e99999999999999999999"), 90.0);
    EXPECT_EQ(temperature("1" + manyZeros + "e-400"), 1.0);
    EXPECT_EQ(temperature("0." + manyZeros + "1e+5"), 0.0);
    EXPECT_EQ(temperature("0." + manyZeros + "1"), 0.0);
    EXPECT_EQ(temperature("0e99999999999999999999"), 0.0);
}

TEST(PreferencesCodec, members_that_no_field_has_are_passed_over) {
    EXPECT_EQ(decode(R"({"showGPU":true,"ShowCPU":false,"future":{"a":[1,{"b":null}]}})"), [] {
        DisplayPreferences expected = emptyRecord();
        expected.showGPU = true;
        return std::optional(expected);
    }());
}

TEST(PreferencesCodec, a_float_that_is_not_finite_cannot_be_encoded) {
    forEachPreferenceField([]<class T>(const PreferenceField<T>& field) {
        if constexpr (std::is_same_v<T, double>) {
            for (const double value : {double{NAN}, HUGE_VAL, -HUGE_VAL}) {
                DisplayPreferences preferences;
                preferences.*field.member = value;
                EXPECT_EQ(encodePreferences(preferences), std::nullopt) << field.name;
            }
        }
    });
}

TEST(PreferencesCodec, a_text_that_is_not_utf8_cannot_be_encoded) {
    forEachPreferenceField([]<class T>(const PreferenceField<T>& field) {
        DisplayPreferences preferences;
        if constexpr (std::is_same_v<T, std::string>) preferences.*field.member = "a\xff";
        if constexpr (std::is_same_v<T, Tiles>) (preferences.*field.member).push_back("\xc3");
        const bool holdsText = std::is_same_v<T, std::string> || std::is_same_v<T, Tiles>;
        EXPECT_EQ(encodePreferences(preferences).has_value(), !holdsText) << field.name;
    });
}

}  // namespace vtx
