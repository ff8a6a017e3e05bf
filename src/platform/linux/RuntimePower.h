// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/Date.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// Whether the kernel has put a device to sleep while the machine runs, and when it would: the
/// files of the device's folder "power". Reading them wakes nothing and never blocks. Owns all that
/// it uses. One thread at a time.
class RuntimePower {
public:
    enum class State { on, asleep, unknown };

    /// `device` is the device's folder, such as "/sys/bus/pci/devices/0000:03:00.0".
    RuntimePower(LinuxRoot root, const std::string& device);

    /// By `runtime_status`. A device on the way to sleep or out of it counts as asleep.
    [[nodiscard]] State state();
    /// How long the device stays awake unused; absent where it never suspends itself.
    [[nodiscard]] std::optional<Duration> autosuspendDelay() const;

private:
    LinuxRoot root_;
    std::string folder_;
    bool isManaged_;  ///< without such files the kernel never suspends a device
    KeptFile status_;
};

}  // namespace vtx
