// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Date.h"

namespace vtx {

/// The kernel's page counts at one moment.
struct MemoryPages {
    std::uint64_t active = 0;
    std::uint64_t wired = 0;
    std::uint64_t inactive = 0;
    std::uint64_t compressor = 0;
    std::uint64_t free = 0;
    std::uint64_t speculative = 0;
};

/// Swap in bytes; of what the kernel has allocated so far.
struct SwapUsage {
    std::uint64_t total = 0;
    std::uint64_t used = 0;
};

/// One reading of the memory. Neither used and free nor all the parts add up to the total: what is
/// inactive is left out of what is used.
struct MemoryStats {
    /// How short memory runs. Raw value: the case's name.
    enum class Pressure : std::uint8_t { normal, warning, critical };
    static constexpr std::array allPressures{Pressure::normal, Pressure::warning,
                                             Pressure::critical};

    std::uint64_t totalBytes = 0;  ///< physical memory; 0 where that is not known
    std::uint64_t usedBytes = 0;   ///< active, wired and compressed
    std::uint64_t freeBytes = 0;   ///< free and speculative
    std::uint64_t activeBytes = 0;
    std::uint64_t wiredBytes = 0;
    std::uint64_t inactiveBytes = 0;
    std::uint64_t compressedBytes = 0;     ///< taken by the compressor, not what it holds
    Pressure pressure = Pressure::normal;  ///< in force when the reading was taken
    std::uint64_t swapUsedBytes = 0;       ///< 0 when swap cannot be read, as the next one
    std::uint64_t swapTotalBytes = 0;
    Date timestamp;

    friend bool operator==(const MemoryStats&, const MemoryStats&) = default;

    /// All fields in bytes; without swap figures both of theirs are 0.
    static MemoryStats make(const MemoryPages& pages, std::uint64_t pageSize,
                            std::uint64_t totalBytes, const std::optional<SwapUsage>& swap,
                            Pressure pressure, Date timestamp);

    /// Used over total, limited to 0.0 to 1.0; 0.0 where the total is 0.
    [[nodiscard]] double usedFraction() const;
};

constexpr std::string_view rawValue(MemoryStats::Pressure pressure) {
    switch (pressure) {
        case MemoryStats::Pressure::warning:
            return "warning";
        case MemoryStats::Pressure::critical:
            return "critical";
        case MemoryStats::Pressure::normal:
            break;
    }
    return "normal";
}

}  // namespace vtx
