// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMac.h"

#include <utility>

namespace vtx {

SimulatedMac::SimulatedMac(const Clock& clock, MacShape shape)
    : processors(clock, std::move(shape)) {}

void SimulatedMac::setLowPowerMode(bool enabled) {
    if (std::exchange(isLowPowerMode_, enabled) != enabled) powerStateDidChange.emit();
}

void SimulatedMac::sleep() {
    if (std::exchange(isAsleep_, true)) return;
    willSleep.emit();
    processors.setAsleep(true);
}

void SimulatedMac::wake() {
    if (!std::exchange(isAsleep_, false)) return;
    processors.setAsleep(false);
    didWake.emit();
}

}  // namespace vtx
