// SPDX-License-Identifier: MIT
#include "memory/MemoryStats.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;

constexpr Date moment{std::chrono::seconds(1'736'942'400)};

MemoryPages somePages() {
    MemoryPages pages;
    pages.free = 100;
    pages.speculative = 20;
    pages.active = 300;
    pages.wired = 50;
    pages.compressor = 10;
    pages.inactive = 70;
    return pages;
}

TEST(MemoryStats, pages_become_bytes_and_what_is_inactive_is_not_used) {
    const auto stats =
        MemoryStats::make(somePages(), 16'384, 1 << 30, std::nullopt, Pressure::warning, moment);
    EXPECT_EQ(stats.usedBytes, 5'898'240U);
    EXPECT_EQ(stats.freeBytes, 1'966'080U);
    EXPECT_EQ(stats.activeBytes, 300U * 16'384);
    EXPECT_EQ(stats.wiredBytes, 50U * 16'384);
    EXPECT_EQ(stats.inactiveBytes, 70U * 16'384);
    EXPECT_EQ(stats.compressedBytes, 10U * 16'384);
    EXPECT_EQ(stats.totalBytes, 1U << 30);
    EXPECT_EQ(stats.pressure, Pressure::warning);
    EXPECT_EQ(stats.timestamp, moment);
}

TEST(MemoryStats, without_swap_figures_both_are_zero) {
    const auto stats =
        MemoryStats::make(somePages(), 4096, 1, std::nullopt, Pressure::normal, moment);
    EXPECT_EQ(stats.swapTotalBytes, 0U);
    EXPECT_EQ(stats.swapUsedBytes, 0U);
    const auto swapping =
        MemoryStats::make(somePages(), 4096, 1, SwapUsage{2048, 1024}, Pressure::normal, moment);
    EXPECT_EQ(swapping.swapTotalBytes, 2048U);
    EXPECT_EQ(swapping.swapUsedBytes, 1024U);
}

TEST(MemoryStats, counts_of_thirty_two_bits_do_not_overflow_as_bytes) {
    MemoryPages pages;
    pages.active = pages.wired = pages.compressor = 0xffff'ffffU;
    const auto stats = MemoryStats::make(pages, 16'384, 1, std::nullopt, Pressure::normal, moment);
    EXPECT_EQ(stats.usedBytes, 3ULL * 0xffff'ffffU * 16'384);
}

TEST(MemoryStats, the_used_part_is_a_fraction_and_zero_where_the_total_is_not_known) {
    MemoryStats stats;
    stats.usedBytes = 734;
    EXPECT_EQ(stats.usedFraction(), 0.0);
    stats.totalBytes = 1000;
    EXPECT_EQ(stats.usedFraction(), 0.734);
    stats.totalBytes = 700;
    EXPECT_EQ(stats.usedFraction(), 1.0);
}

TEST(MemoryStats, levels_are_stored_by_their_names_and_rank_by_their_order) {
    std::string names;
    for (const auto level : MemoryStats::allPressures) names.append(rawValue(level)).append(" ");
    EXPECT_EQ(names, "normal warning critical ");
    EXPECT_LT(Pressure::normal, Pressure::warning);
    EXPECT_LT(Pressure::warning, Pressure::critical);
}

}  // namespace
}  // namespace vtx
