// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include <optional>

namespace vtx {
namespace {

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

class Snapshot final : public PowerSourcesInfo {
public:
    explicit Snapshot(BatteryGauge& gauge) : hasBattery_(gauge.hasBattery()) {
        const auto state = hasBattery_ ? gauge.state() : std::nullopt;
        if (!state) return;
        powersMachine_ = state->powersMachine;
        description_ = describe(*state);
    }

    [[nodiscard]] std::optional<std::string> providingPowerSourceType() const override {
        return powersMachine_ ? "Battery Power" : "AC Power";
    }
    [[nodiscard]] std::optional<std::size_t> powerSourceCount() const override {
        return hasBattery_ ? 1 : 0;
    }
    [[nodiscard]] PropertyView powerSourceDescription(std::size_t index) const override {
        return index == 0 && description_ ? PropertyView(*description_) : PropertyView();
    }

private:
    bool hasBattery_;
    bool powersMachine_ = false;
    std::optional<Property> description_;  ///< absent where no battery answers
};

}  // namespace

std::unique_ptr<PowerSourcesInfo> LinuxPowerSources::copyPowerSourcesInfo() {
    return std::make_unique<Snapshot>(gauge_);
}

}  // namespace vtx
