// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedPlatform.h"

#include <utility>

namespace vtx {

SimulatedPlatform::SimulatedPlatform(Clock& time, MacShape shape,
                                     SimulatedUserDefaults::Values settings)
    : clock(time),
      mac(time, std::move(shape)),
      appService(instruments),
      hidEventSystem(mac.hidSensors, instruments),
      heapRelief(instruments),
      hostInfo(mac.processors, mac.memory, instruments),
      ioRegistry(mac.registry, instruments),
      ioReport(mac.channels, instruments),
      locale(mac, instruments),
      memoryPressure(mac, instruments),
      networkInterfaces(mac.network, instruments),
      powerSources(mac, instruments),
      processInfo(mac, instruments),
      smc(mac.smc, instruments),
      processTable(mac.processes, instruments),
      sysctl(mac.processors, mac.memory, instruments),
      thermalState(mac, instruments),
      userDefaults(std::move(settings)),
      userNotifications(instruments),
      workspace(mac, instruments) {}

Ports SimulatedPlatform::ports() {
    return {
        .appService = appService,
        .clock = clock,
        .heapRelief = heapRelief,
        .hidEventSystem = hidEventSystem,
        .hostInfo = hostInfo,
        .ioRegistry = ioRegistry,
        .ioReport = ioReport,
        .locale = locale,
        .memoryPressure = memoryPressure,
        .networkInterfaces = networkInterfaces,
        .powerSources = powerSources,
        .processInfo = processInfo,
        .processTable = processTable,
        .smc = otherSMC ? *otherSMC : smc,
        .softwareUpdater = softwareUpdater,
        .sysctl = sysctl,
        .thermalState = thermalState,
        .unifiedLog = unifiedLog,
        .userDefaults = userDefaults,
        .userNotifications = userNotifications,
        .workspace = workspace,
    };
}

}  // namespace vtx
