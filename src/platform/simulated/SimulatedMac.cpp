// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMac.h"

#include <utility>

#include "platform/IORegistry.h"
#include "platform/simulated/SimulatedDevices.h"

namespace vtx {
namespace {

constexpr std::string_view acceleratorClass = "IOAccelerator";

}  // namespace

SimulatedMac::SimulatedMac(Clock& clock, MacShape shape)
    : processors(clock, std::move(shape)),
      graphics(clock),
      memory(clock),
      processes(clock, processors) {
    devices::install(registry, processors.shape());
    if (processors.shape().hasAccelerator) addAccelerator();
    channels.addSource([this] { return devices::coreStates(processors); });
    channels.addSource(devices::energyCounters);
}

void SimulatedMac::live(std::uint64_t seed) {
    processors.live(seed);
    graphics.live(seed);
    memory.live(seed);
    processes.live(seed);
}

SimulatedRegistry::Node SimulatedMac::addAccelerator() {
    const auto node =
        registry.add(registry.root(planes::service), "AGXAccelerator", acceleratorClass);
    registry.setSource(node, "PerformanceStatistics",
                       [this] { return Property(graphics.performanceStatistics()); });
    return node;
}

std::vector<SimulatedRegistry::Node> SimulatedMac::accelerators() const {
    return registry.ofClass(acceleratorClass);
}

void SimulatedMac::setLowPowerMode(bool enabled) {
    if (std::exchange(isLowPowerMode_, enabled) != enabled) powerStateDidChange.emit();
}

void SimulatedMac::sleep() {
    if (std::exchange(isAsleep_, true)) return;
    willSleep.emit();
    processors.setAsleep(true);
    processes.setAsleep(true);
}

void SimulatedMac::wake() {
    if (!std::exchange(isAsleep_, false)) return;
    processors.setAsleep(false);
    processes.setAsleep(false);
    didWake.emit();
}

}  // namespace vtx
