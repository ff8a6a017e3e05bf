// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vtx {

/// What does not change about the machine while the program runs. A value; each field falls back to
/// a plain default, so that there always is one.
struct SystemInfo {
    enum class Architecture { appleSilicon, intel, unknown };

    std::string chipName;  ///< "Unknown CPU" where the kernel does not say
    Architecture architecture = Architecture::unknown;
    /// Logical processors of each kind; all of them are performance ones where there is one kind.
    std::int64_t pCoreCount = 0;
    std::int64_t eCoreCount = 0;
    std::int64_t totalCores = 0;
    /// Top clocks; absent where there are no such cores, or their clock is not told.
    std::optional<double> pClusterMaxMHz;
    std::optional<double> eClusterMaxMHz;
    std::uint64_t totalRAMBytes = 0;  ///< 0 where the kernel does not say
    /// By the device tree; absent where that does not tell.
    std::optional<std::string> ramType;
    std::optional<std::int64_t> ramSpeedMTps;
    /// Whether there is an accelerator with statistics, and what it tells of itself.
    bool hasGPU = false;
    std::optional<std::string> gpuName;
    std::optional<std::int64_t> gpuCoreCount;
    bool hasBattery = false;
    std::optional<std::int64_t> batteryDesignCapacityMAh;
    std::optional<std::int64_t> batteryCycleCount;
    std::int64_t fanCount = 0;
    std::string modelIdentifier;  ///< "Unknown" where the kernel does not say
    std::string modelFamily;      ///< what the machine is sold as, else by the identifier

    friend bool operator==(const SystemInfo&, const SystemInfo&) = default;

    /// The family that an identifier belongs to; "Mac" for all that is not known.
    [[nodiscard]] static std::string_view modelFamilyFor(std::string_view identifier);
};

/// As the case is written.
[[nodiscard]] std::string_view name(SystemInfo::Architecture architecture);

}  // namespace vtx
