// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// One whole disk, as the kernel lists it.
struct BlockDevice {
    std::string name;                    ///< "nvme0n1", "sda"
    std::optional<std::string> product;  ///< the model; absent where the device tells none
    /// The kernel's number of this disk, never given again; empty before Linux 5.15.
    std::string sequence;
    /// The hidden disks by whose ways this one is reached, where it is a multipath one of NVMe.
    std::vector<std::string> paths;

    friend bool operator==(const BlockDevice&, const BlockDevice&) = default;
};

/// Whether the name is one of a disk of its own: not of a device made of files, memory or other
/// disks (loop, ram, zram, dm, md, bcache, zd), not of one that is elsewhere (nbd, drbd), not of a
/// boot partition of a memory card, and not of one of the ways to an NVMe disk.
[[nodiscard]] bool isWholeDisk(std::string_view name);

/// The disk to which a way "nvme0c1n1" leads: "nvme0n1". Absent for every other name.
[[nodiscard]] std::optional<std::string> multipathDisk(std::string_view name);

/// The whole disks in /sys/block that are not hidden, by name.
[[nodiscard]] std::vector<BlockDevice> listBlockDevices(const LinuxRoot& root);

}  // namespace vtx
