// SPDX-License-Identifier: MIT
#include "smc/TemperatureService.h"

#include <utility>

#include "smc/IOHIDBridge.h"
#include "smc/SMCBridge.h"

namespace vtx {
namespace {

using Sourced = std::pair<SensorSource, TemperatureReading>;

std::optional<Sourced> takeReading() {
    if (auto* const smc = SMCBridge::shared())
        if (const auto reading = smc->readTemperatureReading())
            return Sourced(SensorSource::smc, *reading);
    if (auto* const hid = IOHIDBridge::shared())
        return Sourced(SensorSource::iohid, hid->readTemperatureReading());
    return std::nullopt;
}

}  // namespace

TemperatureService::TemperatureService() { refresh(); }

void TemperatureService::refresh() {
    auto taken = takeReading();
    if (!taken) return;
    auto& [source, reading] = *taken;
    if (lastSource_ && *lastSource_ != source) smoother_.clear();
    lastSource_ = source;
    if (reading.cpuMaxC)
        reading.cpuMaxC = smoother_.push(*reading.cpuMaxC);
    else
        smoother_.clear();
    latest = reading;
}

}  // namespace vtx
