// SPDX-License-Identifier: MIT
#include "platform/linux/BatterySource.h"

namespace vtx {
namespace {

/// The registry tells a signed number of 32 bits as an unsigned one.
constexpr std::int64_t lostSign = std::int64_t{1} << 32;

void add(PropertyMap& into, const char* key, const std::optional<std::int64_t>& value) {
    if (value) into.emplace(key, *value);
}

class BatteryNode final : public RegistryNode {
public:
    explicit BatteryNode(BatteryGauge& gauge)
        : RegistryNode("IOService", "AppleSmartBattery"), gauge_(gauge) {}

    [[nodiscard]] bool isThere() override { return gauge_.hasBattery(); }
    [[nodiscard]] std::optional<PropertyMap> properties() override {
        if (!gauge_.hasBattery()) return std::nullopt;
        PropertyMap properties;
        const auto state = gauge_.state();
        if (!state) return properties;
        add(properties, "AppleRawCurrentCapacity", state->currentMAh);
        add(properties, "AppleRawMaxCapacity", state->maxMAh);
        add(properties, "DesignCapacity", state->designMAh);
        add(properties, "CycleCount", state->cycleCount);
        add(properties, "Voltage", state->voltageMV);
        auto amperage = state->amperageMA;
        if (amperage && *amperage < 0) *amperage += lostSign;
        add(properties, "Amperage", amperage);
        add(properties, "Temperature", state->centiCelsius);
        return properties;
    }

private:
    BatteryGauge& gauge_;
};

}  // namespace

BatterySource::BatterySource(BatteryGauge& gauge)
    : gauge_(gauge), node_(std::make_shared<BatteryNode>(gauge)) {}

RegistryNodes BatterySource::services() {
    return gauge_.hasBattery() ? RegistryNodes{node_} : RegistryNodes{};
}

}  // namespace vtx
