// SPDX-License-Identifier: MIT
#include "memory/MemoryStats.h"

#include <algorithm>

namespace vtx {

MemoryStats MemoryStats::make(const MemoryPages& pages, std::uint64_t pageSize,
                              std::uint64_t totalBytes, const std::optional<SwapUsage>& swap,
                              Pressure pressure, Date timestamp) {
    MemoryStats stats;
    stats.totalBytes = totalBytes;
    stats.usedBytes = (pages.active + pages.wired + pages.compressor) * pageSize;
    stats.freeBytes = (pages.free + pages.speculative) * pageSize;
    stats.activeBytes = pages.active * pageSize;
    stats.wiredBytes = pages.wired * pageSize;
    stats.inactiveBytes = pages.inactive * pageSize;
    stats.compressedBytes = pages.compressor * pageSize;
    stats.pressure = pressure;
    if (swap) {
        stats.swapUsedBytes = swap->used;
        stats.swapTotalBytes = swap->total;
    }
    stats.timestamp = timestamp;
    return stats;
}

double MemoryStats::usedFraction() const {
    if (totalBytes == 0) return 0.0;
    return std::min(static_cast<double>(usedBytes) / static_cast<double>(totalBytes), 1.0);
}

}  // namespace vtx
