// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/BatteryFacts.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The folders of the machine's own batteries in /sys/class/power_supply: those of mice, pens and
/// headsets (scope "Device") are none of it, nor is an empty slot. May block for some milliseconds.
[[nodiscard]] std::vector<std::string> findBatteries(const LinuxRoot& root);

/// Whether mains, USB or the like feeds the machine itself. May block as well.
[[nodiscard]] bool isSupplyOnline(const LinuxRoot& root);

/// Reads the batteries: all that one tells by one `pread` of its `uevent`, kept open. A driver that
/// fails one of its figures fails that file, and then each figure is read from a file of its own.
/// The supplies are asked only while a battery discharges.
/// Looks for batteries at first and when devices changed. The firmware answers, which may take
/// long; one thread at a time. Owns all that it uses.
class BatteryReader {
public:
    BatteryReader(LinuxRoot root, std::shared_ptr<DeviceChanges> changes)
        : root_(std::move(root)), changes_(std::move(changes)) {}

    /// All taken as one; absent where there is no battery, or none that can be read.
    [[nodiscard]] std::optional<BatteryState> read();

private:
    struct Battery {
        std::string folder;
        KeptFile events;
    };

    [[nodiscard]] std::optional<BatteryFacts> factsOf(Battery& battery) const;
    [[nodiscard]] std::string readEach(const std::string& folder) const;

    const LinuxRoot root_;
    const std::shared_ptr<DeviceChanges> changes_;
    std::uint64_t generation_ = 0;
    std::vector<Battery> batteries_;
};

}  // namespace vtx
