// SPDX-License-Identifier: MIT
#include "fan/FanMonitor.h"

#include <utility>

#include "base/Clock.h"
#include "base/Log.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

constexpr Logger logger{"FanMonitor"};

/// No fan behind the index: it stands still and nothing tells that it ever turns.
bool isNoFan(const FanReading& fan) {
    return fan.currentRPM == 0 && fan.targetRPM.value_or(0) == 0 && fan.minRPM.value_or(0) <= 0 &&
           fan.maxRPM.value_or(0) < 1;
}

}  // namespace

FanMonitor::FanMonitor(const Ports& ports)
    : clock_(ports.clock), bridge_(SMCFanBridge::open(ports.smc)) {
    if (!bridge_) logger.standard("SMC fan bridge unavailable — fan stats will stay empty");
}

void FanMonitor::refresh() {
    if (!bridge_) return;
    const int count = bridge_->readFanCount().value_or(0);
    if (count == 0) {
        latest = FanStats::empty();
        return;
    }
    FanStats stats;
    for (int index = 0; index < count; ++index)
        if (const auto fan = readFan(index)) stats.fans.push_back(*fan);
    stats.timestamp = clock_.now();
    latest = std::move(stats);
}

std::optional<FanReading> FanMonitor::readFan(int index) {
    const auto currentRPM = bridge_->readRPM(index, "Ac");
    if (!currentRPM) return std::nullopt;
    const FanReading fan{index, *currentRPM, bridge_->readRPM(index, "Tg"),
                         bridge_->readRPM(index, "Mn"), bridge_->readRPM(index, "Mx")};
    return isNoFan(fan) ? std::nullopt : std::optional(fan);
}

}  // namespace vtx
