// SPDX-License-Identifier: MIT
#include "platform/linux/CpuFreqText.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

using Numbers = std::vector<std::uint64_t>;
using Times = std::vector<ClockTime>;

TEST(CpuFreqText, numbers_are_read_in_their_own_order) {
    EXPECT_EQ(parseNumbers("2400000 800000 1600000 \n"), (Numbers{2'400'000, 800'000, 1'600'000}));
    EXPECT_EQ(parseNumbers("7\n"), Numbers{7});
    EXPECT_EQ(parseNumbers(" \n"), Numbers{});
    EXPECT_EQ(parseNumbers(""), Numbers{});
}

TEST(CpuFreqText, a_list_with_anything_else_in_it_is_none) {
    for (const auto* text :
         {"1 x 2", "1 -2", "0x10", "1,2", "1 2.5", "99999999999999999999 1", "<unsupported>"}) {
        EXPECT_EQ(parseNumbers(text), std::nullopt) << text;
    }
}

TEST(CpuFreqText, a_list_without_end_is_none) {
    std::string text;
    for (int i = 0; i < 16'384; ++i) text += "5 ";
    EXPECT_EQ(parseNumbers(text)->size(), 16'384u);
    EXPECT_EQ(parseNumbers(text + "5"), std::nullopt);
}

TEST(CpuFreqText, times_are_read_line_by_line) {
    EXPECT_EQ(parseTimeInState("600000 12\n1800000 0\n"), (Times{{600'000, 12}, {1'800'000, 0}}));
}

TEST(CpuFreqText, a_truncated_table_is_none_whatever_was_cut) {
    const std::string whole = "600000 12\n1800000 345\n";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        // Cut at the end of a line it is a shorter table, and a whole one.
        if (size == 10) continue;
        EXPECT_EQ(parseTimeInState(std::string_view(whole).substr(0, size)), std::nullopt) << size;
    }
}

TEST(CpuFreqText, hostile_tables_are_none) {
    for (const auto* text :
         {"\n", "600000\n", "600000 -1\n", "-600000 1\n", "600000 1 2\n", "600000 1\n\n", "junk\n",
          "999 1\n", "100000000 1\n", "0 5\n", "600000 99999999999999999999\n",
          "600000 1099511627776\n", "18446744073709551615 1\n"}) {
        EXPECT_EQ(parseTimeInState(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace vtx::test
