// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "base/Data.h"

namespace vtx {

/// The unit in which a table of clock steps is written. A reader tells it by the magnitude.
enum class StepUnit { hertz, kilohertz, megahertz };

/// A processor's cluster as the power manager lists it.
struct ClusterRecord {
    std::uint8_t table = 0;  ///< number of its table of clock steps
    std::uint8_t tier = 0;   ///< the higher, the faster
};

/// A number of the device tree, such as "cpu-id".
Data encodeDeviceTreeNumber(std::uint32_t value);

/// The table "voltage-states<N>-sram": 8 bytes a step, the frequency and a voltage, which is left
/// at 0. A step that a reader would take for another unit's is written in the unit that says it:
/// whole MHz below 100 MHz, kHz where the hertz do not fit. What is no clock becomes 0.
Data encodeVoltageStates(std::span<const double> stepsMHz, StepUnit unit);

/// The property "acc-clusters": 8 bytes a cluster.
Data encodeClusters(std::span<const ClusterRecord> clusters);

}  // namespace vtx
