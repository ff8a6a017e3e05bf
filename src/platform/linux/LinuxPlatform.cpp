// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include <pthread.h>

#include "platform/linux/CpuFreq.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/GraphicsSource.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/LinuxHostInfo.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/linux/LinuxIOReportLibrary.h"
#include "platform/linux/LinuxLocale.h"
#include "platform/linux/LinuxMemoryPressure.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/linux/LinuxProcessInfo.h"
#include "platform/linux/LinuxProcessTable.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/linux/LinuxUnifiedLog.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/MemInfoReader.h"
#include "platform/linux/PressureTriggers.h"
#include "platform/linux/SlowReadThread.h"
#include "platform/linux/SystemBus.h"

namespace vtx {

/// In the order in which they need each other.
struct LinuxPlatform::Members {
    Members(RunLoop& loop, Executor& main, const Options& options)
        : root(options.root),
          clock(loop),
          bus(loop, main, options.busAddress),
          processors(root),
          cpuFreq(root, processors),
          memInfo(root, clock, deviceChanges),
          heapRelief(root),
          hostInfo(root, processors, memInfo),
          ioRegistry(processors, cpuFreq, registrySources()),
          ioReport(root, processors, cpuFreq),
          locale(options.environment),
          pressureTriggers(root),
          memoryPressure(root, loop, clock, pressureTriggers, memInfo),
          powerSources(root),
          processInfo(root, options.environment, bus),
          processTable(root, clock),
          sysctl(root, processors, memInfo),
          unifiedLog(root, options.environment),
          userDefaults(options.configFolder),
          workspace(bus, main) {}

    LinuxIORegistry::Sources registrySources() {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::make_unique<GraphicsSource>(root, clock, deviceChanges));
        return sources;
    }

    LinuxRoot root;
    LinuxClock clock;
    SlowReadThread slowReads{nameThread("slow reads")};  ///< without a thread until it is used
    SystemBus bus;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
    KernelDeviceChanges deviceChanges;
    MemInfoReader memInfo;
    LinuxHeapRelief heapRelief;
    LinuxHostInfo hostInfo;
    LinuxIORegistry ioRegistry;
    LinuxIOReportLibrary ioReport;
    LinuxLocale locale;
    KernelPressureTriggers pressureTriggers;
    LinuxMemoryPressure memoryPressure;
    LinuxPowerSources powerSources;
    LinuxProcessInfo processInfo;
    LinuxProcessTable processTable;
    LinuxSysctl sysctl;
    LinuxUnifiedLog unifiedLog;
    LinuxUserDefaults userDefaults;
    LinuxWorkspace workspace;
};

LinuxPlatform::LinuxPlatform(RunLoop& loop, Executor& main, const Options& options)
    : members_(std::make_unique<Members>(loop, main, options)) {}

LinuxPlatform::~LinuxPlatform() = default;

Ports LinuxPlatform::ports() {
    Members& m = *members_;
    return {m.clock,  m.heapRelief,     m.hostInfo,     m.ioRegistry,  m.ioReport,
            m.locale, m.memoryPressure, m.powerSources, m.processInfo, m.processTable,
            m.sysctl, m.unifiedLog,     m.userDefaults, m.workspace};
}

Job LinuxPlatform::nameThread(std::string_view name) {
    return [shown = std::string(name.substr(0, 15))] {
        ::pthread_setname_np(::pthread_self(), shown.c_str());
    };
}

}  // namespace vtx
