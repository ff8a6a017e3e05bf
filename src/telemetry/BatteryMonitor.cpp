// SPDX-License-Identifier: MIT
#include "telemetry/BatteryMonitor.h"

#include "base/Clock.h"
#include "platform/IORegistry.h"
#include "platform/Ports.h"
#include "platform/PowerSources.h"

namespace vtx {
namespace {

RegistryEntry findBattery(IORegistry& registry) {
    const auto match = registry.serviceMatching("AppleSmartBattery");
    return match ? registry.getMatchingService(*match) : RegistryEntry{};
}

/// The first source alone; the machine's type stands apart.
PowerSourceFigures firstSource(const PowerSourcesInfo& info) {
    PowerSourceFigures figures;
    if (info.powerSourceCount().value_or(0) == 0) return figures;
    const PropertyView description = info.powerSourceDescription(0);
    figures.currentCapacity = description["Current Capacity"].number();
    figures.maxCapacity = description["Max Capacity"].number();
    figures.isCharging = description["Is Charging"].flag();
    figures.minutesToFull = description["Time to Full Charge"].number();
    figures.minutesToEmpty = description["Time to Empty"].number();
    return figures;
}

}  // namespace

BatteryMonitor::BatteryMonitor(const Ports& ports)
    : powerSources_(ports.powerSources),
      registry_(ports.ioRegistry),
      clock_(ports.clock),
      isAvailable_(static_cast<bool>(findBattery(ports.ioRegistry))) {}

void BatteryMonitor::refresh(std::optional<double> temperatureC, bool lowPowerModeEnabled) {
    if (!isAvailable_) return;
    BatteryReading reading = read();
    reading.temperatureC = temperatureC;
    reading.lowPowerModeEnabled = lowPowerModeEnabled;
    reading.timestamp = clock_.now();
    latest = std::move(reading);
}

BatteryReading BatteryMonitor::read() const {
    const auto info = powerSources_.copyPowerSourcesInfo();
    if (!info) return BatteryReading::make({}, readSmartBattery());
    const auto type = info->providingPowerSourceType();
    PowerSourceFigures source = firstSource(*info);
    if (type) source.providingType = *type;
    return BatteryReading::make(source, readSmartBattery());
}

SmartBatteryFigures BatteryMonitor::readSmartBattery() const {
    SmartBatteryFigures figures;
    const auto battery = findBattery(registry_);
    if (!battery) return figures;
    const auto [result, properties] = registry_.entryProperties(battery);
    if (result != kernSuccess) return figures;
    figures.currentCapacityMAh = properties["AppleRawCurrentCapacity"].number();
    figures.maxCapacityMAh = properties["AppleRawMaxCapacity"].number();
    if (!figures.maxCapacityMAh) figures.maxCapacityMAh = properties["MaxCapacity"].number();
    figures.voltageMV = properties["Voltage"].number();
    figures.amperage = properties["Amperage"].number();
    return figures;
}

}  // namespace vtx
