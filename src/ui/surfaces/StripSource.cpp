// SPDX-License-Identifier: MIT
#include "ui/surfaces/StripSource.h"

#include "core/MetricsCoordinator.h"

namespace vtx {

StripReadings stripReadingsOf(const MetricsCoordinator& coordinator) {
    StripReadings readings;
    if (const auto& cpu = *coordinator.cpu.latest) readings.cpuUsage = cpu->totalUsage;
    readings.isGPUAvailable = *coordinator.gpu.isAvailable;
    if (const auto& gpu = *coordinator.gpu.latest) readings.gpuUtilization = gpu->deviceUtilization;
    readings.criticalMetric = *coordinator.criticalMetric;
    return readings;
}

Subscriptions followStripReadings(MetricsCoordinator& coordinator,
                                  const std::function<void()>& follow) {
    const auto changed = [follow](const auto&) { follow(); };
    Subscriptions tokens;
    tokens.push_back(coordinator.cpu.latest.subscribe(changed));
    tokens.push_back(coordinator.gpu.latest.subscribe(changed));
    tokens.push_back(coordinator.gpu.isAvailable.subscribe(changed));
    tokens.push_back(coordinator.preferences.subscribe(changed));
    tokens.push_back(coordinator.criticalMetric.subscribe(changed));
    return tokens;
}

}  // namespace vtx
