// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"
#include "platform/linux/BatteryGauge.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The power sources by /sys/class/power_supply, read with each call: "Battery Power" while a
/// battery of the machine itself discharges and no mains or USB supply is online, else "AC Power".
/// Batteries of mice, pens and headsets (scope "Device") do not count. A battery is asked only when
/// no supply is online, since its driver may take some milliseconds. The one source of the list is
/// the machine's batteries taken as one, as the gauge has them; without a battery the list is
/// empty. Main executor; owned by the platform.
class LinuxPowerSources final : public PowerSources {
public:
    LinuxPowerSources(const LinuxRoot& root, BatteryGauge& gauge) : root_(root), gauge_(gauge) {}

    /// Never null.
    [[nodiscard]] std::unique_ptr<PowerSourcesInfo> copyPowerSourcesInfo() override;

private:
    const LinuxRoot& root_;
    BatteryGauge& gauge_;
};

}  // namespace vtx
