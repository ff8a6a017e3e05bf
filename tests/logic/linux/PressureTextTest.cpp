// SPDX-License-Identifier: MIT
#include "platform/linux/PressureText.h"

#include <gtest/gtest.h>

#include <string>

namespace vtx::test {
namespace {

constexpr std::string_view usual =
    "some avg10=7.50 avg60=1.20 avg300=0.10 total=123456\n"
    "full avg10=100.00 avg60=0.00 avg300=0.00 total=18446744073709551615\n";

TEST(PressureText, both_lines_tell_the_average_and_the_total) {
    EXPECT_EQ(parseMemoryPressure(usual),
              (MemoryPressure{{7.5, 123'456}, {100.0, 18446744073709551615U}}));
}

TEST(PressureText, lines_and_words_may_come_in_another_order) {
    EXPECT_EQ(
        parseMemoryPressure("full total=2 avg10=0.01\nmore x=1\nsome new=1 total=9 avg10=3.00\n"),
        (MemoryPressure{{3.0, 9}, {0.01, 2}}));
}

TEST(PressureText, a_text_cut_anywhere_tells_nothing) {
    for (std::size_t cut = 0; cut < usual.size(); ++cut)
        EXPECT_EQ(parseMemoryPressure(usual.substr(0, cut)), std::nullopt) << cut;
}

TEST(PressureText, what_is_no_average_or_total_makes_it_absent) {
    for (const auto* bad :
         {"avg10=101.00 total=1", "avg10=-1.00 total=1", "avg10=nan total=1", "avg10=1.0 total=1",
          "avg10=1.000 total=1", "avg10=1 total=1", "avg10=1.00 total=-1",
          "avg10=1.00 total=", "avg10=1.00", "total=1", "avg10=1.00 total=18446744073709551616", "",
          "avg10 total", "avg10=1.x0 total=1", "avg100=1.00 total=1"}) {
        const std::string line = std::string("some ") + bad + "\n";
        EXPECT_EQ(parseMemoryPressure(line + "full avg10=0.00 total=0\n"), std::nullopt) << bad;
    }
}

TEST(PressureText, one_line_alone_tells_nothing) {
    EXPECT_EQ(parseMemoryPressure("some avg10=0.00 total=0\n"), std::nullopt);
    EXPECT_EQ(parseMemoryPressure("full avg10=0.00 total=0\n"), std::nullopt);
    EXPECT_EQ(parseMemoryPressure(std::string(1 << 20, 's')), std::nullopt);
}

}  // namespace
}  // namespace vtx::test
