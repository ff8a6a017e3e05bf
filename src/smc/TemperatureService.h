// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Published.h"
#include "smc/CPUTemperatureSmoother.h"
#include "smc/TemperatureReading.h"

namespace vtx {

/// Where a reading came from.
enum class SensorSource { smc, iohid };

/// The one object that is asked for temperatures. Takes a reading from the SMC or, where that has
/// none, from the sensors of the event system, smooths the processor's and publishes it. Lives on
/// the main executor; made once at start and owned by the coordinator.
class TemperatureService : public ObservableObject {
public:
    /// Takes the first reading. `SharedSensors` must have been made.
    TemperatureService();

    /// Takes one reading and publishes it, if there is one: without any, the last one stays.
    void refresh();

    /// Absent until there was a reading. Never cleared, however old it grows.
    Published<std::optional<TemperatureReading>> latest{*this};

    /// Of the last reading; absent before the first.
    [[nodiscard]] std::optional<SensorSource> lastSource() const { return lastSource_; }

private:
    CPUTemperatureSmoother smoother_;
    std::optional<SensorSource> lastSource_;
};

}  // namespace vtx
