// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMac.h"

#include <utility>

#include "platform/IORegistry.h"
#include "platform/simulated/SimulatedDevices.h"
#include "platform/simulated/SimulatedSensors.h"

namespace vtx {
namespace {

constexpr std::string_view acceleratorClass = "IOAccelerator";
constexpr std::string_view batteryClass = "AppleSmartBattery";
/// The graphics' load from which the living machine is called warm.
constexpr double warmLoad = 0.45;

}  // namespace

SimulatedMac::SimulatedMac(Clock& clock, MacShape shape)
    : processors(clock, std::move(shape)),
      graphics(clock),
      memory(clock),
      battery(clock),
      thermals(clock, processors),
      disks(registry, clock),
      network(clock),
      processes(clock, processors) {
    sensors::install(smc, thermals, processors.shape());
    sensors::install(hidSensors, thermals, processors.shape());
    devices::install(registry, processors.shape());
    if (processors.shape().hasAccelerator) addAccelerator();
    disks.attach({"APPLE SSD AP0512R", "disk0"});
    if (processors.shape().hasBattery) addBattery();
    channels.addSource([this] { return devices::coreStates(processors); });
    channels.addSource(devices::energyCounters);
}

void SimulatedMac::live(std::uint64_t seed) {
    processors.live(seed);
    graphics.live(seed);
    disks.live(seed);
    network.live(seed);
    processes.live(seed);
    memory.live(seed);
    if (processors.shape().hasBattery) battery.live();
    isThermalStateLiving_ = true;
}

void SimulatedMac::addBattery() {
    registry.add(registry.root(planes::service), "AppleSmartBattery", batteryClass);
    setBattery(BatteryFigures());
}

void SimulatedMac::setBattery(const BatteryFigures& figures) {
    const auto before = battery.properties();
    battery.set(figures);
    for (const auto node : registry.ofClass(batteryClass)) {
        for (const auto& [key, value] : before) registry.unset(node, key);
        for (const auto& [key, value] : battery.properties())
            registry.setSource(node, key, [this, name = key] {
                const auto now = battery.properties();
                const auto found = now.find(name);
                return found == now.end() ? Property(PropertyList{}) : found->second;
            });
    }
}

SimulatedPower SimulatedMac::power() const {
    const auto drains = battery.isDraining();
    if (!drains) return power_;
    return *drains ? SimulatedPower::battery : SimulatedPower::mains;
}

void SimulatedMac::setThermalState(std::int64_t state) {
    isThermalStateLiving_ = false;
    thermalState_ = state;
    thermalStateDidChange.emit();
}

std::int64_t SimulatedMac::thermalState() const {
    if (!isThermalStateLiving_) return thermalState_;
    return graphics.load().device >= warmLoad ? 1 : 0;
}

SimulatedRegistry::Node SimulatedMac::addAccelerator() {
    const auto node =
        registry.add(registry.root(planes::service), "AGXAccelerator", acceleratorClass);
    registry.setSource(node, "PerformanceStatistics",
                       [this] { return Property(graphics.performanceStatistics()); });
    registry.set(node, "IOClass", "AGXAccelerator");
    const MacShape& shape = processors.shape();
    if (!shape.graphicsName.empty()) registry.set(node, "model", toData(shape.graphicsName + '\0'));
    if (shape.graphicsCores != 0) registry.set(node, "gpu-core-count", shape.graphicsCores);
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
