// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include <vector>

namespace vtx {
namespace {

constexpr std::string_view folder = "/sys/class/power_supply/";

PropertyMap describe(const BatteryState& state) {
    PropertyMap description{{"Name", "Battery"}};
    if (state.percent) {
        description.emplace("Current Capacity", *state.percent);
        description.emplace("Max Capacity", 100);
    }
    if (state.isCharging) description.emplace("Is Charging", *state.isCharging);
    // Below zero is what the service says while it does not know.
    description.emplace("Time to Full Charge", state.minutesToFull.value_or(-1));
    description.emplace("Time to Empty", state.minutesToEmpty.value_or(-1));
    return description;
}

/// Whoever asks for the type alone does not ask the batteries.
class Snapshot final : public PowerSourcesInfo {
public:
    Snapshot(std::string type, BatteryGauge& gauge) : type_(std::move(type)), gauge_(gauge) {}

    [[nodiscard]] std::optional<std::string> providingPowerSourceType() const override {
        return type_;
    }
    [[nodiscard]] std::optional<std::size_t> powerSourceCount() const override {
        return gauge_.hasBattery() ? 1 : 0;
    }
    [[nodiscard]] PropertyView powerSourceDescription(std::size_t index) const override {
        if (index != 0) return {};
        if (!description_ && gauge_.hasBattery())
            if (const auto state = gauge_.state()) description_ = describe(*state);
        return description_ ? PropertyView(*description_) : PropertyView();
    }

private:
    std::string type_;
    BatteryGauge& gauge_;
    mutable std::optional<Property> description_;  ///< once somebody asked
};

bool isOnBattery(const LinuxRoot& root) {
    std::vector<std::string> batteries;
    for (const auto& name : root.list(folder)) {
        const std::string supply = std::string(folder) + name;
        const auto type = root.readText(supply + "/type").value_or("");
        if (root.readText(supply + "/scope") == "Device") continue;
        if (type == "Battery") batteries.push_back(supply);
        // USB_PD, USB_C and the like are kinds of their own on older kernels.
        const bool isSupply = type == "Mains" || type.starts_with("USB") || type == "Wireless";
        if (isSupply && root.readUnsigned(supply + "/online").value_or(0) > 0) return false;
    }
    for (const auto& battery : batteries) {
        if (root.readText(battery + "/status") == "Discharging") return true;
    }
    return false;
}

}  // namespace

std::unique_ptr<PowerSourcesInfo> LinuxPowerSources::copyPowerSourcesInfo() {
    return std::make_unique<Snapshot>(isOnBattery(root_) ? "Battery Power" : "AC Power", gauge_);
}

}  // namespace vtx
