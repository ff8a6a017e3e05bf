// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/AlertsService.h"
#include "base/Executors.h"
#include "core/LoginItemService.h"
#include "fan/FanMonitor.h"
#include "memory/MemoryMonitor.h"
#include "memory/MemoryPressureService.h"
#include "platform/Ports.h"
#include "processes/AppEnergyService.h"
#include "processes/BackgroundHogDetector.h"
#include "processes/ProcessManager.h"
#include "smc/TemperatureService.h"
#include "telemetry/ANEMonitor.h"
#include "telemetry/BatteryMonitor.h"
#include "telemetry/CPUMonitor.h"
#include "telemetry/DiskIOMonitor.h"
#include "telemetry/GPUMonitor.h"
#include "telemetry/NetworkMonitor.h"
#include "telemetry/SystemInfoService.h"
#include "telemetry/ThermalMonitor.h"

namespace vtx {

/// Every monitor and service, made in the order of the members. Made by the menu-bar controller and
/// owned by the coordinator from then on.
struct Services {
    /// The ports and executors must outlive the services.
    Services(const Ports& ports, const Executors& executors)
        : cpu(ports, executors),
          gpu(ports, executors.tick),
          memory(ports, executors),
          thermal(ports),
          network(ports.networkInterfaces, ports.clock),
          battery(ports),
          processes(ports, executors),
          memoryPressure(ports, executors),
          loginItem(ports.appService),
          alerts(ports, executors.main),
          systemInfo(ports),
          diskIO(ports.ioRegistry, ports.clock),
          fan(ports),
          ane(ports),
          appEnergy(ports.processTable, ports.clock),
          hogDetector(ports) {}

    CPUMonitor cpu;
    GPUMonitor gpu;
    MemoryMonitor memory;
    ThermalMonitor thermal;
    TemperatureService temperature;
    NetworkMonitor network;
    BatteryMonitor battery;
    ProcessManager processes;
    MemoryPressureService memoryPressure;
    LoginItemService loginItem;
    AlertsService alerts;
    SystemInfoService systemInfo;
    DiskIOMonitor diskIO;
    FanMonitor fan;
    ANEMonitor ane;
    AppEnergyService appEnergy;
    BackgroundHogDetector hogDetector;
};

}  // namespace vtx
