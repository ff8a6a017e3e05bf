// SPDX-License-Identifier: MIT
#include "platform/linux/BatteryReader.h"

#include <algorithm>
#include <array>

namespace vtx {
namespace {

constexpr std::string_view suppliesFolder = "/sys/class/power_supply/";
constexpr std::size_t longestEvents = 4096;
constexpr std::size_t shortFile = 64;
/// More than any machine has.
constexpr std::size_t batteriesLimit = 16;

/// The files that stand for the lines of `uevent`.
struct Figure {
    const char* file;
    const char* key;
};
constexpr std::array figures{Figure{"status", "STATUS"},
                             Figure{"present", "PRESENT"},
                             Figure{"capacity", "CAPACITY"},
                             Figure{"charge_now", "CHARGE_NOW"},
                             Figure{"charge_full", "CHARGE_FULL"},
                             Figure{"charge_full_design", "CHARGE_FULL_DESIGN"},
                             Figure{"energy_now", "ENERGY_NOW"},
                             Figure{"energy_full", "ENERGY_FULL"},
                             Figure{"energy_full_design", "ENERGY_FULL_DESIGN"},
                             Figure{"voltage_now", "VOLTAGE_NOW"},
                             Figure{"voltage_min_design", "VOLTAGE_MIN_DESIGN"},
                             Figure{"voltage_max_design", "VOLTAGE_MAX_DESIGN"},
                             Figure{"current_now", "CURRENT_NOW"},
                             Figure{"power_now", "POWER_NOW"},
                             Figure{"time_to_empty_now", "TIME_TO_EMPTY_NOW"},
                             Figure{"time_to_full_now", "TIME_TO_FULL_NOW"},
                             Figure{"cycle_count", "CYCLE_COUNT"},
                             Figure{"temp", "TEMP"}};

}  // namespace

std::vector<std::string> findBatteries(const LinuxRoot& root) {
    std::vector<std::string> folders;
    for (const auto& name : root.list(suppliesFolder)) {
        const auto folder = std::string(suppliesFolder).append(name);
        if (root.readText(folder + "/type") != "Battery") continue;
        if (root.readText(folder + "/scope") == "Device") continue;
        if (root.readText(folder + "/present") == "0") continue;
        if (folders.size() < batteriesLimit) folders.push_back(folder);
    }
    return folders;
}

bool isSupplyOnline(const LinuxRoot& root) {
    return std::ranges::any_of(root.list(suppliesFolder), [&root](const std::string& name) {
        const auto folder = std::string(suppliesFolder).append(name);
        const auto type = root.readText(folder + "/type").value_or("");
        // USB_PD, USB_C and the like are kinds of their own on older kernels.
        const bool isSupply = type == "Mains" || type.starts_with("USB") || type == "Wireless";
        return isSupply && root.readText(folder + "/scope") != "Device" &&
               root.readUnsigned(folder + "/online").value_or(0) > 0;
    });
}

std::optional<BatteryState> BatteryReader::read() {
    if (const auto now = changes_->generation(); now != generation_) {
        generation_ = now;
        batteries_.clear();
        for (auto& folder : findBatteries(root_))
            batteries_.push_back({folder, KeptFile(root_.path(folder + "/uevent"))});
    }
    std::vector<BatteryFacts> facts;
    for (Battery& battery : batteries_)
        if (const auto told = factsOf(battery)) facts.push_back(*told);
    if (facts.empty()) return std::nullopt;
    auto state = mergeBatteries(facts);
    state.powersMachine = state.powersMachine && !isSupplyOnline(root_);
    return state;
}

std::optional<BatteryFacts> BatteryReader::factsOf(Battery& battery) const {
    const auto events = battery.events.read(longestEvents);
    if (events && events->find("POWER_SUPPLY_STATUS=") != std::string_view::npos)
        return parseBatteryFacts(*events);
    const auto each = readEach(battery.folder);
    return each.empty() ? std::nullopt : std::optional(parseBatteryFacts(each));
}

std::string BatteryReader::readEach(const std::string& folder) const {
    std::string text;
    for (const auto& [file, key] : figures) {
        const auto value = root_.readHead(folder + "/" + file, shortFile);
        if (!value || !value->ends_with('\n')) continue;
        text.append("POWER_SUPPLY_")
            .append(key)
            .append("=")
            .append(value->substr(0, value->find('\n') + 1));
    }
    return text;
}

}  // namespace vtx
