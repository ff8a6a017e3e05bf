// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HIDEventSystem.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedHIDSensors.h"

namespace vtx {

/// The event system over the simulated machine's sensors. A client that is not matched to the
/// temperature sensors gets no services. Any thread.
class SimulatedHIDEventSystem final : public HIDEventSystem {
public:
    SimulatedHIDEventSystem(SimulatedHIDSensors& sensors, Instruments& instruments)
        : sensors_(sensors), instruments_(instruments) {}

    [[nodiscard]] std::unique_ptr<HIDEventFunctions> open(int mode) override;

private:
    SimulatedHIDSensors& sensors_;
    Instruments& instruments_;
};

}  // namespace vtx
