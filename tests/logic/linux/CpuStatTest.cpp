// SPDX-License-Identifier: MIT
#include "platform/linux/CpuStat.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

using Words = std::array<std::uint32_t, 4>;

Words wordsAfter(std::initializer_list<const char*> lines) {
    ProcessorTicks ticks;
    for (const auto* line : lines) ticks.take(parseCpuStatLine(line).value().ticks);
    return ticks.words();
}

TEST(CpuStat, system_has_irq_softirq_and_steal_and_idle_has_iowait) {
    EXPECT_EQ(wordsAfter({"cpu0 100 20 30 4000 500 6 7 8 0 0"}),
              (Words{100, 30 + 6 + 7 + 8, 4000 + 500, 20}));
}

TEST(CpuStat, guest_time_is_part_of_user_and_nice_already) {
    EXPECT_EQ(wordsAfter({"cpu0 100 20 0 0 0 0 0 0 90 20"}), (Words{100, 0, 0, 20}));
}

TEST(CpuStat, an_old_kernel_without_the_later_columns_is_understood) {
    EXPECT_EQ(wordsAfter({"cpu0 1 2 3 4"}), (Words{1, 3, 4, 2}));
}

TEST(CpuStat, a_counter_that_falls_a_little_stands_still_until_it_has_caught_up) {
    EXPECT_EQ(wordsAfter({"cpu0 0 0 0 1000 500", "cpu0 0 0 0 1010 490"})[2], 1510u);
    EXPECT_EQ(wordsAfter({"cpu0 0 0 0 1000 500", "cpu0 0 0 0 1010 490", "cpu0 0 0 0 1020 502"})[2],
              1522u);
}

TEST(CpuStat, a_fall_in_one_column_does_not_hide_what_another_counted) {
    EXPECT_EQ(wordsAfter({"cpu0 0 0 10 0 0 900", "cpu0 0 0 15 0 0 850"})[1], 915u);
}

TEST(CpuStat, a_counter_that_started_over_goes_on_from_where_it_was) {
    EXPECT_EQ(wordsAfter({"cpu0 0 0 0 500000", "cpu0 0 0 0 100", "cpu0 0 0 0 160"})[2], 500060u);
}

TEST(CpuStat, sums_are_cut_to_32_bits_after_adding) {
    EXPECT_EQ(wordsAfter({"cpu0 4294967301 0 4294967290 0 0 5 3"}), (Words{5, 2, 0, 0}));
}

TEST(CpuStat, a_line_not_understood_whole_is_no_line) {
    for (const auto* line :
         {"", "cpu", "cpu  1 2 3 4", "cpu0", "cpu0 1 2 3", "cpu0 1 2 3 x", "cpu0 1 2 3 -4",
          "cpu0 1 2 3 4 ", "cpu0  1 2 3 4", "cpux 1 2 3 4", "cpu-1 1 2 3 4", "cpu0x 1 2 3 4",
          "cpu99999999999 1 2 3 4", "cpu16384 1 2 3 4", "cpu0 1 2 3 18446744073709551615",
          "cpu0 99999999999999999999999 2 3 4", "cpu0 1 2 3 4 5 6 7 8 9 10 junk", "intr 1 2 3 4"}) {
        EXPECT_FALSE(parseCpuStatLine(line)) << line;
    }
}

TEST(CpuStat, columns_of_a_later_kernel_are_passed_over) {
    EXPECT_EQ(parseCpuStatLine("cpu3 1 2 3 4 5 6 7 8 9 10 11 12").value().number, 3u);
}

TEST(CpuStat, the_lines_end_where_something_else_begins) {
    const auto found = leadingCpuLines("cpu  3\ncpu0 1\ncpu1 2\nintr 5\ncpu9 7\n");
    EXPECT_EQ(found.lines, "cpu  3\ncpu0 1\ncpu1 2\n");
    EXPECT_TRUE(found.isComplete);
}

TEST(CpuStat, at_every_cut_only_whole_lines_count) {
    const std::string text = "cpu  3\ncpu0 1\nintr 5\n";
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        const auto found = leadingCpuLines(std::string_view(text).substr(0, cut));
        const std::size_t whole = cut < 7 ? 0 : cut < 14 ? 7 : 14;
        EXPECT_EQ(found.lines, text.substr(0, whole)) << cut;
        EXPECT_EQ(found.isComplete, cut > 14) << cut;
    }
}

TEST(CpuStat, a_cut_within_the_prefix_may_still_be_a_processor) {
    EXPECT_FALSE(leadingCpuLines("cpu0 1\ncp").isComplete);
    EXPECT_TRUE(leadingCpuLines("cpu0 1\nct").isComplete);
}

}  // namespace
}  // namespace vtx::test
