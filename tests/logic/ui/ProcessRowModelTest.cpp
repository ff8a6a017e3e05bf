// SPDX-License-Identifier: MIT
#include "ui/models/ProcessRowModel.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Snapshots.h"

namespace vtx {
namespace {

constexpr double mebibyte = 1048576.0;

std::string memory(double mebibytes) {
    return formatMem(static_cast<std::uint64_t>(mebibytes * mebibyte));
}

TEST(ProcessRow, a_share_has_a_decimal_below_ten_percent_alone) {
    EXPECT_EQ(formatCPU(0.061), "6.1%");
    EXPECT_EQ(formatCPU(0.0004), "0.0%");
    EXPECT_EQ(formatCPU(0.0999), "10.0%");
    EXPECT_EQ(formatCPU(0.1), "10%");
    EXPECT_EQ(formatCPU(0.125), "13%");
    EXPECT_EQ(formatCPU(1.4249), "142%");
    EXPECT_EQ(formatCPU(64.0), "6400%");
}

TEST(ProcessRow, no_share_is_a_dash) {
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double none : {0.0, -0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), infinite})
        EXPECT_EQ(formatCPU(none), "—");
}

TEST(ProcessRow, memory_is_in_mebibytes_up_to_a_gibibyte) {
    EXPECT_EQ(formatMem(0), "—");
    EXPECT_EQ(formatMem(1), "0M");
    EXPECT_EQ(memory(1.5), "2M");
    EXPECT_EQ(memory(188.4), "188M");
    EXPECT_EQ(memory(1023.6), "1024M");
    EXPECT_EQ(memory(1024), "1.0G");
    EXPECT_EQ(memory(3277), "3.2G");
    EXPECT_EQ(formatMem(std::numeric_limits<std::uint64_t>::max()), "17179869184.0G");
}

TEST(ProcessRow, says_name_share_memory_and_number) {
    auto process = snapshotOf(47002, 0.061);
    process.residentMemoryBytes = 870U << 20;
    const auto row = describeProcessRow(process);
    EXPECT_EQ(row, (ProcessRowModel{"node", "", "6.1%", "870M", "47002",
                                    "CPU 6.1%, Mem 870M, PID 47002"}));
}

TEST(ProcessRow, a_niceness_other_than_none_is_marked) {
    auto process = snapshotOf(1);
    process.nice = 10;
    EXPECT_EQ(describeProcessRow(process).niceMark, "nice 10");
    EXPECT_EQ(describeProcessRow(process).spoken, "CPU —, Mem 1M, PID 1, nice 10");
    process.nice = -5;
    EXPECT_EQ(describeProcessRow(process).niceMark, "nice -5");
}

TEST(ProcessRow, a_process_without_a_name_has_a_dash_for_one) {
    EXPECT_EQ(describeProcessRow(snapshotOf(1, 0, "")).name, "—");
}

}  // namespace
}  // namespace vtx
