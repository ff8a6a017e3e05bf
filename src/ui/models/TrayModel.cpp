// SPDX-License-Identifier: MIT
#include "ui/models/TrayModel.h"

#include "core/DisplayPreferences.h"

namespace vtx {
namespace {

// With every tile on and live, in compact mode, the strip is the one tile that is wanted.
DisplayPreferences showingAll(DisplayPreferences preferences) {
    using P = DisplayPreferences;
    preferences.menuBarCompact = true;
    for (bool P::* flag :
         {&P::showCPU, &P::showGPU, &P::showThermal, &P::showMemory, &P::showDiskIO, &P::showFan,
          &P::menuBarLiveCPU, &P::menuBarLiveGPU, &P::menuBarLiveTemp, &P::menuBarLiveMemory,
          &P::menuBarLiveDisk, &P::menuBarLiveFan})
        preferences.*flag = true;
    return preferences;
}

std::string without(std::string text, std::string_view end) {
    if (text.ends_with(end)) text.resize(text.size() - end.size());
    return text;
}

}  // namespace

TrayModel describeTray(const StripReadings& readings, const DisplayPreferences& preferences) {
    TrayModel model;
    model.summary = describeStrip(readings, preferences).summary;
    const auto tiles = describeStrip(readings, showingAll(preferences)).tiles;
    if (tiles.empty()) return model;
    model.symbol = tiles.front().symbol;
    // A level such as "Critical" has no room; the symbol stands for it.
    const bool isLevel = tiles.front().id == "thermal" && !readings.cpuMaxC;
    if (!isLevel) model.figure = without(without(*tiles.front().label, "%"), "C");
    return model;
}

}  // namespace vtx
