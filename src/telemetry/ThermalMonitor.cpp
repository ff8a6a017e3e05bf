// SPDX-License-Identifier: MIT
#include "telemetry/ThermalMonitor.h"

#include "base/Clock.h"
#include "base/Log.h"
#include "platform/Ports.h"
#include "platform/ThermalState.h"

namespace vtx {
namespace {

constexpr Logger logger{"ThermalMonitor"};

}  // namespace

ThermalMonitor::ThermalMonitor(const Ports& ports)
    : state_(ports.thermalState), clock_(ports.clock), latest(*this, read()) {
    changes_ = state_.onThermalStateDidChange([this] { thermalStateDidChange(); });
    logger.info("ThermalMonitor ready (initial={})", rawValue(latest->level));
}

void ThermalMonitor::refresh() { latest = read(); }

ThermalStats ThermalMonitor::read() const {
    return {thermalLevelOf(state_.thermalState()), clock_.now()};
}

void ThermalMonitor::thermalStateDidChange() {
    const ThermalStats stats = read();
    latest = stats;
    logger.info("Thermal state → {}", rawValue(stats.level));
}

}  // namespace vtx
