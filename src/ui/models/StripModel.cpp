// SPDX-License-Identifier: MIT
#include "ui/models/StripModel.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>

#include "core/DisplayPreferences.h"
#include "ui/models/Formatters.h"

namespace vtx {
namespace {

constexpr std::string_view widestPercent = "100%";
constexpr std::string_view widestTemperature = "Critical";
constexpr std::string_view widestThroughput = "100M";
constexpr std::string_view widestSpeed = "5000";
// More than any screen has room for; a stored order may be of any length.
constexpr std::size_t mostTiles = 512;
constexpr double liveSpacing = 6.0;
constexpr double compactSpacing = 4.0;

using Readings = StripReadings;
using Preferences = DisplayPreferences;

std::optional<double> unit(std::optional<double> fraction) {
    if (!fraction || std::isnan(*fraction)) return std::nullopt;
    return std::clamp(*fraction, 0.0, 1.0);
}

std::string diskLabel(const Readings& r) {
    return throughputLabel(r.diskReadPerSecond, r.diskWrittenPerSecond);
}

std::string thermalLabel(const Readings& r) {
    return temperatureLabel(r.cpuMaxC, r.thermalLevel ? *r.thermalLevel : emptyMark);
}

std::string fanLabel(const Readings& r) {
    return r.fanMaxRPM ? fmt::format("{}", *r.fanMaxRPM) : std::string(emptyMark);
}

struct TileKind {
    std::string_view id;
    bool Preferences::* show;
    std::string Preferences::* icon;
    bool Preferences::* live;
    std::string_view reference;
    std::string (*label)(const Readings&);
};

constexpr TileKind kinds[] = {
    {"cpu", &Preferences::showCPU, &Preferences::iconCPU, &Preferences::menuBarLiveCPU,
     widestPercent, [](const Readings& r) { return compactPercent(r.cpuUsage); }},
    {"gpu", &Preferences::showGPU, &Preferences::iconGPU, &Preferences::menuBarLiveGPU,
     widestPercent, [](const Readings& r) { return compactPercent(r.gpuUtilization); }},
    {"thermal", &Preferences::showThermal, &Preferences::iconThermal, &Preferences::menuBarLiveTemp,
     widestTemperature, thermalLabel},
    {"memory", &Preferences::showMemory, &Preferences::iconMemory, &Preferences::menuBarLiveMemory,
     widestPercent, [](const Readings& r) { return compactPercent(unit(r.memoryFraction)); }},
    {"disk", &Preferences::showDiskIO, &Preferences::iconDisk, &Preferences::menuBarLiveDisk,
     widestThroughput, diskLabel},
    {"fan", &Preferences::showFan, &Preferences::iconFan, &Preferences::menuBarLiveFan, widestSpeed,
     fanLabel},
};

std::optional<StripTile> describeTile(std::string_view id, const Readings& readings,
                                      const Preferences& preferences) {
    const auto kind = std::ranges::find(kinds, id, &TileKind::id);
    if (kind == std::end(kinds) || !(preferences.*kind->show)) return std::nullopt;
    if (id == "gpu" && !readings.isGPUAvailable) return std::nullopt;
    StripTile tile{std::string(id), preferences.*kind->icon, std::nullopt, kind->reference};
    if (preferences.*kind->live) tile.label = kind->label(readings);
    return tile;
}

// The spoken figures cut where the visible ones round, so the two may differ by one.
std::string spokenPercent(std::string_view what, double fraction) {
    return fmt::format("{} {:.0f} percent", what, std::trunc(fraction * 100.0) + 0.0);
}

std::string describeSpoken(const Readings& r, const Preferences& preferences) {
    std::vector<std::string> parts;
    if (preferences.menuBarCompact)
        parts.push_back("Compact mode active, showing " + r.criticalMetric);
    if (r.cpuUsage) parts.push_back(spokenPercent("CPU", *r.cpuUsage));
    if (preferences.showGPU && r.gpuUtilization)
        parts.push_back(spokenPercent("GPU", *r.gpuUtilization));
    if (r.cpuMaxC)
        parts.push_back(
            fmt::format("CPU temperature {:.0f} Celsius", std::round(*r.cpuMaxC) + 0.0));
    else if (r.thermalLevel)
        parts.push_back("Thermal " + *r.thermalLevel);
    if (const auto memory = unit(r.memoryFraction))
        parts.push_back(spokenPercent("Memory", *memory));
    return fmt::format("{}", fmt::join(parts, ", "));
}

}  // namespace

StripModel describeStrip(const StripReadings& readings, const DisplayPreferences& preferences) {
    StripModel model;
    model.summary = describeSpoken(readings, preferences);
    if (preferences.menuBarCompact) {
        model.spacing = compactSpacing;
        const std::string id = readings.criticalMetric.empty() ? "cpu" : readings.criticalMetric;
        if (auto tile = describeTile(id, readings, preferences))
            model.tiles.push_back(std::move(*tile));
        return model;
    }
    model.spacing = liveSpacing;
    for (const std::string& id : preferences.menuBarOrder) {
        if (model.tiles.size() == mostTiles) break;
        if (auto tile = describeTile(id, readings, preferences))
            model.tiles.push_back(std::move(*tile));
    }
    return model;
}

}  // namespace vtx
