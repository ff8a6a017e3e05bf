// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <tuple>

#include "core/DisplayPreferences.h"

namespace vtx {

/// What becomes of a field whose stored member is absent or of the wrong type.
enum class FieldClass {
    tolerant,        // both times the field's default
    presenceOnly,    // the default where absent; of the wrong type, the whole record is unusable
    trueWhenUnread,  // both times true, whatever the default
};

template <class T>
struct PreferenceField {
    std::string_view name;  // of the field and of its member in the stored object
    T DisplayPreferences::* member;
    FieldClass fieldClass;
};

namespace preferenceFields {

using P = DisplayPreferences;

template <class T>
constexpr PreferenceField<T> tolerant(std::string_view name, T P::* member) {
    return {name, member, FieldClass::tolerant};
}

template <class T>
constexpr PreferenceField<T> presenceOnly(std::string_view name, T P::* member) {
    return {name, member, FieldClass::presenceOnly};
}

constexpr PreferenceField<bool> trueWhenUnread(std::string_view name, bool P::* member) {
    return {name, member, FieldClass::trueWhenUnread};
}

/// Every field of the preferences once, in the order of declaration: the one list by which records
/// are read, written and tested.
inline constexpr std::tuple all{
    tolerant("showCPU", &P::showCPU),
    tolerant("showGPU", &P::showGPU),
    tolerant("showThermal", &P::showThermal),
    tolerant("showMemory", &P::showMemory),
    tolerant("showDiskIO", &P::showDiskIO),
    tolerant("showPower", &P::showPower),
    tolerant("showFan", &P::showFan),
    tolerant("showANE", &P::showANE),
    presenceOnly("menuBarLiveCPU", &P::menuBarLiveCPU),
    presenceOnly("menuBarLiveGPU", &P::menuBarLiveGPU),
    presenceOnly("menuBarLiveMemory", &P::menuBarLiveMemory),
    presenceOnly("menuBarLiveTemp", &P::menuBarLiveTemp),
    presenceOnly("menuBarLiveDisk", &P::menuBarLiveDisk),
    presenceOnly("menuBarLivePower", &P::menuBarLivePower),
    presenceOnly("menuBarLiveFan", &P::menuBarLiveFan),
    presenceOnly("menuBarLiveANE", &P::menuBarLiveANE),
    presenceOnly("iconCPU", &P::iconCPU),
    presenceOnly("iconGPU", &P::iconGPU),
    presenceOnly("iconThermal", &P::iconThermal),
    presenceOnly("iconMemory", &P::iconMemory),
    presenceOnly("iconDisk", &P::iconDisk),
    presenceOnly("iconPower", &P::iconPower),
    presenceOnly("iconFan", &P::iconFan),
    presenceOnly("iconANE", &P::iconANE),
    presenceOnly("menuBarOrder", &P::menuBarOrder),
    presenceOnly("menuBarCompact", &P::menuBarCompact),
    presenceOnly("compactPriority", &P::compactPriority),
    tolerant("refreshIntervalSeconds", &P::refreshIntervalSeconds),
    tolerant("autoRelieveOnPressure", &P::autoRelieveOnPressure),
    tolerant("launchAtLogin", &P::launchAtLogin),
    tolerant("graphsCPU", &P::graphsCPU),
    tolerant("graphsPCore", &P::graphsPCore),
    tolerant("graphsECore", &P::graphsECore),
    tolerant("graphsGPU", &P::graphsGPU),
    tolerant("graphsMemory", &P::graphsMemory),
    tolerant("graphsDisk", &P::graphsDisk),
    tolerant("graphsPower", &P::graphsPower),
    tolerant("graphsANE", &P::graphsANE),
    tolerant("chartStyle", &P::chartStyle),
    tolerant("historyRange", &P::historyRange),
    tolerant("colorCPU", &P::colorCPU),
    tolerant("colorPCore", &P::colorPCore),
    tolerant("colorECore", &P::colorECore),
    tolerant("colorGPU", &P::colorGPU),
    tolerant("colorMemory", &P::colorMemory),
    tolerant("colorDisk", &P::colorDisk),
    tolerant("colorPower", &P::colorPower),
    tolerant("colorANE", &P::colorANE),
    tolerant("alertCPUEnabled", &P::alertCPUEnabled),
    tolerant("alertCPUThreshold", &P::alertCPUThreshold),
    tolerant("alertGPUEnabled", &P::alertGPUEnabled),
    tolerant("alertGPUThreshold", &P::alertGPUThreshold),
    tolerant("alertMemoryEnabled", &P::alertMemoryEnabled),
    tolerant("alertMemoryThreshold", &P::alertMemoryThreshold),
    tolerant("alertPressureEnabled", &P::alertPressureEnabled),
    tolerant("alertTempEnabled", &P::alertTempEnabled),
    tolerant("alertTempCelsius", &P::alertTempCelsius),
    tolerant("alertDiskEnabled", &P::alertDiskEnabled),
    tolerant("alertDiskThreshold", &P::alertDiskThreshold),
    tolerant("alertPowerEnabled", &P::alertPowerEnabled),
    tolerant("alertPowerWatts", &P::alertPowerWatts),
    tolerant("alertFanEnabled", &P::alertFanEnabled),
    tolerant("alertFanRPM", &P::alertFanRPM),
    tolerant("alertANEEnabled", &P::alertANEEnabled),
    tolerant("alertANEThreshold", &P::alertANEThreshold),
    tolerant("miniWidgetEnabled", &P::miniWidgetEnabled),
    tolerant("miniWidgetX", &P::miniWidgetX),
    tolerant("miniWidgetY", &P::miniWidgetY),
    tolerant("languageCode", &P::languageCode),
    trueWhenUnread("hasCompletedFirstRunLanguage", &P::hasCompletedFirstRunLanguage),
    tolerant("hogDetectorEnabled", &P::hogDetectorEnabled),
    tolerant("hogCPUThreshold", &P::hogCPUThreshold),
    tolerant("hogMinDurationSeconds", &P::hogMinDurationSeconds)};

}  // namespace preferenceFields

/// Calls `visit` with every field of that list, in its order.
template <class Visitor>
constexpr void forEachPreferenceField(Visitor&& visit) {
    std::apply([&visit](const auto&... field) { (visit(field), ...); }, preferenceFields::all);
}

}  // namespace vtx
