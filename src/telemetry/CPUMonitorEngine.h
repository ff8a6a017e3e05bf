// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "telemetry/CPUStats.h"

namespace vtx {

class Clock;
class HostInfo;

/// Reads the kernel's tick counters and makes readings of them. Owned by `CPUMonitor`; its state
/// belongs to the executor that runs its steps.
class CPUMonitorEngine {
public:
    /// The ports must outlive the engine.
    CPUMonitorEngine(HostInfo& hostInfo, Clock& clock, CoreLayout layout);

    /// The load since the step before. Absent at the first step, which sets the baseline, when the
    /// counters could not be read, and when the number of processors is not the layout's.
    std::optional<CPUStats> nextSample();

private:
    [[nodiscard]] std::optional<RawCPUSample> readRawSample();

    HostInfo& hostInfo_;
    Clock& clock_;
    const CoreLayout layout_;
    std::optional<RawCPUSample> lastSample_;
};

}  // namespace vtx
