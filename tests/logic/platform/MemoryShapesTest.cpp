// SPDX-License-Identifier: MIT
// What platforms encode, the memory's engine decodes.
#include "platform/shapes/Memory.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "memory/MemoryMonitorEngine.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint32_t>::max();

std::optional<MemoryStats> decoded(const VMPageCounts& pages, const SwapUsageRecord& swap) {
    TestBench bench;
    bench.mac.memory.setPages(pages);
    const auto record = encodeSwapUsage(swap);
    bench.platform.sysctl.setBytes("vm.swapusage", Data(record.begin(), record.end()));
    return MemoryMonitorEngine(bench.ports()).sample(MemoryStats::Pressure::normal);
}

TEST(MemoryShapes, every_count_of_pages_survives_the_round_trip) {
    const auto stats = decoded(
        {.free = 1, .active = 2, .inactive = 3, .wired = 4, .speculative = 5, .compressor = most},
        {});
    ASSERT_TRUE(stats);
    EXPECT_EQ(stats->freeBytes, 6U * 16'384);
    EXPECT_EQ(stats->activeBytes, 2U * 16'384);
    EXPECT_EQ(stats->inactiveBytes, 3U * 16'384);
    EXPECT_EQ(stats->wiredBytes, 4U * 16'384);
    EXPECT_EQ(stats->compressedBytes, most * 16'384);
}

TEST(MemoryShapes, the_swap_record_survives_the_round_trip) {
    constexpr std::uint64_t large = std::uint64_t{1} << 60;
    const auto stats = decoded({}, {large + 3, large + 1, 4096});
    ASSERT_TRUE(stats);
    EXPECT_EQ(stats->swapTotalBytes, large + 3);
    EXPECT_EQ(stats->swapUsedBytes, large + 1);
}

TEST(MemoryShapes, a_count_beyond_its_field_becomes_the_largest) {
    std::array<std::uint32_t, vmStatisticsWords> words{};
    EXPECT_EQ(encodeVMStatistics({.active = most + 1}, words), vmStatisticsWords);
    EXPECT_EQ(words[1], most);
}

TEST(MemoryShapes, the_record_is_cut_to_the_space_there_is) {
    std::array<std::uint32_t, 3> words{9, 9, 9};
    EXPECT_EQ(encodeVMStatistics({.free = 1, .active = 2}, std::span(words).first(2)), 2U);
    EXPECT_EQ(words, (std::array<std::uint32_t, 3>{1, 2, 9}));
    std::array<std::uint32_t, 104> more{};
    more.fill(9);
    EXPECT_EQ(encodeVMStatistics({.compressor = 7}, more), vmStatisticsWords);
    EXPECT_EQ(more[32], 7U);
    EXPECT_EQ(more[vmStatisticsWords], 9U);
}

TEST(MemoryShapes, what_is_available_of_swap_is_never_below_zero) {
    const auto record = encodeSwapUsage({100, 200, 4096});
    EXPECT_EQ(record[8], std::byte{0});
    EXPECT_EQ(record[16], std::byte{200});
}

}  // namespace
}  // namespace vtx
