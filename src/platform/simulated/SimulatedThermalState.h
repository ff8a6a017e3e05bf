// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ThermalState.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// The simulated system's verdict on how hot the machine runs. Main executor.
class SimulatedThermalState final : public ThermalState {
public:
    SimulatedThermalState(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] std::int64_t thermalState() override;
    [[nodiscard]] Subscription onThermalStateDidChange(std::function<void()> handler) override;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
};

}  // namespace vtx
