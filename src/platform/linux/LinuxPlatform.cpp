// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include <pthread.h>

#include <thread>

#include "platform/linux/BlockStorageSource.h"
#include "platform/linux/CpuFreq.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/GraphicsSource.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHIDEventSystem.h"
#include "platform/linux/LinuxHostInfo.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/linux/LinuxIOReportLibrary.h"
#include "platform/linux/LinuxLocale.h"
#include "platform/linux/LinuxNetworkInterfaces.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/linux/LinuxProcessInfo.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/LinuxSMCUserClient.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/linux/LinuxUnifiedLog.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/NvmlLibrary.h"
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
          hostInfo(root, processors),
          ioRegistry(processors, cpuFreq, registrySources()),
          ioReport(root, processors, cpuFreq),
          locale(options.environment),
          networkInterfaces(root),
          powerSources(root),
          processInfo(root, options.environment, bus),
          sysctl(root, processors),
          unifiedLog(root, options.environment),
          userDefaults(options.configFolder),
          workspace(bus, main) {}

    LinuxIORegistry::Sources registrySources() {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::make_unique<BlockStorageSource>(root, deviceChanges));
        sources.push_back(
            std::make_unique<GraphicsSource>(root, clock, deviceChanges, graphicsTools()));
        return sources;
    }

    /// The library tells of the running machine and of no other.
    GraphicsSource::Tools graphicsTools() {
        const bool isRunningMachine = root.path("/") == "/";
        return {slowReads,
                [isRunningMachine] { return isRunningMachine ? NvmlLibrary::open() : nullptr; },
                [](Duration span) { std::this_thread::sleep_for(span); }};
    }

    LinuxRoot root;
    LinuxClock clock;
    SlowReadThread slowReads{nameThread("slow reads")};  ///< without a thread until it is used
    SystemBus bus;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
    KernelDeviceChanges deviceChanges;
    LinuxHIDEventSystem hidEventSystem;
    LinuxHostInfo hostInfo;
    LinuxIORegistry ioRegistry;
    LinuxIOReportLibrary ioReport;
    LinuxLocale locale;
    LinuxNetworkInterfaces networkInterfaces;
    LinuxPowerSources powerSources;
    LinuxProcessInfo processInfo;
    LinuxSMCUserClient smc;
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
    return {
        .clock = m.clock,
        .hidEventSystem = m.hidEventSystem,
        .hostInfo = m.hostInfo,
        .ioRegistry = m.ioRegistry,
        .ioReport = m.ioReport,
        .locale = m.locale,
        .networkInterfaces = m.networkInterfaces,
        .powerSources = m.powerSources,
        .processInfo = m.processInfo,
        .smc = m.smc,
        .sysctl = m.sysctl,
        .unifiedLog = m.unifiedLog,
        .userDefaults = m.userDefaults,
        .workspace = m.workspace,
    };
}

Job LinuxPlatform::nameThread(std::string_view name) {
    return [shown = std::string(name.substr(0, 15))] {
        ::pthread_setname_np(::pthread_self(), shown.c_str());
    };
}

}  // namespace vtx
