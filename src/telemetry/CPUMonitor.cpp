// SPDX-License-Identifier: MIT
#include "telemetry/CPUMonitor.h"

#include "base/Log.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

constexpr Logger logger{"CPUMonitor"};

}  // namespace

CPUMonitor::CPUMonitor(const Ports& ports, Executor& engineExecutor)
    : layout_(CoreLayout::detect(ports.sysctl, ports.ioRegistry)) {
    if (!layout_) {
        logger.error("CPUMonitor disabled — could not detect core layout (non-Apple-Silicon?)");
        return;
    }
    engine_.emplace(engineExecutor,
                    std::make_shared<CPUMonitorEngine>(ports.hostInfo, ports.clock, *layout_));
    logger.info("CPUMonitor ready — {} P-cores, {} E-cores", layout_->pCoreCount,
                layout_->eCoreCount);
}

Task<> CPUMonitor::refresh() {
    if (!engine_) co_return;
    auto reading = co_await engine_->run(&CPUMonitorEngine::nextSample);
    if (reading) latest = std::move(reading);
}

}  // namespace vtx
