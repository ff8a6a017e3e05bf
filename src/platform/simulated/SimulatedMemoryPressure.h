// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MemoryPressureSource.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// The simulated kernel's word on memory pressure. Main executor.
class SimulatedMemoryPressure final : public MemoryPressureSources {
public:
    SimulatedMemoryPressure(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] std::unique_ptr<MemoryPressureSource> create(std::uint32_t mask) override;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
};

}  // namespace vtx
