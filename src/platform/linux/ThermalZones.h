// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/DeviceChanges.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/ThermalTrips.h"

namespace vtx {

/// The thermal zones of /sys/class/thermal against their own trip points: one `pread` of a file
/// kept open for each zone that has any. Zones and trip points are read at first and when devices
/// changed. A zone whose temperature cannot be read, or is none, is passed over; one that is
/// switched off when it is found has no part. Reading may block, since firmware answers for many a
/// zone; one thread at a time. Owns all that it uses.
class ThermalZones {
public:
    ThermalZones(LinuxRoot root, std::shared_ptr<DeviceChanges> changes)
        : root_(std::move(root)), changes_(std::move(changes)) {}

    /// The worst level of all zones, 0 to 3; absent where no zone tells any.
    [[nodiscard]] std::optional<int> level();

    /// Whether there are zones at all, whatever they tell. Does not block.
    [[nodiscard]] static bool areThere(const LinuxRoot& root);

private:
    struct Zone {
        KeptFile temperature;
        ThermalThresholds thresholds;
        int level = 0;
    };

    void find();
    [[nodiscard]] std::vector<TripPoint> tripsOf(const std::string& folder) const;

    const LinuxRoot root_;
    const std::shared_ptr<DeviceChanges> changes_;
    std::uint64_t generation_ = 0;
    std::vector<Zone> zones_;
};

}  // namespace vtx
