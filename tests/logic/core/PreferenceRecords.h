// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/Data.h"
#include "core/PreferencesCodec.h"
#include "core/PreferencesFields.h"

namespace vtx::records {

using Json = nlohmann::json;

/// A value other than the given one that its field can hold and keep.
template <class T>
T otherThan(const T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        return !value;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return value + "-\u00e4\"\\";
    } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
        return {value.rbegin(), value.rend()};
    } else if constexpr (std::is_same_v<T, DisplayPreferences::ChartStyle>) {
        return DisplayPreferences::ChartStyle::bar;
    } else if constexpr (std::is_same_v<T, DisplayPreferences::HistoryRange>) {
        return DisplayPreferences::HistoryRange::oneHour;
    } else {
        return value + static_cast<T>(0.7) + 1;
    }
}

/// Preferences of which no field has its default.
inline DisplayPreferences allDifferent() {
    DisplayPreferences result;
    forEachPreferenceField(
        [&](const auto& field) { result.*field.member = otherThan(result.*field.member); });
    return result;
}

/// JSON values that are of the wrong type for a field of type T.
template <class T>
std::vector<Json> wrongValues() {
    std::vector<Json> wrong{Json::object(), Json::object({{"value", true}})};
    wrong.push_back(Json::array({Json::array()}));
    constexpr bool isNumber = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;
    constexpr bool isList = std::is_same_v<T, std::vector<std::string>>;
    if constexpr (!isNumber) wrong.insert(wrong.end(), {0, 1, 1.5});
    if constexpr (!std::is_same_v<T, bool>) wrong.insert(wrong.end(), {true, false});
    if constexpr (!std::is_same_v<T, std::string>) wrong.insert(wrong.end(), {"", "1", "true"});
    if constexpr (isList) {
        wrong.insert(wrong.end(), {Json::array({"cpu", 1}), Json::array({nullptr}),
                                   Json::array({"cpu", Json::array({"gpu"})})});
    } else {
        wrong.insert(wrong.end(), {Json::array(), Json::array({"cpu"})});
    }
    return wrong;
}

inline Data bytes(const Json& json) { return toData(json.dump()); }

inline std::optional<DisplayPreferences> decode(std::string_view text) {
    return decodePreferences(toData(text));
}

/// What a record without any member means.
inline DisplayPreferences emptyRecord() {
    DisplayPreferences result;
    result.hasCompletedFirstRunLanguage = true;
    return result;
}

}  // namespace vtx::records
