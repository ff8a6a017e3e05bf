// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vtx {

/// What the kernel counts its pages as.
struct VMPageCounts {
    std::uint64_t free = 0;
    std::uint64_t active = 0;
    std::uint64_t inactive = 0;
    std::uint64_t wired = 0;
    std::uint64_t speculative = 0;
    std::uint64_t compressor = 0;

    friend bool operator==(const VMPageCounts&, const VMPageCounts&) = default;
};

/// How many 32-bit words the kernel's statistics record has today.
inline constexpr std::size_t vmStatisticsWords = 38;

/// Writes the record of the flavour HOST_VM_INFO64, cut to the space there is, and returns how many
/// words it wrote. The counts have 32 bits each: a larger one becomes the largest.
std::uint32_t encodeVMStatistics(const VMPageCounts& pages, std::span<std::uint32_t> into);

/// How much swap there is, in bytes.
struct SwapUsageRecord {
    std::uint64_t total = 0;
    std::uint64_t used = 0;  ///< at most `total`
    std::uint32_t pageSize = 0;
};

/// The value "vm.swapusage": total, available, used, page size, and a flag for encryption, which is
/// left off.
std::array<std::byte, 32> encodeSwapUsage(const SwapUsageRecord& swap);

}  // namespace vtx
