// SPDX-License-Identifier: MIT
#include "core/PreferencesCodec.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <utility>

#include "core/PreferencesFields.h"

namespace vtx {
namespace {

using Json = nlohmann::json;
using ChartStyle = DisplayPreferences::ChartStyle;
using HistoryRange = DisplayPreferences::HistoryRange;

constexpr int maxDepth = 512;
constexpr double twoToThe63rd = 9223372036854775808.0;

/// How many digits stand before the point from the first one on that is not zero, which is there: 3
/// of 100, 0 of 0.1, -1 of 0.01.
std::int64_t magnitudeOf(std::string_view number) {
    constexpr std::int64_t limit = std::int64_t{1} << 60;
    const auto mantissa = number.substr(0, number.find_first_of("eE"));
    const auto first = mantissa.find_first_of("123456789");
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) +
                       (first > point ? 1 : 0);
    if (mantissa.size() == number.size()) return place;
    auto digits = number.substr(mantissa.size() + 1);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    std::int64_t exponent = digits.starts_with('-') ? -limit : limit;  // stays where it is larger
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    return place + std::clamp(exponent, -limit, limit);
}

/// Whether no 64-bit float holds the number, because it is too large.
bool isOversized(std::string_view number) {
    constexpr std::size_t alwaysFits = 300;
    if (number.size() <= alwaysFits && number.find_first_of("eE") == std::string_view::npos) {
        return false;
    }
    double value = 0;
    const auto* end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, value);
    // Out of range is what is too small, too, and that reads as zero; zero itself never is.
    return result.ec == std::errc::result_out_of_range && result.ptr == end &&
           magnitudeOf(number) > 0;
}

/// JSON sets its numbers no bounds, the parser does, and would refuse the whole text. An oversized
/// number becomes an empty object, the wrong type for every field, and so costs its own only.
void replaceOversizedNumbers(std::string& text) {
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString) {
            if (c == '\\') ++i;
            inString = c != '"';
        } else if (c == '"') {
            inString = true;
        } else if (c == '-' || (c >= '0' && c <= '9')) {
            const auto end = std::min(text.find_first_not_of("+-.0123456789eE", i), text.size());
            if (isOversized(std::string_view(text).substr(i, end - i))) {
                std::fill(text.data() + i, text.data() + end, ' ');
                text[i] = '{';
                text[i + 1] = '}';
            }
            i = end - 1;
        }
    }
}

std::optional<Json> parseObject(std::span<const std::byte> stored) {
    std::string text(asText(stored));
    // The parser takes a zero byte for the end of its input.
    if (text.find('\0') != std::string::npos) return std::nullopt;
    replaceOversizedNumbers(text);
    bool tooDeep = false;
    const auto watchDepth = [&](int depth, Json::parse_event_t, Json&) {
        tooDeep = tooDeep || depth > maxDepth;
        return !tooDeep;
    };
    Json parsed = Json::parse(text, watchDepth, /*allow_exceptions=*/false);
    if (tooDeep || !parsed.is_object()) return std::nullopt;
    return parsed;
}

// read: the member's value into the field; false, and the field as it was, for the wrong type.

bool read(const Json& member, bool& field) {
    if (!member.is_boolean()) return false;
    field = member.get<bool>();
    return true;
}

bool read(const Json& member, double& field) {
    if (!member.is_number()) return false;
    field = member.get<double>();
    return true;
}

bool read(const Json& member, std::int64_t& field) {
    if (member.is_number_float()) {
        const auto value = member.get<double>();
        if (std::trunc(value) != value) return false;
        if (value < -twoToThe63rd || value >= twoToThe63rd) return false;
        field = static_cast<std::int64_t>(value);
        return true;
    }
    if (!member.is_number_integer()) return false;
    if (member.is_number_unsigned() && !std::in_range<std::int64_t>(member.get<std::uint64_t>())) {
        return false;
    }
    field = member.get<std::int64_t>();
    return true;
}

bool read(const Json& member, std::string& field) {
    if (!member.is_string()) return false;
    field = member.get_ref<const std::string&>();
    return true;
}

bool read(const Json& member, std::vector<std::string>& field) {
    if (!member.is_array()) return false;
    if (!std::ranges::all_of(member, [](const Json& item) { return item.is_string(); })) {
        return false;
    }
    field = member.get<std::vector<std::string>>();
    return true;
}

template <class Enum>
bool readRaw(const Json& member, Enum& field, std::optional<Enum> (*fromRaw)(std::string_view)) {
    if (!member.is_string()) return false;
    const auto value = fromRaw(member.get_ref<const std::string&>());
    if (value) field = *value;
    return value.has_value();
}

bool read(const Json& member, ChartStyle& field) {
    return readRaw(member, field, chartStyleFromRawValue);
}

bool read(const Json& member, HistoryRange& field) {
    return readRaw(member, field, historyRangeFromRawValue);
}

/// False where the whole record is unusable. The field holds its default before.
template <class T>
bool readField(const Json& record, const PreferenceField<T>& field, DisplayPreferences& result) {
    if constexpr (std::is_same_v<T, bool>) {
        if (field.fieldClass == FieldClass::trueWhenUnread) result.*field.member = true;
    }
    const auto member = record.find(field.name);
    if (member == record.end() || member->is_null()) return true;
    return read(*member, result.*field.member) || field.fieldClass != FieldClass::presenceOnly;
}

void keepKnownTiles(std::vector<std::string>& tiles) {
    std::erase_if(tiles, [](const std::string& tile) {
        return std::ranges::find(DisplayPreferences::knownTileIDs, tile) ==
               DisplayPreferences::knownTileIDs.end();
    });
}

/// Tiles that came with a later version than the record's join at the right end.
void appendMissingTiles(std::vector<std::string>& order) {
    for (const auto& tile : DisplayPreferences::defaults().menuBarOrder) {
        if (std::ranges::find(order, tile) == order.end()) order.push_back(tile);
    }
}

// toJson: the field as a member; nothing where JSON cannot hold it.

template <class T>
std::optional<Json> toJson(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return Json(rawValue(value));
    } else if constexpr (std::is_same_v<T, double>) {
        if (!std::isfinite(value)) return std::nullopt;
        return Json(value);
    } else {
        return Json(value);
    }
}

}  // namespace

std::optional<DisplayPreferences> decodePreferences(std::span<const std::byte> stored) {
    const auto record = parseObject(stored);
    if (!record) return std::nullopt;
    DisplayPreferences result;
    bool usable = true;
    forEachPreferenceField(
        [&](const auto& field) { usable = usable && readField(*record, field, result); });
    if (!usable) return std::nullopt;
    appendMissingTiles(result.menuBarOrder);
    keepKnownTiles(result.menuBarOrder);
    keepKnownTiles(result.compactPriority);
    return result;
}

std::optional<Data> encodePreferences(const DisplayPreferences& preferences) {
    Json record = Json::object();
    bool complete = true;
    forEachPreferenceField([&](const auto& field) {
        auto member = toJson(preferences.*field.member);
        complete = complete && member.has_value();
        if (member) record.emplace(field.name, *std::move(member));
    });
    if (!complete) return std::nullopt;
    try {
        return toData(record.dump(-1, ' ', false, Json::error_handler_t::strict));
    } catch (const Json::exception&) {  // a text that is not UTF-8
        return std::nullopt;
    }
}

}  // namespace vtx
