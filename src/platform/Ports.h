// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

class AppService;
class Clock;
class HeapRelief;
class HIDEventSystem;
class HostInfo;
class IORegistry;
class IOReportLibrary;
class Locale;
class MemoryPressureSources;
class NetworkInterfaces;
class PowerSources;
class ProcessInfo;
class ProcessTable;
class SMCUserClient;
class SoftwareUpdater;
class Sysctl;
class ThermalState;
class UnifiedLog;
class UserDefaults;
class UserNotificationCenter;
class Workspace;

/// Every operation that the logic asks of the platform it runs on. The composition root picks one
/// platform and hands its ports over; they outlive all that was given them.
struct Ports {
    AppService& appService;
    Clock& clock;
    HeapRelief& heapRelief;
    HIDEventSystem& hidEventSystem;
    HostInfo& hostInfo;
    IORegistry& ioRegistry;
    IOReportLibrary& ioReport;
    Locale& locale;
    MemoryPressureSources& memoryPressure;
    NetworkInterfaces& networkInterfaces;
    PowerSources& powerSources;
    ProcessInfo& processInfo;
    ProcessTable& processTable;
    SMCUserClient& smc;
    SoftwareUpdater& softwareUpdater;
    Sysctl& sysctl;
    ThermalState& thermalState;
    UnifiedLog& unifiedLog;
    UserDefaults& userDefaults;
    UserNotificationCenter& userNotifications;
    Workspace& workspace;
};

}  // namespace vtx
