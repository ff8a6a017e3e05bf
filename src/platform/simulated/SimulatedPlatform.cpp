// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedPlatform.h"

#include <utility>

namespace vtx {

SimulatedPlatform::SimulatedPlatform(Clock& time, MacShape shape,
                                     SimulatedUserDefaults::Values settings)
    : clock(time),
      mac(time, std::move(shape)),
      hidEventSystem(mac.hidSensors, instruments),
      hostInfo(mac.processors, instruments),
      ioRegistry(mac.registry, instruments),
      ioReport(mac.channels, instruments),
      locale(mac, instruments),
      networkInterfaces(mac.network, instruments),
      powerSources(mac, instruments),
      processInfo(mac, instruments),
      smc(mac.smc, instruments),
      sysctl(mac.processors, instruments),
      userDefaults(std::move(settings)),
      workspace(mac, instruments) {}

Ports SimulatedPlatform::ports() {
    return {
        .clock = clock,
        .hidEventSystem = hidEventSystem,
        .hostInfo = hostInfo,
        .ioRegistry = ioRegistry,
        .ioReport = ioReport,
        .locale = locale,
        .networkInterfaces = networkInterfaces,
        .powerSources = powerSources,
        .processInfo = processInfo,
        .smc = smc,
        .sysctl = sysctl,
        .unifiedLog = unifiedLog,
        .userDefaults = userDefaults,
        .workspace = workspace,
    };
}

}  // namespace vtx
