// SPDX-License-Identifier: MIT
#include "telemetry/GPUMonitor.h"

#include <utility>

#include "base/Log.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

constexpr Logger logger{"GPUMonitor"};

}  // namespace

GPUMonitor::GPUMonitor(const Ports& ports, Executor& engineExecutor)
    : engine_(engineExecutor, std::make_shared<GPUMonitorEngine>(ports.ioRegistry, ports.clock)) {}

Task<> GPUMonitor::refresh() {
    const auto reading = co_await engine_.run(&GPUMonitorEngine::sample);
    if (reading) {
        latest = reading;
        if (!*isAvailable) isAvailable = true;
    } else if (!hasSampledOnce_) {
        isAvailable = false;
        logger.error("GPU PerformanceStatistics unavailable; disabling GPU tile");
    }
    hasSampledOnce_ = true;
}

}  // namespace vtx
