// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vtx {

/// How a thermal zone keeps its temperature down, as the kernel has bound it.
enum class ZoneCooling {
    none,        ///< no zone, or one that slows no processor
    byFirmware,  ///< slows processors through the firmware: the temperature is the firmware's too
    byClock      ///< slows processors by their clocks
};

/// What a sensor measures, as far as the machine itself says so.
enum class SensorRole {
    processor,         ///< the temperature of a whole processor, by the processor
    processorControl,  ///< the same with an offset meant for the control of fans
    processorPart,     ///< one core or one die of several
    board,             ///< of the processor, by the board's controller
    firmware,          ///< of the processor, by a firmware that tells no sensor
    other              ///< a drive, graphics, the board, or not told
};

/// What is known of a chip as a whole.
struct SensorChip {
    std::string name;  ///< as the kernel calls it: "coretemp", "cpu_thermal"
    ZoneCooling cooling = ZoneCooling::none;
};

/// By the chip and the sensor's label, which is empty where there is none. Pure.
[[nodiscard]] SensorRole roleOf(const SensorChip& chip, std::string_view label);

}  // namespace vtx
