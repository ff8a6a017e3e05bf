// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "telemetry/IOReportBridge.h"

namespace vtx {

/// Measures the clocks of both clusters from one step to the next. Owned by `CPUMonitor`; its state
/// belongs to the executor that runs its steps.
class CPUClockMonitorEngine {
public:
    /// Null where the layout has no clock table, or the library or its channels are not there: then
    /// the machine shows no live clocks. Main executor.
    static std::shared_ptr<CPUClockMonitorEngine> make(const CoreLayout& layout);

    CPUClockMonitorEngine(std::shared_ptr<IOReportBridge> bridge,
                          IOReportBridge::Subscription subscription, CoreLayout layout);

    /// The clocks since the step before. Absent at the first step, which sets the baseline, when no
    /// sample could be taken, and when no core ran.
    std::optional<ClusterClockSample> nextSample();

private:
    const std::shared_ptr<IOReportBridge> bridge_;
    const IOReportBridge::Subscription subscription_;
    const CoreLayout layout_;
    IOReportDictionaryOwner lastSample_;
};

}  // namespace vtx
