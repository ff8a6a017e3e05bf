// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Confined.h"
#include "base/Published.h"
#include "telemetry/CPUMonitorEngine.h"

namespace vtx {

struct Ports;

/// Publishes the load of the processor. Lives on the main executor; made once at start and owned by
/// the composition root for the life of the process.
class CPUMonitor : public ObservableObject {
public:
    /// Detects the layout. A machine that tells none leaves the monitor disabled for good.
    /// `engineExecutor` runs the engine's steps; it and the ports must outlive the monitor.
    CPUMonitor(const Ports& ports, Executor& engineExecutor);

    /// Takes one sample and publishes the reading, if there is one. Never fails: a step that gives
    /// nothing leaves the last reading.
    Task<> refresh();

    /// Absent until two samples were taken; never absent again after that.
    Published<std::optional<CPUStats>> latest{*this};

    /// Absent where the monitor is disabled.
    [[nodiscard]] const std::optional<CoreLayout>& layout() const { return layout_; }

private:
    std::optional<CoreLayout> layout_;
    std::optional<Confined<CPUMonitorEngine>> engine_;
};

}  // namespace vtx
