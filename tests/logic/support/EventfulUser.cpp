// SPDX-License-Identifier: MIT
// What the user of an eventful machine does, and what becomes of it.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ranges>

#include "support/EventfulMachine.h"

namespace vtx {

void EventfulMachine::popoverToggles() {
    controller_->handleStatusItemClick(ButtonEvent::leftMouseUp);
}

void EventfulMachine::dashboardToggles() {
    isDashboardShown_ = !isDashboardShown_;
    if (isDashboardShown_)
        controller_->openDashboardWindow();
    else
        surfaces_.dashboard->userCloses();
}

void EventfulMachine::widgetToggles() { controller_->toggleMiniWidget(); }

void EventfulMachine::refreshIsWanted() { controller_->refreshNow(); }

void EventfulMachine::historyIsExported() {
    constexpr auto commas = 8;
    const std::string text = coordinator().exportHistoryCSV();
    std::string_view before;
    for (const auto line : std::views::split(text, '\n')) {
        const std::string_view row(line.begin(), line.end());
        const std::string_view moment = row.substr(0, row.find(','));
        if (row.starts_with('1') || row.starts_with('2')) {
            if (moment < before) complain("the order of the history");
            before = moment;
        }
        if (!row.empty() && std::ranges::count(row, ',') != commas)
            complain("a row of the history");
        if (row.find("nan") != row.npos || row.find("inf") != row.npos)
            complain("a figure of the history");
    }
}

void EventfulMachine::change(const std::function<void(DisplayPreferences&)>& edit) {
    coordinator().preferences.modify(edit);
}

void EventfulMachine::settingsChange() {
    using P = DisplayPreferences;
    static constexpr std::array switches{
        &P::showCPU,          &P::showGPU,           &P::showThermal,
        &P::showMemory,       &P::showDiskIO,        &P::showFan,
        &P::showANE,          &P::menuBarLiveCPU,    &P::menuBarLiveGPU,
        &P::menuBarLiveTemp,  &P::menuBarLiveMemory, &P::menuBarLiveDisk,
        &P::menuBarLiveFan,   &P::menuBarCompact,    &P::autoRelieveOnPressure,
        &P::alertCPUEnabled,  &P::alertGPUEnabled,   &P::alertMemoryEnabled,
        &P::alertTempEnabled, &P::alertFanEnabled,   &P::alertPressureEnabled,
        &P::alertDiskEnabled, &P::alertANEEnabled,   &P::hogDetectorEnabled};
    change([this](P& p) {
        p.*oneOf(switches) ^= true;
        p.*oneOf(switches) ^= true;
        // A loop may also be asked for what no setting offers.
        if (oneIn(6)) p.refreshIntervalSeconds = oneIn(8) ? std::nan("") : 3.0 * part();
        if (oneIn(6)) p.alertCPUThreshold = p.alertMemoryThreshold = p.alertGPUThreshold = part();
        if (oneIn(6)) p.alertTempCelsius = 120.0 * part();
        if (oneIn(6)) p.hogMinDurationSeconds = 600.0 * part();
        if (oneIn(6)) p.hogCPUThreshold = part();
        if (oneIn(6)) p.languageCode = oneIn(3) ? "xx" : rawValue(oneOf(allLanguages));
        if (oneIn(6)) std::ranges::shuffle(p.compactPriority, random_);
        if (oneIn(12)) p.compactPriority.clear();
        if (oneIn(12)) p.compactPriority = P::defaults().compactPriority;
    });
}

void EventfulMachine::presetIsChosen() {
    const auto preset = oneOf(DisplayPreferences::allPresets);
    change([preset](auto& p) { p = p.applyingPreset(preset); });
}

void EventfulMachine::storeFails() {
    auto& store = bench_.platform.userDefaults;
    store.failsToStore = !store.failsToStore;
}

void EventfulMachine::notificationsFail() {
    auto& center = bench_.platform.userNotifications;
    if (oneIn(2))
        center.hold();
    else
        center.answer();
}

}  // namespace vtx
