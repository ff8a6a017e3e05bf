// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Published.h"
#include "telemetry/BatteryReading.h"

namespace vtx {

class Clock;
class IORegistry;
struct Ports;
class PowerSources;

/// Merges what the power-source service and the battery's registry entry say into one reading.
/// Lives on the main executor; made once at start and owned by the composition root for the life of
/// the process.
class BatteryMonitor : public ObservableObject {
public:
    /// Looks for a battery. The ports must outlive the monitor.
    explicit BatteryMonitor(const Ports& ports);

    /// Whether the machine had a battery at start. Never changes.
    [[nodiscard]] bool isAvailable() const { return isAvailable_; }

    /// Publishes a reading, even where nothing is known of the battery; does nothing on a machine
    /// without one. What the caller knows goes into the reading as it is.
    void refresh(std::optional<double> temperatureC, bool lowPowerModeEnabled);

    /// Absent until the first refresh, and always on a machine without a battery.
    Published<std::optional<BatteryReading>> latest{*this};

private:
    [[nodiscard]] BatteryReading read() const;
    [[nodiscard]] SmartBatteryFigures readSmartBattery() const;

    PowerSources& powerSources_;
    IORegistry& registry_;
    const Clock& clock_;
    const bool isAvailable_;
};

}  // namespace vtx
