// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string_view>

#include "platform/linux/ArrivalCheck.h"
#include "platform/linux/FileDescriptor.h"

namespace vtx {

/// Tells whether devices came or went, so that nobody looks for them without a reason.
class DeviceChanges {
public:
    DeviceChanges() = default;
    DeviceChanges(const DeviceChanges&) = delete;
    DeviceChanges& operator=(const DeviceChanges&) = delete;
    virtual ~DeviceChanges() = default;

    /// Another number than before when devices may have changed meanwhile; never 0. Ask before
    /// looking, so that what changes while looking is found the next time. Any thread.
    [[nodiscard]] virtual std::uint64_t generation() = 0;
};

/// Whether an announcement of the kernel, "add@/devices/..." and lines behind it, is of a device or
/// a driver that came or went.
[[nodiscard]] bool announcesDeviceChange(std::string_view message);

/// By the announcements of the kernel, which wait in a socket until somebody asks: they wake
/// nobody. The socket is looked into at most ten times a second. Where too many waited some are
/// lost, which counts as a change. Where the kernel refuses the socket nothing ever changes.
class KernelDeviceChanges final : public DeviceChanges {
public:
    [[nodiscard]] std::uint64_t generation() override;

private:
    [[nodiscard]] bool isTimeToLook();
    [[nodiscard]] bool takeAnnouncements();

    std::mutex mutex_;  ///< of all below
    FileDescriptor socket_;
    ArrivalCheck arrivals_;                ///< in the socket, as long as there is one
    std::uint64_t generation_ = 0;         ///< 0 before the first call
    std::chrono::nanoseconds lookedAt_{};  ///< since the machine started
};

}  // namespace vtx
