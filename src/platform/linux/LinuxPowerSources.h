// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The power sources by /sys/class/power_supply, read with each call: "Battery Power" while a
/// battery of the machine itself discharges and no mains or USB supply is online, else "AC Power".
/// Batteries of mice, pens and headsets (scope "Device") do not count. A battery is asked only when
/// no supply is online, since its driver may take some milliseconds. Main executor; owned by the
/// platform.
class LinuxPowerSources final : public PowerSources {
public:
    explicit LinuxPowerSources(const LinuxRoot& root) : root_(root) {}

    /// Never null.
    [[nodiscard]] std::unique_ptr<PowerSourcesInfo> copyPowerSourcesInfo() override;

private:
    const LinuxRoot& root_;
};

}  // namespace vtx
