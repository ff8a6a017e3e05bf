// SPDX-License-Identifier: MIT
#include "telemetry/CPUMonitor.h"

#include <utility>

#include "base/Executors.h"
#include "base/Log.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

constexpr Logger logger{"CPUMonitor"};

}  // namespace

CPUMonitor::CPUMonitor(const Ports& ports, const Executors& executors)
    : main_(executors.main), layout_(CoreLayout::detect(ports.sysctl, ports.ioRegistry)) {
    if (!layout_) {
        logger.error("CPUMonitor disabled — could not detect core layout (non-Apple-Silicon?)");
        return;
    }
    engine_.emplace(executors.tick,
                    std::make_shared<CPUMonitorEngine>(ports.hostInfo, ports.clock, *layout_));
    if (auto clockEngine = CPUClockMonitorEngine::make(*layout_))
        clockEngine_.emplace(executors.tick, std::move(clockEngine));
    logger.info("CPUMonitor ready — {} P-cores, {} E-cores", layout_->pCoreCount,
                layout_->eCoreCount);
}

Task<> CPUMonitor::refresh() {
    if (!engine_) co_return;
    auto loads = nextLoads();
    auto clocks = nextClocks();
    loads.start(main_);
    clocks.start(main_);
    auto reading = co_await loads;
    // Awaited in any case, so that both engines stand at the same step when a pass ends.
    const auto clock = co_await clocks;
    if (!reading) co_return;
    if (clock) {
        reading->pCoreCurrentFrequencyMHz = clock->pCoreMHz;
        reading->eCoreCurrentFrequencyMHz = clock->eCoreMHz;
        reading->timestamp = clock->timestamp;
    }
    noteClocks(*reading);
    latest = std::move(reading);
}

void CPUMonitor::noteClocks(CPUStats& reading) {
    seenClocks_.pCore = seenClocks_.pCore || reading.pCoreCurrentFrequencyMHz.has_value();
    seenClocks_.eCore = seenClocks_.eCore || reading.eCoreCurrentFrequencyMHz.has_value();
    reading.seenClocks = seenClocks_;
}

Task<std::optional<CPUStats>> CPUMonitor::nextLoads() {
    co_return co_await engine_->run(&CPUMonitorEngine::nextSample);
}

Task<std::optional<ClusterClockSample>> CPUMonitor::nextClocks() {
    if (!clockEngine_) co_return std::nullopt;
    co_return co_await clockEngine_->run(&CPUClockMonitorEngine::nextSample);
}

}  // namespace vtx
