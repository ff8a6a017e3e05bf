// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "memory/MemoryStats.h"

namespace vtx {

class Clock;
class HostInfo;
struct Ports;
class Sysctl;

/// Reads the kernel's page counts and swap figures and makes readings of them. Owned by
/// `MemoryMonitor`; its steps run on the tick executor. Nothing in it changes.
class MemoryMonitorEngine {
public:
    /// Asks for the size of the memory and of a page, once. The ports must outlive the engine.
    explicit MemoryMonitorEngine(const Ports& ports);

    /// One reading, which copies the pressure level; absent when the pages could not be counted.
    std::optional<MemoryStats> sample(MemoryStats::Pressure currentPressure);

    [[nodiscard]] std::uint64_t pageSize() const { return pageSize_; }

private:
    [[nodiscard]] std::optional<MemoryPages> readPages() const;
    [[nodiscard]] std::optional<SwapUsage> readSwap() const;

    HostInfo& hostInfo_;
    Sysctl& sysctl_;
    const Clock& clock_;
    const std::uint64_t totalBytes_;  ///< "hw.memsize"; 0 where that cannot be read
    const std::uint64_t pageSize_;    ///< in bytes, never 0
};

}  // namespace vtx
