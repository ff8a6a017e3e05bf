// SPDX-License-Identifier: MIT
#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace vtx {
namespace {

const std::string one = "\uFFFD";

struct Repair {
    std::string bytes;
    std::string text;
};

class Utf8Repair : public testing::TestWithParam<Repair> {};

TEST_P(Utf8Repair, puts_the_replacement_for_what_is_no_character) {
    EXPECT_EQ(repairedUtf8(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    texts, Utf8Repair,
    testing::Values(Repair{"", ""}, Repair{"plain (text)\n", "plain (text)\n"},
                    Repair{"ä€😀", "ä€😀"}, Repair{"\xFF", one}, Repair{"a\x80z", "a" + one + "z"},
                    Repair{"\xC0\xAF", one + one}, Repair{"\xE0\x80\x80", one + one + one},
                    Repair{"\xED\xA0\x80", one + one + one},
                    Repair{"\xF4\x90\x80\x80", one + one + one + one}, Repair{"\xE2\x82", one},
                    Repair{"\xE2\x82z", one + "z"}, Repair{"\xF0\x9F\x98", one},
                    Repair{"\xC3\xC3\xA4", one + "ä"},
                    Repair{std::string("\0b", 2), std::string("\0b", 2)}));

}  // namespace
}  // namespace vtx
