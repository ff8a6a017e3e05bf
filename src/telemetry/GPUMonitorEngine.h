// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "platform/RegistryObject.h"
#include "telemetry/GPUStats.h"

namespace vtx {

class Clock;
class IORegistry;

/// Reads the load that the graphics driver keeps in the registry. Remembers the accelerator that
/// answered and looks for another one when that goes stale. Owned by `GPUMonitor`; its state
/// belongs to the executor that runs its steps.
class GPUMonitorEngine {
public:
    /// The ports must outlive the engine.
    GPUMonitorEngine(IORegistry& registry, const Clock& clock)
        : registry_(registry), clock_(clock) {}

    /// The load now; absent where no accelerator tells one.
    std::optional<GPUStats> sample();

    /// What one accelerator tells; absent without its overall load.
    [[nodiscard]] std::optional<GPUStats> readStats(const RegistryEntry& from);

private:
    std::optional<GPUStats> findAccelerator();

    IORegistry& registry_;
    const Clock& clock_;
    RegistryEntry cachedEntry_;
};

}  // namespace vtx
