// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedPlatform.h"

#include <utility>

namespace vtx {

SimulatedPlatform::SimulatedPlatform(Clock& time, MacShape shape,
                                     SimulatedUserDefaults::Values settings)
    : clock(time),
      mac(time, std::move(shape)),
      heapRelief(instruments),
      hostInfo(mac.processors, mac.memory, instruments),
      ioRegistry(mac.registry, instruments),
      ioReport(mac.channels, instruments),
      locale(mac, instruments),
      memoryPressure(mac, instruments),
      powerSources(mac, instruments),
      processInfo(mac, instruments),
      processTable(mac.processes, instruments),
      sysctl(mac.processors, mac.memory, instruments),
      userDefaults(std::move(settings)),
      workspace(mac, instruments) {}

Ports SimulatedPlatform::ports() {
    return {clock,  heapRelief,     hostInfo,     ioRegistry,  ioReport,
            locale, memoryPressure, powerSources, processInfo, processTable,
            sysctl, unifiedLog,     userDefaults, workspace};
}

}  // namespace vtx
