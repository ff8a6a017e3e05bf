// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/shapes/Memory.h"

namespace vtx {

/// What /proc/meminfo tells, in kB. Fields that a kernel lacks are 0.
struct MemInfo {
    std::uint64_t total = 0;
    std::uint64_t free = 0;
    std::uint64_t available = 0;  ///< what programs could get without swapping
    std::uint64_t unevictable = 0;
    std::uint64_t zswap = 0;  ///< taken by the pool of compressed pages, not what it holds
    std::uint64_t slabUnreclaimable = 0;
    std::uint64_t kernelStack = 0;
    std::uint64_t pageTables = 0;
    std::uint64_t swapTotal = 0;
    std::uint64_t swapFree = 0;

    friend bool operator==(const MemInfo&, const MemInfo&) = default;
};

/// Absent unless total, free and available are there, each understood whole, and the total is not
/// 0. A line that is not understood, the last one without its end included, is passed over; of a
/// line that comes twice the first counts.
[[nodiscard]] std::optional<MemInfo> parseMemInfo(std::string_view text);

/// Reads the same text again and again. The kernel pads its numbers, so that a line hardly ever
/// moves: each is looked for where it was the last time, and taken only if the whole line is still
/// there and the text as long as then. Else, and with each text that lacks a field, the text is
/// gone over as by `parseMemInfo`. One thread at a time.
class MemInfoText {
public:
    [[nodiscard]] std::optional<MemInfo> parse(std::string_view text);

    static constexpr std::size_t fieldCount = 10;
    /// Where the line of each field begins.
    using Places = std::array<std::size_t, fieldCount>;

private:
    Places places_{};
    std::size_t size_ = 0;  ///< of the text of the places; 0 for none
};

/// The same as pages. Active, wired and compressor together are exactly what is not available:
///
/// | pages | from |
/// |---|---|
/// | compressor | the pools of zswap and zram |
/// | wired | unreclaimable slab, kernel stacks, page tables, unevictable pages |
/// | active | the rest of what is not available |
/// | free | MemFree, at most what is available |
/// | inactive | the rest of what is available |
///
/// Each is cut to what is left for it. `pageSize` is in bytes, a multiple of 1024.
[[nodiscard]] VMPageCounts pageCountsOf(const MemInfo& info, std::uint64_t zramBytes,
                                        std::uint64_t pageSize);

/// The pool's bytes, the third number of a zram device's `mm_stat`; absent where that is damaged.
[[nodiscard]] std::optional<std::uint64_t> parseZramPool(std::string_view text);

}  // namespace vtx
