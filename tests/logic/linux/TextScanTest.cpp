// SPDX-License-Identifier: MIT
#include "platform/linux/TextScan.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace vtx::test {
namespace {

std::optional<std::uint64_t> numberOf(std::string_view text) {
    TextScan scan(text);
    std::uint64_t value = 7;
    if (!scan.takeNumber(value)) {
        EXPECT_EQ(value, 7U) << text;
        EXPECT_EQ(scan.rest(), text);
        return std::nullopt;
    }
    return value;
}

TEST(TextScan, takes_numbers_that_64_bits_hold_and_no_others) {
    EXPECT_EQ(numberOf("0"), 0U);
    EXPECT_EQ(numberOf("18446744073709551615 "), 18'446'744'073'709'551'615U);
    EXPECT_EQ(numberOf("0000000000000000000000000000012"), 12U);
    for (const auto* text :
         {"", " 1", "-1", "+1", "x", "18446744073709551616", "18446744073709551620",
          "99999999999999999999", "184467440737095516150"})
        EXPECT_EQ(numberOf(text), std::nullopt) << text;
}

TEST(TextScan, a_number_without_an_end_is_no_whole_one) {
    for (const auto* text : {"12", "12x", "x 12", "18446744073709551616 "}) {
        TextScan scan(text);
        std::uint64_t value = 0;
        EXPECT_FALSE(scan.takeWholeNumber(value)) << text;
        EXPECT_EQ(scan.rest(), text);
    }
    for (const auto* text : {"12 ", "12\t", "12\n"}) {
        TextScan scan(text);
        std::uint64_t value = 0;
        EXPECT_TRUE(scan.takeWholeNumber(value)) << text;
        EXPECT_EQ(value, 12U) << text;
    }
    TextScan scan("12\n34 ");
    std::uint64_t value = 0;
    EXPECT_TRUE(scan.takeWholeNumber(value));
    EXPECT_EQ(value, 12U);
    EXPECT_EQ(scan.rest(), "\n34 ");
}

TEST(TextScan, never_leaves_the_text) {
    const std::string text = "  word 1";
    for (std::size_t size = 0; size <= text.size(); ++size) {
        TextScan scan(std::string_view(text).substr(0, size));
        scan.skipBlanks();
        EXPECT_EQ(scan.takeWord(), size > 2);
        EXPECT_EQ(scan.take(' '), size > 6);
        std::uint64_t value = 0;
        EXPECT_EQ(scan.takeNumber(value), size == text.size());
        EXPECT_TRUE(scan.isAtEnd());
        EXPECT_FALSE(scan.take('\0'));
        EXPECT_FALSE(scan.takeWord());
    }
}

}  // namespace
}  // namespace vtx::test
