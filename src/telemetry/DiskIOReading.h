// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Date.h"

namespace vtx {

/// What a drive counted since it was attached. Nothing says that a counter does not start over.
struct DiskIOCounters {
    std::uint64_t bytesRead = 0;
    std::uint64_t bytesWritten = 0;
    std::uint64_t readOps = 0;
    std::uint64_t writeOps = 0;

    friend bool operator==(const DiskIOCounters&, const DiskIOCounters&) = default;
};

/// One drive at one moment, identified by its name.
struct DiskIOSnapshot : DiskIOCounters {
    std::string name;                      ///< for display
    std::optional<std::string> bsdDevice;  ///< the kernel's name of the drive

    friend bool operator==(const DiskIOSnapshot&, const DiskIOSnapshot&) = default;
};

/// The counters of the drives that have one key: the device's name or, without one, the shown one.
struct DiskIOTotal {
    std::string key;
    DiskIOCounters counters;
};
/// One for each key, in the order of the drives.
using DiskIOTotals = std::vector<DiskIOTotal>;

/// Adds up drives with the same key, modulo 2^64. The memory of `into` is used again.
void addUp(std::span<const DiskIOSnapshot> volumes, DiskIOTotals& into);

/// All drives together, per second.
struct DiskIORates {
    double bytesRead = 0.0;
    double bytesWritten = 0.0;
    double readOps = 0.0;
    double writeOps = 0.0;
};

/// What was counted between two samples: each counter of a key that both have adds its rise, and
/// nothing where it fell, so that a driver that started over makes no false peak. Absent where no
/// time passed.
[[nodiscard]] std::optional<DiskIORates> ratesBetween(const DiskIOTotals& previous,
                                                      const DiskIOTotals& current,
                                                      double intervalSeconds);

/// One reading of all drives. The four rates are there together or not at all.
struct DiskIOReading {
    std::vector<DiskIOSnapshot> volumes;  ///< in the order in which the platform knows them
    std::optional<double> bytesReadPerSecond;
    std::optional<double> bytesWrittenPerSecond;
    std::optional<double> readIOPS;   ///< operations per second
    std::optional<double> writeIOPS;  ///< operations per second
    Date timestamp;                   ///< of the start of the refresh

    friend bool operator==(const DiskIOReading&, const DiskIOReading&) = default;
};

}  // namespace vtx
