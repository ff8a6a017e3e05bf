// SPDX-License-Identifier: MIT
#include "platform/linux/SensorScan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "platform/linux/SensorText.h"
#include "platform/linux/SensorZones.h"

namespace vtx {
namespace {

constexpr std::string_view hwmonFolder = "/sys/class/hwmon";
constexpr std::string_view powerFolder = "/sys/class/power_supply";

struct Chip {
    SensorChip facts;
    std::string device;
    std::string folder;
};

bool isBefore(const FoundSensor& a, const FoundSensor& b) {
    return std::tie(a.device, a.kind, a.channel, a.identity) <
           std::tie(b.device, b.kind, b.channel, b.identity);
}

/// The device's own place: without the folders that are numbered in the order of drivers.
std::string placeOf(std::string_view folder) {
    const auto dropLast = [&folder](std::string_view beginning) {
        const auto slash = folder.rfind('/');
        if (slash != std::string_view::npos && folder.substr(slash + 1).starts_with(beginning))
            folder = folder.substr(0, slash);
    };
    dropLast("hwmon");
    dropLast("hwmon");
    return std::string(folder);
}

std::optional<Chip> chipAt(const LinuxRoot& root, const std::string& name) {
    auto folder = root.resolve(std::string(hwmonFolder) + "/" + name);
    if (!folder) return std::nullopt;
    Chip chip;
    chip.device = placeOf(*folder);
    // A battery tells of itself elsewhere; here those of mice and pens would pass for it.
    if (chip.device.find("/power_supply/") != std::string::npos) return std::nullopt;
    // Drivers of the old kind have their files one folder further.
    if (!root.exists(*folder + "/name")) *folder += "/device";
    const auto text = root.read(*folder + "/name");
    if (!text) return std::nullopt;
    chip.facts.name = sensorName(*text);
    if (chip.device.find("/thermal_zone") != std::string::npos)
        chip.facts.cooling = thermalZoneAt(root, chip.device).cooling;
    chip.folder = *std::move(folder);
    return chip;
}

std::optional<FoundSensor> sensorOf(const LinuxRoot& root, const Chip& chip,
                                    const std::string& file) {
    FoundSensor sensor;
    auto channel = channelNumber(file, "temp", "_input");
    if (!channel) {
        channel = channelNumber(file, "fan", "_input");
        sensor.kind = SensorKind::fan;
    }
    if (!channel) return std::nullopt;
    sensor.channel = *channel;
    sensor.stem = file.substr(0, file.find('_'));
    const auto label = root.read(chip.folder + "/" + sensor.stem + "_label").value_or("");
    const auto name = sensorName(label);
    if (sensor.kind == SensorKind::temperature) sensor.role = roleOf(chip.facts, name);
    sensor.device = chip.device;
    sensor.folder = chip.folder;
    sensor.identity = chip.device + "|" + chip.facts.name + "|";
    sensor.identity.append(name.empty() ? std::string_view(sensor.stem) : name);
    return sensor;
}

void addSensorsOf(const LinuxRoot& root, const Chip& chip, std::vector<FoundSensor>& into) {
    for (const auto& file : root.list(chip.folder)) {
        if (into.size() >= mostSensors) return;
        if (auto sensor = sensorOf(root, chip, file)) into.push_back(*std::move(sensor));
    }
}

/// A whole processor says more than its parts, which stand in where it says nothing.
void settleChips(std::vector<FoundSensor>& sensors) {
    std::map<std::string, SensorRole> best;
    for (const auto& sensor : sensors) {
        if (sensor.role > SensorRole::processorPart) continue;
        const auto [at, isNew] = best.try_emplace(sensor.folder, sensor.role);
        if (!isNew) at->second = std::min(at->second, sensor.role);
    }
    for (auto& sensor : sensors) {
        if (sensor.role > SensorRole::processorPart) continue;
        sensor.role =
            sensor.role == best[sensor.folder] ? SensorRole::processor : SensorRole::processorPart;
    }
}

bool tellsProcessor(const std::vector<FoundSensor>& sensors) {
    return std::ranges::any_of(
        sensors, [](const FoundSensor& sensor) { return sensor.role == SensorRole::processor; });
}

/// A zone of which hwmon tells stands there under its type, or under that of one like it.
bool isToldBy(const std::set<std::string>& chips, std::string type) {
    std::ranges::replace(type, '-', '_');
    return chips.contains(type);
}

void addZones(const LinuxRoot& root, const std::set<std::string>& chips,
              std::vector<FoundSensor>& into) {
    for (const auto& zone : thermalZones(root)) {
        if (into.size() >= mostSensors) return;
        if (isToldBy(chips, zone.type)) continue;
        FoundSensor sensor;
        sensor.role = roleOf({zone.type, zone.cooling}, "");
        if (sensor.role == SensorRole::other) continue;
        sensor.device = sensor.folder = zone.folder;
        sensor.identity = zone.folder + "|" + zone.type + "|";
        into.push_back(std::move(sensor));
    }
}

void addBatteries(const LinuxRoot& root, std::vector<FoundSensor>& into) {
    for (const auto& name : root.list(powerFolder)) {
        const auto folder = root.resolve(std::string(powerFolder) + "/" + name);
        if (!folder || root.readText(*folder + "/type") != "Battery") continue;
        if (root.readText(*folder + "/scope") == "Device") continue;
        if (!root.exists(*folder + "/temp")) continue;
        FoundSensor sensor;
        sensor.kind = SensorKind::batteryTemperature;
        sensor.device = sensor.folder = *folder;
        sensor.identity = *folder + "|battery|";
        sensor.stem = "temp";
        into.push_back(std::move(sensor));
    }
}

/// Where the machine's processors tell nothing themselves, the best of who else does.
void settleMachine(std::vector<FoundSensor>& sensors) {
    if (tellsProcessor(sensors)) return;
    for (const auto next : {SensorRole::board, SensorRole::firmware}) {
        for (auto& sensor : sensors)
            if (sensor.role == next) sensor.role = SensorRole::processor;
        if (tellsProcessor(sensors)) return;
    }
}

void tellTwinsApart(std::vector<FoundSensor>& sensors) {
    std::map<std::string, int> count;
    for (const auto& sensor : sensors) ++count[sensor.identity];
    for (auto& sensor : sensors)
        if (count[sensor.identity] > 1) sensor.identity += "|" + sensor.stem;
    // Chips of one name that stand nowhere have nothing but their order. A label may say what
    // another sensor is called by then.
    std::set<std::string> taken;
    std::map<std::string, int> orders;
    for (auto& sensor : sensors) {
        const std::string said = sensor.identity;
        for (int& order = orders[said]; !taken.insert(sensor.identity).second;)
            sensor.identity = said + "#" + std::to_string(++order + 1);
    }
}

}  // namespace

std::vector<FoundSensor> findSensors(const LinuxRoot& root) {
    std::vector<FoundSensor> sensors;
    std::set<std::string> chips;
    for (const auto& name : root.list(hwmonFolder)) {
        const auto chip = chipAt(root, name);
        if (!chip) continue;
        chips.insert(chip->facts.name);
        addSensorsOf(root, *chip, sensors);
    }
    settleChips(sensors);
    if (!tellsProcessor(sensors)) addZones(root, chips, sensors);
    settleMachine(sensors);
    addBatteries(root, sensors);
    tellTwinsApart(sensors);
    std::ranges::sort(sensors, isBefore);
    return sensors;
}

}  // namespace vtx
