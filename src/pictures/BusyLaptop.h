// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "core/MetricsCoordinator.h"

/// Figures of machines that do not exist, for pictures: of every section at once, or of one that is
/// to look different. Each puts them in the place of the coordinator's own. Main executor.
namespace vtx::samples {

/// A laptop at work, its memory in order, on its charger's last hour.
void busyLaptop(MetricsCoordinator& to);

/// Every load in red, its clusters at their full clock.
void fullLoad(MetricsCoordinator& to);
/// That much memory used, of which the pressure says this.
void memoryUsed(MetricsCoordinator& to, double fraction, MemoryStats::Pressure pressure);
/// The names and figures that take the most room.
void extremes(MetricsCoordinator& to);
/// In that state with that charge.
void battery(MetricsCoordinator& to, BatteryReading::ChargingState state, double charge);

}  // namespace vtx::samples
