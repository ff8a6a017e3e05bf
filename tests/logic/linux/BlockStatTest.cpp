// SPDX-License-Identifier: MIT
#include "platform/linux/BlockStat.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

TEST(BlockStat, sectors_are_of_512_bytes_whatever_the_disks_own_are) {
    EXPECT_EQ(parseBlockStat("  470642    42478 18675890   589366   577526   167469 102649848   "
                             "295290        0    89964   927608   218368        5 78046576    "
                             "40984   108682     1966\n"),
              (BlockStat{470642, 18675890ULL * 512, 577526, 102649848ULL * 512}));
}

TEST(BlockStat, older_kernels_end_after_eleven_numbers_and_more_may_follow_some_day) {
    const BlockStat expected{1, 3 * 512, 5, 7 * 512};
    EXPECT_EQ(parseBlockStat("1 2 3 4 5 6 7 8 9 10 11\n"), expected);
    EXPECT_EQ(parseBlockStat("1 2 3 4 5 6 7\n"), expected);
    EXPECT_EQ(parseBlockStat("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 words\n"), expected);
}

TEST(BlockStat, a_text_that_ends_too_soon_is_absent) {
    const std::string whole = "1 2 3 4 5 6 77 ";
    EXPECT_TRUE(parseBlockStat(whole));
    for (std::size_t end = 0; end < whole.size(); ++end)
        EXPECT_FALSE(parseBlockStat(whole.substr(0, end))) << end;
}

TEST(BlockStat, what_is_no_number_or_does_not_fit_is_absent) {
    for (const auto* text :
         {"x 2 3 4 5 6 7\n", "1 2 -3 4 5 6 7\n", "1 2 3.5 4 5 6 7\n", "1,2,3,4,5,6,7\n",
          "1 2 3 4 5 6 7x\n", "18446744073709551616 2 3 4 5 6 7\n", "1 2 +3 4 5 6 7\n",
          "1 2 36028797018963968 4 5 6 7\n", "1 2 3 4 5 6 36028797018963968\n"})
        EXPECT_FALSE(parseBlockStat(text)) << text;
    EXPECT_EQ(parseBlockStat("1 2 36028797018963967 4 5 6 7\n")->bytesRead, ~0ULL - 511);
    EXPECT_EQ(parseBlockStat("18446744073709551615 2 3 4 5 6 7\n")->readOperations, ~0ULL);
}

}  // namespace
}  // namespace vtx::test
