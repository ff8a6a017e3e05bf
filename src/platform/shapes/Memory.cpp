// SPDX-License-Identifier: MIT
#include "platform/shapes/Memory.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vtx {
namespace {

// Places in the record, in words.
constexpr std::size_t freeWord = 0;
constexpr std::size_t activeWord = 1;
constexpr std::size_t inactiveWord = 2;
constexpr std::size_t wiredWord = 3;
constexpr std::size_t speculativeWord = 23;
constexpr std::size_t compressorWord = 32;

std::uint32_t word(std::uint64_t count) {
    constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::min(count, largest));
}

template <class Number>
void put(std::array<std::byte, 32>& record, std::size_t at, Number value) {
    std::memcpy(record.data() + at, &value, sizeof value);
}

}  // namespace

std::uint32_t encodeVMStatistics(const VMPageCounts& pages, std::span<std::uint32_t> into) {
    std::array<std::uint32_t, vmStatisticsWords> record{};
    record[freeWord] = word(pages.free);
    record[activeWord] = word(pages.active);
    record[inactiveWord] = word(pages.inactive);
    record[wiredWord] = word(pages.wired);
    record[speculativeWord] = word(pages.speculative);
    record[compressorWord] = word(pages.compressor);
    const std::size_t count = std::min(record.size(), into.size());
    std::copy_n(record.begin(), count, into.begin());
    return static_cast<std::uint32_t>(count);
}

std::array<std::byte, 32> encodeSwapUsage(const SwapUsageRecord& swap) {
    std::array<std::byte, 32> record{};
    put(record, 0, swap.total);
    put(record, 8, swap.total - std::min(swap.used, swap.total));
    put(record, 16, swap.used);
    put(record, 24, swap.pageSize);
    return record;
}

}  // namespace vtx
