// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"
#include "platform/linux/BatteryGauge.h"

namespace vtx {

/// The power sources as the gauge has them, so that no firmware is waited for here: "Battery Power"
/// while a battery of the machine itself discharges and no mains or USB supply is online, else "AC
/// Power". Batteries of mice, pens and headsets (scope "Device") do not count. The one source of
/// the list is the machine's batteries taken as one; without a battery the list is empty. Main
/// executor; owned by the platform.
class LinuxPowerSources final : public PowerSources {
public:
    explicit LinuxPowerSources(BatteryGauge& gauge) : gauge_(gauge) {}

    /// Never null.
    [[nodiscard]] std::unique_ptr<PowerSourcesInfo> copyPowerSourcesInfo() override;

private:
    BatteryGauge& gauge_;
};

}  // namespace vtx
