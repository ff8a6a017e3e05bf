// SPDX-License-Identifier: MIT
#pragma once

#include "base/Executors.h"
#include "memory/MemoryMonitor.h"
#include "memory/MemoryPressureService.h"
#include "platform/Ports.h"
#include "processes/ProcessManager.h"
#include "telemetry/ANEMonitor.h"
#include "telemetry/CPUMonitor.h"
#include "telemetry/GPUMonitor.h"

namespace vtx {

/// Every monitor and service, made in the order of the members. Made by the menu-bar controller and
/// owned by the coordinator from then on.
struct Services {
    /// The ports and executors must outlive the services.
    Services(const Ports& ports, const Executors& executors)
        : cpu(ports, executors),
          gpu(ports, executors.tick),
          memory(ports, executors),
          processes(ports, executors),
          memoryPressure(ports, executors),
          ane(ports) {}

    CPUMonitor cpu;
    GPUMonitor gpu;
    MemoryMonitor memory;
    ProcessManager processes;
    MemoryPressureService memoryPressure;
    ANEMonitor ane;
};

}  // namespace vtx
