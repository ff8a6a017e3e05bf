// SPDX-License-Identifier: MIT
#include "platform/linux/Parse.h"

#include <gtest/gtest.h>

namespace vtx::test {
namespace {

using Numbers = std::vector<std::uint32_t>;

TEST(Parse, a_number_may_have_white_space_around_it_and_nothing_else) {
    EXPECT_EQ(parseUnsigned("42\n"), 42u);
    EXPECT_EQ(parseUnsigned(std::string_view("7\0", 2)), 7u);
    EXPECT_EQ(parseSigned(" -12\n"), -12);
    EXPECT_EQ(parseUnsigned("\t\r\n\v\f 42\f\v\n\r\t"), 42u);
    for (const auto* text : {"", " ", "-1", "+1", "1 2", "0x10", "1.5", "12k", "abc"}) {
        EXPECT_EQ(parseUnsigned(text), std::nullopt) << text;
    }
    EXPECT_EQ(parseSigned("--1"), std::nullopt);
}

TEST(Parse, a_number_that_does_not_fit_is_absent) {
    EXPECT_EQ(parseUnsigned("18446744073709551615"), 18446744073709551615u);
    EXPECT_EQ(parseUnsigned("18446744073709551616"), std::nullopt);
    EXPECT_EQ(parseSigned("9223372036854775808"), std::nullopt);
}

TEST(Parse, a_cpu_list_is_ascending_and_names_each_once) {
    EXPECT_EQ(parseCpuList("0-3,8,10-11\n"), (Numbers{0, 1, 2, 3, 8, 10, 11}));
    EXPECT_EQ(parseCpuList("10-11,2,0-2"), (Numbers{0, 1, 2, 10, 11}));
    EXPECT_EQ(parseCpuList("\n"), Numbers{});
    EXPECT_EQ(parseCpuList(""), Numbers{});
}

TEST(Parse, a_cpu_list_that_is_not_understood_whole_is_absent) {
    for (const auto* text : {"3-0", "-1", "0-", ",", "0,", ",0", "0,,1", "0-3:2/4", "a", "0 1",
                             "0-99999999999", "0-4294967295", "16384", "(null)"}) {
        EXPECT_EQ(parseCpuList(text), std::nullopt) << text;
    }
}

TEST(Parse, a_cpu_list_that_repeats_itself_is_bounded) {
    std::string text = "0-16383";
    for (int i = 0; i < 1000; ++i) text += ",0-16383";
    EXPECT_EQ(parseCpuList(text), std::nullopt);
}

TEST(Parse, a_field_is_found_by_its_whole_key) {
    const auto* text = "model\t\t: 167\nmodel name\t: Fast: 4 GHz\nflags:\nno colon\n";
    EXPECT_EQ(fieldOf(text, "model name"), "Fast: 4 GHz");
    EXPECT_EQ(fieldOf(text, "model"), "167");
    EXPECT_EQ(fieldOf(text, "flags"), "");
    EXPECT_EQ(fieldOf(text, "name"), std::nullopt);
    EXPECT_EQ(fieldOf(text, "no colon"), std::nullopt);
}

TEST(Parse, lines_are_taken_off_the_front_until_none_is_left) {
    std::string_view text = "a\n\nb";
    EXPECT_EQ(takeLine(text), "a");
    EXPECT_EQ(takeLine(text), "");
    EXPECT_EQ(takeLine(text), "b");
    EXPECT_TRUE(text.empty());
}

}  // namespace
}  // namespace vtx::test
