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

/// Counted; cannot fail.
inline constexpr std::string_view vmDeallocate = "vm_deallocate";

/// Counted.
inline constexpr std::string_view powerSourcesCopy = "powerSources:copy";
/// Failing gives no snapshot, or one that knows no type.
inline constexpr std::string_view powerSourcesNull = "powerSources:null";
inline constexpr std::string_view powerSourcesType = "powerSources:type";

/// Counted; a failing beginning gives no token.
inline constexpr std::string_view beginActivity = "processInfo:beginActivity";
inline constexpr std::string_view endActivity = "processInfo:endActivity";
/// Counted; cannot fail.
inline constexpr std::string_view environment = "processInfo:environment";
inline constexpr std::string_view isLowPowerModeEnabled = "processInfo:isLowPowerModeEnabled";
inline constexpr std::string_view loadedBundlePaths = "processInfo:loadedBundlePaths";
inline constexpr std::string_view operatingSystemVersion = "processInfo:operatingSystemVersion";
inline constexpr std::string_view preferredLanguages = "locale:preferredLanguages";

}  // namespace vtx::operations
