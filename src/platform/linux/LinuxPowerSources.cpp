// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include <vector>

namespace vtx {
namespace {

constexpr std::string_view folder = "/sys/class/power_supply/";

class Snapshot final : public PowerSourcesInfo {
public:
    explicit Snapshot(std::string type) : type_(std::move(type)) {}
    [[nodiscard]] std::optional<std::string> providingPowerSourceType() const override {
        return type_;
    }

private:
    std::string type_;
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
    return std::make_unique<Snapshot>(isOnBattery(root_) ? "Battery Power" : "AC Power");
}

}  // namespace vtx
