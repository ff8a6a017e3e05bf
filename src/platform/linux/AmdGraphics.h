// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// A graphics device of the driver amdgpu: `gpu_busy_percent` as "Device Utilization %" of
/// "PerformanceStatistics", which are missing while it cannot be read. Shared by the graphics
/// source and by those that hold entries. Any thread.
///
/// Asking a sleeping device wakes it, and asking a device that is awake keeps it so. Therefore one
/// that is suspended answers 0 unasked; one that may suspend itself is left alone after two zeros,
/// for a second longer than it waits before it does so, and counts as idle meanwhile.
class AmdGraphics final : public RegistryNode {
public:
    /// `address` is the device's on the PCI bus, such as "0000:03:00.0".
    AmdGraphics(const LinuxRoot& root, std::string_view address, const Clock& clock);

    [[nodiscard]] bool isThere() override;
    [[nodiscard]] std::optional<PropertyMap> properties() override;

    /// Where a device with that address has its files.
    [[nodiscard]] static std::string folderOf(std::string_view address);

private:
    enum class Power { on, asleep, unknown };

    [[nodiscard]] std::optional<std::uint64_t> busyPercent();
    [[nodiscard]] Power power();
    [[nodiscard]] std::optional<std::uint64_t> readBusy();
    void leaveAlone();
    /// How long it stays awake unused; absent where it never suspends itself.
    [[nodiscard]] std::optional<Duration> autosuspendDelay();

    const LinuxRoot& root_;
    const Clock& clock_;
    const std::string address_;
    const std::string folder_;
    const bool hasRuntimePower_;  ///< without it the kernel never suspends a device

    std::mutex mutex_;  ///< of all below
    KeptFile busy_;
    KeptFile status_;
    int zeros_ = 0;                      ///< in a row
    std::optional<Instant> aloneUntil_;  ///< absent while it is asked
};

}  // namespace vtx
