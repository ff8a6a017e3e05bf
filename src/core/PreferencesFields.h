// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

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

/// Calls `visit` with every field of the preferences once, in the order of declaration: the one
/// list by which records are read, written and tested.
template <class Visitor>
constexpr void forEachPreferenceField(Visitor&& visit) {
    using P = DisplayPreferences;
    constexpr auto tolerant = []<class T>(std::string_view name, T P::* member) {
        return PreferenceField<T>{name, member, FieldClass::tolerant};
    };
    constexpr auto presenceOnly = []<class T>(std::string_view name, T P::* member) {
        return PreferenceField<T>{name, member, FieldClass::presenceOnly};
    };
    constexpr auto trueWhenUnread = [](std::string_view name, bool P::* member) {
        return PreferenceField<bool>{name, member, FieldClass::trueWhenUnread};
    };
    visit(tolerant("showCPU", &P::showCPU));
    visit(tolerant("showGPU", &P::showGPU));
    visit(tolerant("showThermal", &P::showThermal));
    visit(tolerant("showMemory", &P::showMemory));
    visit(tolerant("showDiskIO", &P::showDiskIO));
    visit(tolerant("showPower", &P::showPower));
    visit(tolerant("showFan", &P::showFan));
    visit(tolerant("showANE", &P::showANE));
    visit(presenceOnly("menuBarLiveCPU", &P::menuBarLiveCPU));
    visit(presenceOnly("menuBarLiveGPU", &P::menuBarLiveGPU));
    visit(presenceOnly("menuBarLiveMemory", &P::menuBarLiveMemory));
    visit(presenceOnly("menuBarLiveTemp", &P::menuBarLiveTemp));
    visit(presenceOnly("menuBarLiveDisk", &P::menuBarLiveDisk));
    visit(presenceOnly("menuBarLivePower", &P::menuBarLivePower));
    visit(presenceOnly("menuBarLiveFan", &P::menuBarLiveFan));
    visit(presenceOnly("menuBarLiveANE", &P::menuBarLiveANE));
    visit(presenceOnly("iconCPU", &P::iconCPU));
    visit(presenceOnly("iconGPU", &P::iconGPU));
    visit(presenceOnly("iconThermal", &P::iconThermal));
    visit(presenceOnly("iconMemory", &P::iconMemory));
    visit(presenceOnly("iconDisk", &P::iconDisk));
    visit(presenceOnly("iconPower", &P::iconPower));
    visit(presenceOnly("iconFan", &P::iconFan));
    visit(presenceOnly("iconANE", &P::iconANE));
    visit(presenceOnly("menuBarOrder", &P::menuBarOrder));
    visit(presenceOnly("menuBarCompact", &P::menuBarCompact));
    visit(presenceOnly("compactPriority", &P::compactPriority));
    visit(tolerant("refreshIntervalSeconds", &P::refreshIntervalSeconds));
    visit(tolerant("autoRelieveOnPressure", &P::autoRelieveOnPressure));
    visit(tolerant("launchAtLogin", &P::launchAtLogin));
    visit(tolerant("graphsCPU", &P::graphsCPU));
    visit(tolerant("graphsPCore", &P::graphsPCore));
    visit(tolerant("graphsECore", &P::graphsECore));
    visit(tolerant("graphsGPU", &P::graphsGPU));
    visit(tolerant("graphsMemory", &P::graphsMemory));
    visit(tolerant("graphsDisk", &P::graphsDisk));
    visit(tolerant("graphsPower", &P::graphsPower));
    visit(tolerant("graphsANE", &P::graphsANE));
    visit(tolerant("chartStyle", &P::chartStyle));
    visit(tolerant("historyRange", &P::historyRange));
    visit(tolerant("colorCPU", &P::colorCPU));
    visit(tolerant("colorPCore", &P::colorPCore));
    visit(tolerant("colorECore", &P::colorECore));
    visit(tolerant("colorGPU", &P::colorGPU));
    visit(tolerant("colorMemory", &P::colorMemory));
    visit(tolerant("colorDisk", &P::colorDisk));
    visit(tolerant("colorPower", &P::colorPower));
    visit(tolerant("colorANE", &P::colorANE));
    visit(tolerant("alertCPUEnabled", &P::alertCPUEnabled));
    visit(tolerant("alertCPUThreshold", &P::alertCPUThreshold));
    visit(tolerant("alertGPUEnabled", &P::alertGPUEnabled));
    visit(tolerant("alertGPUThreshold", &P::alertGPUThreshold));
    visit(tolerant("alertMemoryEnabled", &P::alertMemoryEnabled));
    visit(tolerant("alertMemoryThreshold", &P::alertMemoryThreshold));
    visit(tolerant("alertPressureEnabled", &P::alertPressureEnabled));
    visit(tolerant("alertTempEnabled", &P::alertTempEnabled));
    visit(tolerant("alertTempCelsius", &P::alertTempCelsius));
    visit(tolerant("alertDiskEnabled", &P::alertDiskEnabled));
    visit(tolerant("alertDiskThreshold", &P::alertDiskThreshold));
    visit(tolerant("alertPowerEnabled", &P::alertPowerEnabled));
    visit(tolerant("alertPowerWatts", &P::alertPowerWatts));
    visit(tolerant("alertFanEnabled", &P::alertFanEnabled));
    visit(tolerant("alertFanRPM", &P::alertFanRPM));
    visit(tolerant("alertANEEnabled", &P::alertANEEnabled));
    visit(tolerant("alertANEThreshold", &P::alertANEThreshold));
    visit(tolerant("miniWidgetEnabled", &P::miniWidgetEnabled));
    visit(tolerant("miniWidgetX", &P::miniWidgetX));
    visit(tolerant("miniWidgetY", &P::miniWidgetY));
    visit(tolerant("languageCode", &P::languageCode));
    visit(trueWhenUnread("hasCompletedFirstRunLanguage", &P::hasCompletedFirstRunLanguage));
    visit(tolerant("hogDetectorEnabled", &P::hogDetectorEnabled));
    visit(tolerant("hogCPUThreshold", &P::hogCPUThreshold));
    visit(tolerant("hogMinDurationSeconds", &P::hogMinDurationSeconds));
}

}  // namespace vtx
