// SPDX-License-Identifier: MIT
#pragma once

#include "base/Executors.h"
#include "fan/FanMonitor.h"
#include "platform/Ports.h"
#include "smc/TemperatureService.h"
#include "telemetry/ANEMonitor.h"
#include "telemetry/CPUMonitor.h"
#include "telemetry/DiskIOMonitor.h"
#include "telemetry/GPUMonitor.h"
#include "telemetry/NetworkMonitor.h"

namespace vtx {

/// Every monitor and service, made in the order of the members. Made by the menu-bar controller and
/// owned by the coordinator from then on.
struct Services {
    /// The ports and executors must outlive the services.
    Services(const Ports& ports, const Executors& executors)
        : cpu(ports, executors),
          gpu(ports, executors.tick),
          network(ports.networkInterfaces, ports.clock),
          diskIO(ports.ioRegistry, ports.clock),
          fan(ports),
          ane(ports) {}

    CPUMonitor cpu;
    GPUMonitor gpu;
    TemperatureService temperature;
    NetworkMonitor network;
    DiskIOMonitor diskIO;
    FanMonitor fan;
    ANEMonitor ane;
};

}  // namespace vtx
