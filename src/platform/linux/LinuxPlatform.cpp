// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include <pthread.h>

#include <thread>

#include "platform/linux/BatteryGauge.h"
#include "platform/linux/BatterySource.h"
#include "platform/linux/BlockStorageSource.h"
#include "platform/linux/CpuFreq.h"
#include "platform/linux/DetachedProgram.h"
#include "platform/linux/DeviceChanges.h"
#include "platform/linux/GraphicsSource.h"
#include "platform/linux/IdentityNodes.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxHIDEventSystem.h"
#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/LinuxHostInfo.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/linux/LinuxIOReportLibrary.h"
#include "platform/linux/LinuxLocale.h"
#include "platform/linux/LinuxMemoryPressure.h"
#include "platform/linux/LinuxNetworkInterfaces.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/linux/LinuxProcessInfo.h"
#include "platform/linux/LinuxProcessTable.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/LinuxSMCUserClient.h"
#include "platform/linux/LinuxSoftwareUpdater.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/linux/LinuxThermalState.h"
#include "platform/linux/LinuxUnifiedLog.h"
#include "platform/linux/LinuxUserNotificationCenter.h"
#include "platform/linux/LinuxWorkspace.h"
#include "platform/linux/MemInfoReader.h"
#include "platform/linux/NvmlLibrary.h"
#include "platform/linux/PressureTriggers.h"
#include "platform/linux/SlowReadThread.h"
#include "platform/linux/SystemBus.h"

namespace vtx {
namespace {

/// By the program that each desktop has for it.
void openFolder(const std::string& path) { startDetached({"xdg-open", path}); }

}  // namespace

/// In the order in which they need each other.
struct LinuxPlatform::Members {
    Members(RunLoop& loop, Executor& main, const Options& options)
        : root(options.root),
          appService(options.autostartFolder,
                     LinuxAppService::runningExecutable(options.environment)),
          clock(loop),
          slowReads(options.slowReads ? *options.slowReads : slowReadThread),
          bus(loop, main, options.busAddress),
          processors(root),
          cpuFreq(root, processors),
          memInfo(root, clock, deviceChanges),
          heapRelief(root),
          hostInfo(root, processors, memInfo),
          battery(root, clock, slowReads, slowChanges),
          ioRegistry(processors, cpuFreq, registrySources(),
                     {makeMemoryNode(root), makeProductNode(root)}),
          ioReport(root, processors, cpuFreq),
          locale(options.environment),
          pressureTriggers(root),
          memoryPressure(root, loop, clock, pressureTriggers, memInfo),
          networkInterfaces(root),
          powerSources(battery),
          processInfo(root, options.environment, bus),
          processTable(root, clock),
          sysctl(root, processors, memInfo),
          thermalState(root, clock, main, slowReads, slowChanges),
          unifiedLog(root, options.environment),
          userDefaults(options.configFolder, &clock),
          userNotifications(options.session, clock),
          softwareUpdater({bus, clock, userDefaults, userNotifications},
                          LinuxAppService::runningExecutable(options.environment)),
          smc(root, sensorTools()),
          workspace(bus, main,
                    {options.frontmostProcess, options.session,
                     SystemMonitor(root, options.environment), openFolder}) {}

    LinuxIORegistry::Sources registrySources() {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::make_unique<BlockStorageSource>(root, deviceChanges));
        sources.push_back(
            std::make_unique<GraphicsSource>(root, clock, deviceChanges, graphicsTools()));
        sources.push_back(std::make_unique<BatterySource>(battery));
        return sources;
    }

    SensorKeys::Tools sensorTools() {
        return {deviceChanges, userDefaults, {slowReads, clock, &LinuxClock::bootTime}};
    }

    /// The library tells of the running machine and of no other.
    GraphicsSource::Tools graphicsTools() {
        const bool isRunningMachine = root.path("/") == "/";
        return {slowReads,
                [isRunningMachine] { return isRunningMachine ? NvmlLibrary::open() : nullptr; },
                [](Duration span) { std::this_thread::sleep_for(span); }};
    }

    LinuxRoot root;
    LinuxAppService appService;
    LinuxClock clock;
    SlowReadThread slowReadThread{nameThread("slow reads")};  ///< without a thread until it is used
    Executor& slowReads;
    SystemBus bus;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
    KernelDeviceChanges deviceChanges;
    /// For what is read there, since a read that hangs keeps what it uses.
    std::shared_ptr<DeviceChanges> slowChanges = std::make_shared<KernelDeviceChanges>();
    MemInfoReader memInfo;
    LinuxHIDEventSystem hidEventSystem;
    LinuxHeapRelief heapRelief;
    LinuxHostInfo hostInfo;
    BatteryGauge battery;
    LinuxIORegistry ioRegistry;
    LinuxIOReportLibrary ioReport;
    LinuxLocale locale;
    KernelPressureTriggers pressureTriggers;
    LinuxMemoryPressure memoryPressure;
    LinuxNetworkInterfaces networkInterfaces;
    LinuxPowerSources powerSources;
    LinuxProcessInfo processInfo;
    LinuxProcessTable processTable;
    LinuxSysctl sysctl;
    LinuxThermalState thermalState;
    LinuxUnifiedLog unifiedLog;
    LinuxUserDefaults userDefaults;
    LinuxUserNotificationCenter userNotifications;
    LinuxSoftwareUpdater softwareUpdater;
    LinuxSMCUserClient smc;
    LinuxWorkspace workspace;
};

LinuxPlatform::LinuxPlatform(RunLoop& loop, Executor& main, const Options& options)
    : members_(std::make_unique<Members>(loop, main, options)) {}

LinuxPlatform::~LinuxPlatform() = default;

Ports LinuxPlatform::ports() {
    Members& m = *members_;
    return {
        .appService = m.appService,
        .clock = m.clock,
        .heapRelief = m.heapRelief,
        .hidEventSystem = m.hidEventSystem,
        .hostInfo = m.hostInfo,
        .ioRegistry = m.ioRegistry,
        .ioReport = m.ioReport,
        .locale = m.locale,
        .memoryPressure = m.memoryPressure,
        .networkInterfaces = m.networkInterfaces,
        .powerSources = m.powerSources,
        .processInfo = m.processInfo,
        .processTable = m.processTable,
        .smc = m.smc,
        .softwareUpdater = m.softwareUpdater,
        .sysctl = m.sysctl,
        .thermalState = m.thermalState,
        .unifiedLog = m.unifiedLog,
        .userDefaults = m.userDefaults,
        .userNotifications = m.userNotifications,
        .workspace = m.workspace,
    };
}

Job LinuxPlatform::nameThread(std::string_view name) {
    return [shown = std::string(name.substr(0, 15))] {
        ::pthread_setname_np(::pthread_self(), shown.c_str());
    };
}

}  // namespace vtx
