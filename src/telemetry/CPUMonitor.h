// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Confined.h"
#include "base/Published.h"
#include "telemetry/CPUClockMonitorEngine.h"
#include "telemetry/CPUMonitorEngine.h"

namespace vtx {

struct Executors;
struct Ports;

/// Publishes the load of the processor and, where the machine counts them, the clocks of its
/// clusters. Lives on the main executor; made once at start and owned by
/// the composition root for the life of the process.
class CPUMonitor : public ObservableObject {
public:
    /// Detects the layout. A machine that tells none leaves the monitor disabled for good. The
    /// ports and executors must outlive the monitor.
    CPUMonitor(const Ports& ports, const Executors& executors);

    /// Takes one sample of loads and, beside it, one of clocks, and publishes the reading, if there
    /// is one: with its clocks where they could be measured. Never fails: a step that gives no
    /// loads leaves the last reading.
    Task<> refresh();

    /// Absent until two samples were taken; never absent again after that.
    Published<std::optional<CPUStats>> latest{*this};

    /// Absent where the monitor is disabled.
    [[nodiscard]] const std::optional<CoreLayout>& layout() const { return layout_; }

private:
    Task<std::optional<CPUStats>> nextLoads();
    Task<std::optional<ClusterClockSample>> nextClocks();

    /// Notes which clusters tell a clock, and tells the reading which ever did.
    void noteClocks(CPUStats& reading);

    Executor& main_;
    std::optional<CoreLayout> layout_;
    std::optional<Confined<CPUMonitorEngine>> engine_;
    /// Absent where the machine tells no clocks.
    std::optional<Confined<CPUClockMonitorEngine>> clockEngine_;
    SeenClocks seenClocks_;
};

}  // namespace vtx
