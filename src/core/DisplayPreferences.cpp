// SPDX-License-Identifier: MIT
#include "core/DisplayPreferences.h"

#include <algorithm>
#include <utility>

#include "core/PreferencesCodec.h"
#include "platform/UserDefaults.h"

namespace vtx {
namespace {

using HistoryRange = DisplayPreferences::HistoryRange;
using ChartStyle = DisplayPreferences::ChartStyle;
using Preset = DisplayPreferences::Preset;

template <class Cases>
auto caseWithRawValue(const Cases& cases, std::string_view raw)
    -> std::optional<typename Cases::value_type> {
    const auto found = std::ranges::find_if(cases, [&](auto c) { return rawValue(c) == raw; });
    if (found == cases.end()) return std::nullopt;
    return *found;
}

void applyMinimal(DisplayPreferences& p) {
    p.showCPU = p.showThermal = true;
    p.showGPU = p.showMemory = p.showDiskIO = p.showPower = p.showFan = p.showANE = false;
    // The live flags of disk, power, fan and ANE stay as the user had them.
    p.menuBarLiveCPU = p.menuBarLiveGPU = p.menuBarLiveMemory = p.menuBarLiveTemp = false;
    p.menuBarCompact = true;
    p.graphsCPU = true;
    p.graphsPCore = p.graphsECore = p.graphsGPU = p.graphsMemory = false;
    p.graphsDisk = p.graphsPower = p.graphsANE = false;
    p.chartStyle = ChartStyle::line;
    p.historyRange = HistoryRange::oneMinute;
    p.hogDetectorEnabled = false;
}

void applyPowerUser(DisplayPreferences& p) {
    p.showCPU = p.showGPU = p.showThermal = p.showMemory = true;
    p.showDiskIO = p.showPower = p.showFan = p.showANE = true;
    p.menuBarLiveCPU = p.menuBarLiveGPU = p.menuBarLiveMemory = p.menuBarLiveTemp = true;
    p.menuBarLiveDisk = p.menuBarLivePower = p.menuBarLiveFan = p.menuBarLiveANE = true;
    p.menuBarCompact = false;
    p.graphsCPU = p.graphsPCore = p.graphsECore = p.graphsGPU = true;
    p.graphsMemory = p.graphsDisk = p.graphsPower = p.graphsANE = true;
    p.chartStyle = ChartStyle::area;
    p.historyRange = HistoryRange::fifteenMinutes;
    p.hogDetectorEnabled = true;
}

void applyBalanced(DisplayPreferences& p) {
    DisplayPreferences reset = DisplayPreferences::defaults();
    reset.launchAtLogin = p.launchAtLogin;
    reset.miniWidgetEnabled = p.miniWidgetEnabled;
    reset.miniWidgetX = p.miniWidgetX;
    reset.miniWidgetY = p.miniWidgetY;
    reset.languageCode = std::move(p.languageCode);
    reset.hasCompletedFirstRunLanguage = p.hasCompletedFirstRunLanguage;
    p = std::move(reset);
}

}  // namespace

const DisplayPreferences& DisplayPreferences::defaults() {
    static const DisplayPreferences value;
    return value;
}

DisplayPreferences DisplayPreferences::load(const UserDefaults& store) {
    for (const std::string_view key : storedKeys) {
        const auto stored = store.data(key);
        if (!stored) continue;
        auto decoded = decodePreferences(*stored);
        if (!decoded) continue;
        decoded->refreshIntervalSeconds = std::clamp(
            decoded->refreshIntervalSeconds, minRefreshIntervalSeconds, maxRefreshIntervalSeconds);
        return *std::move(decoded);
    }
    return defaults();
}

void DisplayPreferences::save(UserDefaults& store) const {
    if (auto encoded = encodePreferences(*this)) {
        store.setData(storedKeys.front(), *std::move(encoded));
    }
}

DisplayPreferences DisplayPreferences::applyingPreset(Preset preset) const {
    DisplayPreferences result = *this;
    switch (preset) {
        case Preset::minimal:
            applyMinimal(result);
            break;
        case Preset::balanced:
            applyBalanced(result);
            break;
        case Preset::powerUser:
            applyPowerUser(result);
            break;
    }
    return result;
}

std::string_view rawValue(HistoryRange range) {
    switch (range) {
        case HistoryRange::oneMinute:
            return "oneMinute";
        case HistoryRange::fiveMinutes:
            return "fiveMinutes";
        case HistoryRange::fifteenMinutes:
            return "fifteenMinutes";
        case HistoryRange::oneHour:
            break;
    }
    return "oneHour";
}

std::string_view rawValue(ChartStyle style) {
    switch (style) {
        case ChartStyle::line:
            return "line";
        case ChartStyle::area:
            return "area";
        case ChartStyle::bar:
            break;
    }
    return "bar";
}

std::string_view rawValue(Preset preset) {
    switch (preset) {
        case Preset::minimal:
            return "minimal";
        case Preset::balanced:
            return "balanced";
        case Preset::powerUser:
            break;
    }
    return "powerUser";
}

std::optional<HistoryRange> historyRangeFromRawValue(std::string_view raw) {
    return caseWithRawValue(DisplayPreferences::allHistoryRanges, raw);
}

std::optional<ChartStyle> chartStyleFromRawValue(std::string_view raw) {
    return caseWithRawValue(DisplayPreferences::allChartStyles, raw);
}

std::optional<Preset> presetFromRawValue(std::string_view raw) {
    return caseWithRawValue(DisplayPreferences::allPresets, raw);
}

double seconds(HistoryRange range) {
    switch (range) {
        case HistoryRange::oneMinute:
            return 60.0;
        case HistoryRange::fiveMinutes:
            return 300.0;
        case HistoryRange::fifteenMinutes:
            return 900.0;
        case HistoryRange::oneHour:
            break;
    }
    return 3600.0;
}

}  // namespace vtx
