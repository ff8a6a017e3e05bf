// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// Names of the simulated platform's operations, as `Failures` and `CallCounter` know them.
namespace vtx::operations {

/// A kernel value is "sysctlbyname:" and its name; the result is an errno value.
inline constexpr std::string_view sysctlPrefix = "sysctlbyname:";

/// The result is the kernel's.
inline constexpr std::string_view hostProcessorInfo = "host_processor_info";
/// Variants that can be made to happen; they are not counted apart.
inline constexpr std::string_view hostProcessorInfoNull = "host_processor_info:null";
inline constexpr std::string_view hostProcessorInfoFewEntries = "host_processor_info:fewEntries";
inline constexpr std::string_view hostProcessorInfoSurplusEntries =
    "host_processor_info:surplusEntries";
inline constexpr std::string_view hostProcessorInfoZeroProcessors =
    "host_processor_info:zeroProcessors";

/// The result is the kernel's; the first one counts pages alone.
inline constexpr std::string_view hostStatistics64 = "host_statistics64";
inline constexpr std::string_view hostPageSize = "host_page_size";
/// Success with a size of 0; not counted apart.
inline constexpr std::string_view hostPageSizeZero = "host_page_size:zero";

/// Failing gives no source. The others are counted and cannot fail.
inline constexpr std::string_view memoryPressureCreate = "memoryPressure:create";
inline constexpr std::string_view memoryPressureActivate = "memoryPressure:activate";
inline constexpr std::string_view memoryPressureCancel = "memoryPressure:cancel";

/// Counted; cannot fail.
inline constexpr std::string_view vmDeallocate = "vm_deallocate";

/// The result is an errno value.
inline constexpr std::string_view getifaddrs = "getifaddrs";
/// Success without a list, or with records that have no addresses; not counted apart.
inline constexpr std::string_view getifaddrsNull = "getifaddrs:null";
inline constexpr std::string_view getifaddrsNoAddress = "getifaddrs:noAddress";
/// Failing, it gives no text.
inline constexpr std::string_view getnameinfo = "getnameinfo";
/// Counted; cannot fail.
inline constexpr std::string_view freeifaddrs = "freeifaddrs";

/// Counted.
inline constexpr std::string_view powerSourcesCopy = "powerSources:copy";
/// Failing gives no snapshot, or one that knows no type.
inline constexpr std::string_view powerSourcesNull = "powerSources:null";
inline constexpr std::string_view powerSourcesType = "powerSources:type";
/// Failing gives no list, or a source without a description.
inline constexpr std::string_view powerSourcesList = "powerSources:list";
inline constexpr std::string_view powerSourcesDescription = "powerSources:description";

/// Counted; cannot fail.
inline constexpr std::string_view thermalState = "processInfo:thermalState";

/// Counted; a failing beginning gives no token.
inline constexpr std::string_view beginActivity = "processInfo:beginActivity";
inline constexpr std::string_view endActivity = "processInfo:endActivity";
/// Counted; cannot fail.
inline constexpr std::string_view environment = "processInfo:environment";
inline constexpr std::string_view isLowPowerModeEnabled = "processInfo:isLowPowerModeEnabled";
inline constexpr std::string_view loadedBundlePaths = "processInfo:loadedBundlePaths";
inline constexpr std::string_view operatingSystemVersion = "processInfo:operatingSystemVersion";
inline constexpr std::string_view preferredLanguages = "locale:preferredLanguages";

/// Counted; cannot fail.
inline constexpr std::string_view mallocZonePressureRelief = "malloc_zone_pressure_relief";

/// Counted; cannot fail.
inline constexpr std::string_view frontmostApplication = "workspace:frontmostApplication";
inline constexpr std::string_view selectFile = "workspace:selectFile";
inline constexpr std::string_view openSystemMonitor = "workspace:openSystemMonitor";

/// The table of processes. Sizing and filling fail with an errno value; a short filling tells of
/// one record less than there are, and that is not counted apart.
inline constexpr std::string_view kernProcAllSize = "sysctl(KERN_PROC_ALL):size";
inline constexpr std::string_view kernProcAllFill = "sysctl(KERN_PROC_ALL):fill";
inline constexpr std::string_view kernProcAllShort = "sysctl(KERN_PROC_ALL):short";
/// Counted; what of them fails is a matter of the process.
inline constexpr std::string_view processDetails = "processTable:details";
/// Counted; cannot fail.
inline constexpr std::string_view processesLetGo = "processTable:letGo";
/// The results are errno values.
inline constexpr std::string_view setpriority = "setpriority";
inline constexpr std::string_view procPidRusage = "proc_pid_rusage";

/// The registry. A failing call gives null or, where there is one, the result; a failing walk ends.
inline constexpr std::string_view registryEntryFromPath = "IORegistryEntryFromPath";
inline constexpr std::string_view serviceMatching = "IOServiceMatching";
inline constexpr std::string_view getMatchingServices = "IOServiceGetMatchingServices";
inline constexpr std::string_view getMatchingService = "IOServiceGetMatchingService";
inline constexpr std::string_view iteratorNext = "IOIteratorNext";
inline constexpr std::string_view getChildIterator = "IORegistryEntryGetChildIterator";
inline constexpr std::string_view getParentEntry = "IORegistryEntryGetParentEntry";
inline constexpr std::string_view getName = "IORegistryEntryGetName";
inline constexpr std::string_view getRegistryEntryID = "IORegistryEntryGetRegistryEntryID";
/// The copy and the view alike.
inline constexpr std::string_view createCFProperties = "IORegistryEntryCreateCFProperties";
inline constexpr std::string_view createCFProperty = "IORegistryEntryCreateCFProperty";
/// Success without anything; not counted apart.
inline constexpr std::string_view getMatchingServicesNull = "IOServiceGetMatchingServices:null";
inline constexpr std::string_view getChildIteratorNull = "IORegistryEntryGetChildIterator:null";
inline constexpr std::string_view createCFPropertiesNull = "IORegistryEntryCreateCFProperties:null";
/// Counted; cannot fail.
inline constexpr std::string_view objectRetain = "IOObjectRetain";
inline constexpr std::string_view objectRelease = "IOObjectRelease";

/// A library is "dlopen:" and its path, a symbol "dlsym:" and its name.
inline constexpr std::string_view dlopenPrefix = "dlopen:";
inline constexpr std::string_view dlsymPrefix = "dlsym:";
/// The private library's functions; failing, they give nothing.
inline constexpr std::string_view ioReportCopyChannels = "IOReportCopyChannelsInGroup";
inline constexpr std::string_view cfDictionaryCreateMutableCopy = "CFDictionaryCreateMutableCopy";
inline constexpr std::string_view ioReportCreateSubscription = "IOReportCreateSubscription";
inline constexpr std::string_view ioReportCreateSamples = "IOReportCreateSamples";
inline constexpr std::string_view ioReportCreateSamplesDelta = "IOReportCreateSamplesDelta";
/// The channels of every group, whichever was asked for; not counted apart.
inline constexpr std::string_view ioReportCopyChannelsAll = "IOReportCopyChannelsInGroup:all";
/// Half an answer; not counted apart.
inline constexpr std::string_view ioReportCreateSubscriptionNoObject =
    "IOReportCreateSubscription:noObject";
inline constexpr std::string_view ioReportCreateSubscriptionNoChannels =
    "IOReportCreateSubscription:noChannels";
/// A difference whose channels are no list; not counted apart.
inline constexpr std::string_view ioReportCreateSamplesDeltaNoList =
    "IOReportCreateSamplesDelta:noList";

/// The SMC's user client. Finding it has the names of the registry's own searches.
inline constexpr std::string_view serviceOpen = "IOServiceOpen";
/// Success without a connection; not counted apart.
inline constexpr std::string_view serviceOpenNull = "IOServiceOpen:null";
inline constexpr std::string_view connectCallStructMethod = "IOConnectCallStructMethod";
/// The call succeeds and says that it filled as many bytes as the result tells; not counted apart.
inline constexpr std::string_view connectCallStructMethodOutputSize =
    "IOConnectCallStructMethod:outputSize";
/// Counted, each beside its call; cannot fail. A single key is made to fail in the SMC itself.
inline constexpr std::string_view smcReadValue = "SMC:readValue";
inline constexpr std::string_view smcWriteValue = "SMC:writeValue";
inline constexpr std::string_view smcKeyAtIndex = "SMC:keyAtIndex";
inline constexpr std::string_view smcKeyInformation = "SMC:keyInformation";
/// Counted; cannot fail.
inline constexpr std::string_view serviceClose = "IOServiceClose";

/// The process's own symbols.
inline constexpr std::string_view dlopenSelf = "dlopen:nil";
/// The event system; failing, they give nothing.
inline constexpr std::string_view hidClientCreate = "IOHIDEventSystemClientCreate";
inline constexpr std::string_view hidClientCopyServices = "IOHIDEventSystemClientCopyServices";
inline constexpr std::string_view hidCopyEvent = "IOHIDServiceClientCopyEvent";
inline constexpr std::string_view hidCopyProperty = "IOHIDServiceClientCopyProperty";

/// What is shown to the user. Failing, they answer with an error.
inline constexpr std::string_view requestAuthorization = "requestAuthorizationWithOptions";
/// Granted all the same where the former fails; not counted apart.
inline constexpr std::string_view requestAuthorizationGranted =
    "requestAuthorizationWithOptions:granted";
inline constexpr std::string_view addNotificationRequest = "addNotificationRequest";

/// The login item. Counted; a failing change has an error in words.
inline constexpr std::string_view appServiceStatus = "appService:status";
inline constexpr std::string_view appServiceRegister = "appService:register";
inline constexpr std::string_view appServiceUnregister = "appService:unregister";

}  // namespace vtx::operations
