// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/LinuxRoot.h"
#include "platform/linux/SensorRole.h"

namespace vtx {

/// A thermal zone of the kernel.
struct ThermalZone {
    std::string folder;  ///< where it stands, every link followed
    std::string type;    ///< as firmware calls it; may be empty
    ZoneCooling cooling = ZoneCooling::none;
};

/// The zone in a folder; its `type` is empty where there is none.
[[nodiscard]] ThermalZone thermalZoneAt(const LinuxRoot& root, std::string folder);

/// All zones of /sys/class/thermal.
[[nodiscard]] std::vector<ThermalZone> thermalZones(const LinuxRoot& root);

}  // namespace vtx
