// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "platform/linux/GraphicsLoad.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"
#include "platform/linux/RuntimePower.h"

namespace vtx {

/// A graphics device on the PCI bus, named as its driver: the load as "Device Utilization %" of
/// "PerformanceStatistics", which are missing while it is not told, and "PCI Address". Shared by
/// the graphics source and by those that hold entries. Any thread.
///
/// Asking a sleeping device wakes it, and asking one that is awake keeps it so. Therefore one that
/// is suspended answers 0 unasked; one that may suspend itself is left alone after two zeros, for a
/// second longer than it waits before it does so, and counts as idle meanwhile and at the call
/// after, with which the next figure begins. One that drives a display is asked all the same, for
/// it cannot suspend itself, and so is one whose delay is so long that two zeros would have to
/// stand for a busy device.
class GraphicsDevice final : public RegistryNode {
public:
    /// `address` is such as "0000:03:00.0".
    GraphicsDevice(const LinuxRoot& root, const Clock& clock, const std::string& driver,
                   std::string_view address, std::unique_ptr<GraphicsLoad> load);

    /// Whether the device is there and the driver still has it.
    [[nodiscard]] bool isThere() override;
    [[nodiscard]] std::optional<PropertyMap> properties() override;

    /// Where a device with that address has its files.
    [[nodiscard]] static std::string folderOf(std::string_view address);

private:
    [[nodiscard]] GraphicsLoad::Percent busyPercent();
    [[nodiscard]] GraphicsLoad::Percent ask(Instant now);
    void rest(Instant now);
    void letGo();
    [[nodiscard]] bool drivesDisplay() const;

    const LinuxRoot& root_;
    const Clock& clock_;
    const std::string address_;
    const std::string folder_;

    std::mutex mutex_;  ///< of all below
    RuntimePower power_;
    const std::unique_ptr<GraphicsLoad> load_;
    std::optional<Instant> lastCall_;
    int zeros_ = 0;                      ///< in a row
    std::optional<Instant> aloneUntil_;  ///< absent while it is asked
    bool isLetGo_ = false;               ///< since it was asked last
};

}  // namespace vtx
