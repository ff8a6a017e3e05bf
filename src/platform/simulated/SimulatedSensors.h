// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/simulated/SimulatedHIDSensors.h"
#include "platform/simulated/SimulatedSMC.h"
#include "platform/simulated/SimulatedThermals.h"

namespace vtx {

struct MacShape;

/// The sensors and fans that a machine of some shape has, over the warmth of its parts.
namespace sensors {

/// Fills the SMC: sensors at each core and of the chip, among them the hot spots of the shape;
/// fans; the battery; keys that look like a core's sensor and are none; and as many other keys, of
/// every type and size, as the shape says there are. A machine without an SMC gets none.
void install(SimulatedSMC& smc, SimulatedThermals& thermals, const MacShape& shape);

/// Adds a sensor for each core, and others that say nothing of the processor.
void install(SimulatedHIDSensors& hid, SimulatedThermals& thermals, const MacShape& shape);

/// The keys of the processor's sensors, hot spots included, in ascending order.
[[nodiscard]] std::vector<std::string> cpuKeys(const MacShape& shape);

}  // namespace sensors
}  // namespace vtx
