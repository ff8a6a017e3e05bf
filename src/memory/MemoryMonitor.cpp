// SPDX-License-Identifier: MIT
#include "memory/MemoryMonitor.h"

#include "base/Executors.h"
#include "platform/MemoryPressureSource.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;

constexpr std::uint32_t allLevels =
    memoryPressureNormal | memoryPressureWarn | memoryPressureCritical;

/// The worst of the levels that an event names.
Pressure classified(std::uint32_t data) {
    if ((data & memoryPressureCritical) != 0) return Pressure::critical;
    return (data & memoryPressureWarn) != 0 ? Pressure::warning : Pressure::normal;
}

}  // namespace

MemoryMonitor::MemoryMonitor(const Ports& ports, const Executors& executors)
    : engine_(executors.tick, std::make_shared<MemoryMonitorEngine>(ports)) {
    startPressureMonitoring(ports, executors.main);
}

MemoryMonitor::~MemoryMonitor() {
    if (pressureSource_) pressureSource_->cancel();
}

Task<> MemoryMonitor::refresh() {
    auto reading = co_await engine_.run(&MemoryMonitorEngine::sample, *pressure);
    if (reading) latest = std::move(reading);
}

void MemoryMonitor::startPressureMonitoring(const Ports& ports, Executor& main) {
    pressureSource_ = ports.memoryPressure.create(allLevels);
    if (!pressureSource_) return;
    pressureSource_->setEventHandler([weak = std::weak_ptr(self_), &main](std::uint32_t data) {
        main.post([weak, level = classified(data)] {
            if (const auto self = weak.lock()) (*self)->pressure = level;
        });
    });
    pressureSource_->activate();
}

}  // namespace vtx
