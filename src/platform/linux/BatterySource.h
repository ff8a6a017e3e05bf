// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/linux/BatteryGauge.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The services of the class "AppleSmartBattery": one for all batteries of the machine together, or
/// none. Owned by the registry; the gauge outlives it.
class BatterySource final : public RegistrySource {
public:
    explicit BatterySource(BatteryGauge& gauge);

    [[nodiscard]] std::string_view className() const override { return "AppleSmartBattery"; }
    [[nodiscard]] RegistryNodes services() override;

private:
    BatteryGauge& gauge_;
    const std::shared_ptr<RegistryNode> node_;
};

}  // namespace vtx
