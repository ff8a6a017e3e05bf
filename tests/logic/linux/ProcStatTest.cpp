// SPDX-License-Identifier: MIT
#include "platform/linux/ProcStat.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

/// As Linux 6.18 writes it.
std::string lineOf(std::string_view name) {
    return "4242 (" + std::string(name) +
           ") S 1 4242 4242 0 -1 4194560 2345 99 7 1 321 123 4 5 20 0 11 0 98765 412345344 5120 "
           "18446744073709551615 94380000000000 94380001000000 140720000000000 0 0 0 0 4096 17642 "
           "0 0 0 17 3 0 0 0 0 0 94380002000000 94380002100000 94380003000000 140720000000001 "
           "140720000000021 140720000000021 140720000000043 0\n";
}

TEST(ProcStat, tells_name_times_threads_niceness_start_and_memory) {
    const std::string line = lineOf("program");
    const auto stat = parseProcStat(line);
    ASSERT_TRUE(stat);
    EXPECT_EQ(stat->comm, "program");
    EXPECT_EQ(stat->userTicks, 321U);
    EXPECT_EQ(stat->systemTicks, 123U);
    EXPECT_EQ(stat->nice, 0);
    EXPECT_EQ(stat->threads, 11);
    EXPECT_EQ(stat->startTime, 98765U);
    EXPECT_EQ(stat->residentPages, 5120U);
    EXPECT_EQ(stat->startCode, 94380000000000U);
    EXPECT_EQ(stat->startStack, 140720000000000U);
    EXPECT_TRUE(stat->hasProgram());
}

TEST(ProcStat, a_name_may_hold_anything) {
    for (const std::string name : {"", " ", "a b", "(sd-pam)", ") S 1 2 3", "a\nb", "))((",
                                   "\xFF\xFE", "kworker/u16:2+flush-btrfs-1"}) {
        const std::string line = lineOf(name);
        const auto stat = parseProcStat(line);
        ASSERT_TRUE(stat) << name;
        EXPECT_EQ(stat->comm, name);
        EXPECT_EQ(stat->startTime, 98765U);
    }
}

TEST(ProcStat, a_line_that_breaks_off_is_none_until_all_that_is_needed_is_there) {
    const std::string line = lineOf("a) b");
    const auto needed = line.find(" 140720000000000 ") + 17;
    for (std::size_t length = 0; length < line.size(); ++length)
        EXPECT_EQ(parseProcStat(line.substr(0, length)).has_value(), length >= needed) << length;
}

TEST(ProcStat, what_cannot_be_is_no_line) {
    for (const char* text :
         {"", "1", "1 (x", "1 x) S", ")(", "1 (x)", "1 (x) ", "1 (x) S", "1 (x)\n\n\n\n",
          "1 (x) S a b c d e f g h i j k l m n o p q r s t u v w x y z\n"})
        EXPECT_FALSE(parseProcStat(text)) << text;
}

TEST(ProcStat, numbers_that_do_not_fit_are_no_numbers) {
    std::string line = lineOf("x");
    line.replace(line.find(" 321 ") + 1, 3, "99999999999999999999999");
    EXPECT_FALSE(parseProcStat(line));
    for (const char* nice : {" 9223372036854775808 ", " -9223372036854775808 "}) {
        line = lineOf("x");
        line.replace(line.find(" 0 11 "), 3, nice);
        EXPECT_FALSE(parseProcStat(line)) << nice;
    }
}

TEST(ProcStat, the_last_number_that_is_needed_may_end_the_line) {
    std::string line = lineOf("x");
    const auto end = line.find(" 140720000000000 ") + 16;
    line.replace(end, line.size() - end, "\n");
    ASSERT_TRUE(parseProcStat(line));
    EXPECT_EQ(parseProcStat(line)->startStack, 140720000000000U);
}

TEST(ProcStat, negative_counts_are_nothing_and_niceness_may_be_negative) {
    std::string line = lineOf("x");
    line.replace(line.find(" 20 0 11 "), 9, " 20 -20 -3 ");
    line.replace(line.find(" 5120 "), 6, " -7 ");
    const auto stat = parseProcStat(line);
    ASSERT_TRUE(stat);
    EXPECT_EQ(stat->nice, -20);
    EXPECT_EQ(stat->threads, 0);
    EXPECT_EQ(stat->residentPages, 0U);
}

TEST(ProcStat, without_memory_of_its_own_it_has_no_program) {
    std::string line = lineOf("kthreadd");
    line.replace(line.find(" 94380000000000 "), 16, " 0 ");
    EXPECT_FALSE(parseProcStat(line)->hasProgram());
}

}  // namespace
}  // namespace vtx::test
