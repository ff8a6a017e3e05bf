// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "base/Confined.h"
#include "base/Published.h"
#include "telemetry/GPUMonitorEngine.h"

namespace vtx {

struct Ports;

/// Publishes the load of the graphics processor. Lives on the main executor; made once at start and
/// owned by the composition root for the life of the process.
class GPUMonitor : public ObservableObject {
public:
    /// `engineExecutor` runs the engine's steps; it and the ports must outlive the monitor.
    GPUMonitor(const Ports& ports, Executor& engineExecutor);

    /// Takes one reading and publishes it, if there is one. Never fails: a step that gives nothing
    /// leaves the last reading.
    Task<> refresh();

    /// Absent until a reading was taken; never absent again after that.
    Published<std::optional<GPUStats>> latest{*this};

    /// Whether the machine tells the load: assumed until the very first attempt gave nothing, and
    /// again from the first reading on, for good.
    Published<bool> isAvailable{*this, true};

private:
    Confined<GPUMonitorEngine> engine_;
    bool hasSampledOnce_ = false;
};

}  // namespace vtx
