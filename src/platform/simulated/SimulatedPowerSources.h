// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// The power sources of the simulated machine. Main executor.
class SimulatedPowerSources final : public PowerSources {
public:
    SimulatedPowerSources(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] std::unique_ptr<PowerSourcesInfo> copyPowerSourcesInfo() override;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
};

}  // namespace vtx
