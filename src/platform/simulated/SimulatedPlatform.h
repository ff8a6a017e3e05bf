// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Ports.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedAppService.h"
#include "platform/simulated/SimulatedHIDEventSystem.h"
#include "platform/simulated/SimulatedHeapRelief.h"
#include "platform/simulated/SimulatedHostInfo.h"
#include "platform/simulated/SimulatedIORegistry.h"
#include "platform/simulated/SimulatedIOReportLibrary.h"
#include "platform/simulated/SimulatedLocale.h"
#include "platform/simulated/SimulatedMac.h"
#include "platform/simulated/SimulatedMemoryPressure.h"
#include "platform/simulated/SimulatedNetworkInterfaces.h"
#include "platform/simulated/SimulatedPowerSources.h"
#include "platform/simulated/SimulatedProcessInfo.h"
#include "platform/simulated/SimulatedProcessTable.h"
#include "platform/simulated/SimulatedSMCUserClient.h"
#include "platform/simulated/SimulatedSoftwareUpdater.h"
#include "platform/simulated/SimulatedSysctl.h"
#include "platform/simulated/SimulatedThermalState.h"
#include "platform/simulated/SimulatedUnifiedLog.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedUserNotificationCenter.h"
#include "platform/simulated/SimulatedWorkspace.h"

namespace vtx {

/// Every port over one machine in memory, which lives by the clock it is given: the real one in the
/// program, a manual one in tests. Needs no hardware and no rights, and knows nothing of the
/// machine it runs on. Owned by the composition root or a test; outlives all that its ports gave.
class SimulatedPlatform {
public:
    explicit SimulatedPlatform(Clock& clock, MacShape shape = MacShape::standard(),
                               SimulatedUserDefaults::Values settings = {});

    /// Everything that the logic may ask.
    [[nodiscard]] Ports ports();

    /// Shorthands for what tests say often.
    [[nodiscard]] std::size_t outstanding() const { return instruments.handles.outstanding(); }
    [[nodiscard]] std::size_t calls(std::string_view operation) const {
        return instruments.counter.calls(operation);
    }
    [[nodiscard]] std::size_t totalCalls() const { return instruments.counter.totalCalls(); }
    void resetCalls() { instruments.counter.resetCalls(); }

    Clock& clock;
    Instruments instruments;
    Failures& failures = instruments.failures;
    SimulatedMac mac;

    SimulatedAppService appService;
    SimulatedHIDEventSystem hidEventSystem;
    SimulatedHeapRelief heapRelief;
    SimulatedHostInfo hostInfo;
    SimulatedIORegistry ioRegistry;
    SimulatedIOReportLibrary ioReport;
    SimulatedLocale locale;
    SimulatedMemoryPressure memoryPressure;
    SimulatedNetworkInterfaces networkInterfaces;
    SimulatedPowerSources powerSources;
    SimulatedProcessInfo processInfo;
    SimulatedSMCUserClient smc;
    /// In the place of `smc` in the ports, where a test sets one; outlives what was given them.
    SMCUserClient* otherSMC = nullptr;
    SimulatedProcessTable processTable;
    SimulatedSoftwareUpdater softwareUpdater;
    SimulatedSysctl sysctl;
    SimulatedThermalState thermalState;
    SimulatedUnifiedLog unifiedLog;
    SimulatedUserDefaults userDefaults;
    SimulatedUserNotificationCenter userNotifications;
    SimulatedWorkspace workspace;
};

}  // namespace vtx
