// SPDX-License-Identifier: MIT
#include "ui/models/SettingsActs.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "language/Language.h"
#include "ui/models/SettingsFields.h"

namespace vtx::settings {
namespace {

using P = DisplayPreferences;

/// Of a float that may be none, without regard to what is behind the point.
std::int64_t truncated(double value) {
    constexpr double most = 1e15;
    return std::isnan(value) ? 0 : static_cast<std::int64_t>(std::clamp(value, -most, most));
}

template <class Rows>
const auto* rowOf(const Rows& rows, std::string_view id) {
    const auto found = std::ranges::find_if(rows, [id](const auto& row) { return row.id == id; });
    return found == rows.end() ? nullptr : &*found;
}

/// The element at `index`, where there is one.
template <class Values>
const auto* valueAt(const Values& values, int index) {
    const bool isOne = index >= 0 && index < static_cast<int>(std::size(values));
    return isOne ? &values[static_cast<std::size_t>(index)] : nullptr;
}

int byteOf(double component) {
    if (!(component > 0)) return 0;
    return static_cast<int>(std::lround(std::min(component, 1.0) * 255));
}

}  // namespace

P toggled(P preferences, std::string_view id, bool on) {
    if (const auto field = toggleField(id)) preferences.*(*field) = on;
    return preferences;
}

P slid(P preferences, SliderField field, double value) {
    const SliderBinding& bound = slider(field);
    if (bound.field) {
        preferences.*bound.field = value / bound.scale;
    } else {
        preferences.alertFanRPM = truncated(value);
    }
    return preferences;
}

P chosen(P preferences, std::string_view id, int choice) {
    if (id == presetID) {
        const auto* preset = valueAt(P::allPresets, choice);
        return preset ? preferences.applyingPreset(*preset) : preferences;
    }
    if (id == intervalID) {
        if (const auto* interval = valueAt(intervals, choice))
            preferences.refreshIntervalSeconds = *interval;
    } else if (id == chartStyleID) {
        if (const auto* style = valueAt(P::allChartStyles, choice)) preferences.chartStyle = *style;
    } else if (id == languageID) {
        if (const auto* language = valueAt(allLanguages, choice))
            preferences.languageCode = rawValue(*language);
    } else if (const Icon* icon = rowOf(icons(), id)) {
        if (const auto* picked = valueAt(icon->choices, choice))
            preferences.*(icon->field) = picked->symbol;
    }
    return preferences;
}

P recolored(P preferences, std::string_view id, std::string hex) {
    if (const Color* color = rowOf(colors(), id)) preferences.*(color->field) = std::move(hex);
    return preferences;
}

std::string colorText(const P& preferences, std::string_view id) {
    const Color* color = rowOf(colors(), id);
    return color ? preferences.*(color->field) : std::string();
}

P tileEntered(P preferences, std::string_view dragged, std::string_view destination) {
    auto& order = preferences.menuBarOrder;
    const auto from = std::ranges::find(order, dragged);
    const auto to = std::ranges::find(order, destination);
    if (dragged == destination || from == order.end() || to == order.end()) return preferences;
    if (from < to) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
    return preferences;
}

P tileMoved(P preferences, std::string_view tile, TileMove move) {
    auto& order = preferences.menuBarOrder;
    const auto at = std::ranges::find(order, tile);
    if (at == order.end()) return preferences;
    if (move == TileMove::up && at != order.begin()) std::iter_swap(at, at - 1);
    if (move == TileMove::down && at + 1 != order.end()) std::iter_swap(at, at + 1);
    return preferences;
}

std::string encodeHex(double red, double green, double blue) {
    return fmt::format("#{:02X}{:02X}{:02X}", byteOf(red), byteOf(green), byteOf(blue));
}

}  // namespace vtx::settings
