// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

class Clock;
class HIDEventSystem;
class HostInfo;
class IORegistry;
class IOReportLibrary;
class Locale;
class NetworkInterfaces;
class PowerSources;
class ProcessInfo;
class SMCUserClient;
class Sysctl;
class UnifiedLog;
class UserDefaults;
class Workspace;

/// Every operation that the logic asks of the platform it runs on. The composition root picks one
/// platform and hands its ports over; they outlive all that was given them.
struct Ports {
    Clock& clock;
    HIDEventSystem& hidEventSystem;
    HostInfo& hostInfo;
    IORegistry& ioRegistry;
    IOReportLibrary& ioReport;
    Locale& locale;
    NetworkInterfaces& networkInterfaces;
    PowerSources& powerSources;
    ProcessInfo& processInfo;
    SMCUserClient& smc;
    Sysctl& sysctl;
    UnifiedLog& unifiedLog;
    UserDefaults& userDefaults;
    Workspace& workspace;
};

}  // namespace vtx
