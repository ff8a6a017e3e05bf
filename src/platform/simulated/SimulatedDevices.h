// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/simulated/SimulatedChannels.h"
#include "platform/simulated/SimulatedProcessors.h"
#include "platform/simulated/SimulatedRegistry.h"

/// What the firmware and the chip of a machine of some shape tell of it.
namespace vtx::devices {

/// Adds the processors to the device tree, and the power manager with its clock tables to the
/// services. A machine without performance levels has neither.
void install(SimulatedRegistry& registry, const MacShape& shape);

/// The time that each core spent in each performance state: off, idle, and one for each step of its
/// clock table.
std::vector<SimulatedChannel> coreStates(SimulatedProcessors& processors);

/// The energy counters. They stand: nothing draws power in memory.
std::vector<SimulatedChannel> energyCounters();

}  // namespace vtx::devices
