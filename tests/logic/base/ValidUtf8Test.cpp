// SPDX-License-Identifier: MIT
#include "base/ValidUtf8.h"

#include <gtest/gtest.h>

#include "base/Utf8.h"

namespace vtx {
namespace {

TEST(ValidUtf8, takes_text_of_every_length_of_character) {
    for (const std::string_view text :
         {"", "plain", "ä€😀", "\u0080\u07FF", "\u0800\u0FFF\u1000\uCFFF\uD000\uD7FF\uE000\uFFFF",
          "\U00010000\U0003FFFF\U00040000\U000FFFFF\U00100000\U0010FFFF"})
        EXPECT_TRUE(isValidUtf8(text)) << text;
    EXPECT_TRUE(isValidUtf8({"\0a", 2}));
}

// A character with one byte of another.
TEST(ValidUtf8, refuses_what_is_no_character) {
    for (const std::string_view text : {"\x80",
                                        "\xBF",
                                        "\xC0\xAF",
                                        "\xC1\xBF",
                                        "\xC3",
                                        "\xC3\x28",
                                        "\xC3\xC3",
                                        "\xE0\x9F\xBF",
                                        "\xE2\x82",
                                        "\xE2\x28\xA1",
                                        "\xE2\x82\x28",
                                        "\xED\xA0\x80",
                                        "\xED\xBF\xBF",
                                        "\xF0\x8F\xBF\xBF",
                                        "\xF0\x9F\x98",
                                        "\xF0\x9F\x98\x28",
                                        "\xF4\x90\x80\x80",
                                        "\xF5\x80\x80\x80",
                                        "\xFE",
                                        "\xFF",
                                        "fine at first \xE2\x82"})
        EXPECT_FALSE(isValidUtf8(text)) << text;
}

// All that two bytes and the ends behind them can say.
TEST(ValidUtf8, calls_valid_exactly_what_needs_no_repair) {
    for (unsigned first = 0; first <= 0xff; ++first)
        for (unsigned second = 0; second <= 0xff; ++second)
            for (const std::string_view rest : {"", "\x80", "\xBF\x80", "\xBF\xBF", "z"}) {
                std::string text{static_cast<char>(first), static_cast<char>(second)};
                text += rest;
                ASSERT_EQ(isValidUtf8(text), repairedUtf8(text) == text) << first << ' ' << second;
            }
}

}  // namespace
}  // namespace vtx
