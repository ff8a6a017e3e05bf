// SPDX-License-Identifier: MIT
#include "platform/linux/ThermalZones.h"

#include <algorithm>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::string_view classFolder = "/sys/class/thermal";
constexpr std::string_view zonePrefix = "thermal_zone";
constexpr std::string_view tripPrefix = "trip_point_";
constexpr std::string_view typeSuffix = "_type";
constexpr std::size_t shortFile = 64;
/// More than any kernel makes.
constexpr std::size_t zonesLimit = 256;

}  // namespace

bool ThermalZones::areThere(const LinuxRoot& root) {
    return std::ranges::any_of(root.list(classFolder), [](const std::string& name) {
        return name.starts_with(zonePrefix);
    });
}

std::optional<int> ThermalZones::level() {
    if (const auto now = changes_->generation(); now != generation_) {
        generation_ = now;
        find();
    }
    std::optional<int> worst;
    for (Zone& zone : zones_) {
        const auto text = zone.temperature.read(shortFile);
        const auto temperature =
            text && text->size() < shortFile ? parseMilliCelsius(*text) : std::nullopt;
        // What was held is no more than a memory once the zone stops telling.
        zone.level = temperature ? thermalLevel(*temperature, zone.thresholds, zone.level) : 0;
        if (temperature) worst = std::max(worst.value_or(0), zone.level);
    }
    return worst;
}

void ThermalZones::find() {
    zones_.clear();
    for (const auto& name : root_.list(classFolder)) {
        if (!name.starts_with(zonePrefix) || zones_.size() == zonesLimit) continue;
        const auto folder = std::string(classFolder).append("/").append(name);
        if (root_.readText(folder + "/mode") == "disabled") continue;
        const auto thresholds = thresholdsOf(tripsOf(folder));
        if (thresholds.isEmpty()) continue;
        zones_.push_back({KeptFile(root_.path(folder + "/temp")), thresholds, 0});
    }
}

std::vector<TripPoint> ThermalZones::tripsOf(const std::string& folder) const {
    std::vector<TripPoint> trips;
    for (const auto& name : root_.list(folder)) {
        if (!name.starts_with(tripPrefix) || !name.ends_with(typeSuffix)) continue;
        const auto stem = folder + "/" + name.substr(0, name.size() - typeSuffix.size());
        TripPoint trip;
        trip.kind = parseTripKind(root_.readHead(stem + "_type", shortFile).value_or(""));
        const auto read = [&](const char* what) {
            return parseMilliCelsius(root_.readHead(stem + what, shortFile).value_or(""));
        };
        trip.temperature = read("_temp").value_or(0);
        trip.hysteresis = read("_hyst").value_or(0);
        trips.push_back(trip);
    }
    return trips;
}

}  // namespace vtx
