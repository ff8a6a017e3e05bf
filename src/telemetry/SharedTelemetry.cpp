// SPDX-License-Identifier: MIT
#include "telemetry/SharedTelemetry.h"

#include "base/Clock.h"
#include "base/Shared.h"
#include "platform/Ports.h"
#include "telemetry/ANEReading.h"
#include "telemetry/IOReportBridge.h"

namespace vtx {

SharedTelemetry::SharedTelemetry(const Ports& ports) {
    Shared<SharedIOReportBridge>::setFactory([&library = ports.ioReport, &clock = ports.clock] {
        return std::make_unique<SharedIOReportBridge>(
            SharedIOReportBridge{IOReportBridge::load(library, clock)});
    });
    Shared<const ANEReading>::setFactory([&clock = ports.clock] {
        return std::make_unique<const ANEReading>(
            ANEReading{std::nullopt, std::nullopt, std::nullopt, clock.now()});
    });
}

SharedTelemetry::~SharedTelemetry() {
    Shared<SharedIOReportBridge>::reset();
    Shared<const ANEReading>::reset();
}

}  // namespace vtx
