// SPDX-License-Identifier: MIT
#include "telemetry/ANEMonitor.h"

#include "base/Log.h"
#include "platform/Ports.h"

namespace vtx {
namespace {

constexpr Logger logger{"ANEMonitor"};

}  // namespace

ANEMonitor::ANEMonitor(const Ports& ports)
    : energyReader_(IOReportEnergyReader::make(ports.ioReport)) {
    // On every machine alike: it marks that sampling is parked, and says nothing of the machine.
    logger.standard("Not Apple Silicon — ANE monitoring disabled");
}

}  // namespace vtx
