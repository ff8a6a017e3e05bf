// SPDX-License-Identifier: MIT
#include "platform/linux/SensorZones.h"

#include <algorithm>
#include <utility>

#include "platform/linux/SensorText.h"

namespace vtx {
namespace {

constexpr std::string_view classFolder = "/sys/class/thermal";

ZoneCooling coolingBy(std::string_view device) {
    if (device == "Processor") return ZoneCooling::byFirmware;
    // The name with the driver's before it is the older one.
    for (const std::string_view beginning : {"cpufreq-", "thermal-cpufreq-", "idle-cpu"}) {
        if (device.starts_with(beginning)) return ZoneCooling::byClock;
    }
    return ZoneCooling::none;
}

/// Only what is bound to a trip point for slowing down; a fan's is an active one.
bool isAtPassiveTrip(const LinuxRoot& root, const std::string& binding) {
    const auto trip = root.readText(binding + "_trip_point");
    if (!trip) return false;
    const std::string zone = binding.substr(0, binding.rfind('/'));
    return root.readText(zone + "/trip_point_" + *trip + "_type") == "passive";
}

}  // namespace

ThermalZone thermalZoneAt(const LinuxRoot& root, std::string folder) {
    ThermalZone zone;
    zone.type = sensorName(root.read(folder + "/type").value_or(""));
    for (const auto& name : root.list(folder)) {
        if (!channelNumber(name, "cdev", "")) continue;
        const std::string binding = folder + "/" + name;
        const auto device = root.readText(binding + "/type");
        if (!device || !isAtPassiveTrip(root, binding)) continue;
        zone.cooling = std::max(zone.cooling, coolingBy(*device));
    }
    zone.folder = std::move(folder);
    return zone;
}

std::vector<ThermalZone> thermalZones(const LinuxRoot& root) {
    std::vector<ThermalZone> zones;
    for (const auto& name : root.list(classFolder)) {
        if (!name.starts_with("thermal_zone")) continue;
        auto folder = root.resolve(std::string(classFolder) + "/" + name);
        if (folder) zones.push_back(thermalZoneAt(root, *std::move(folder)));
    }
    return zones;
}

}  // namespace vtx
