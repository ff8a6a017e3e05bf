// SPDX-License-Identifier: MIT
#include "comparison/MarkdownTable.h"

#include <gtest/gtest.h>

namespace vtx::bench {
namespace {

TEST(MarkdownTable, pads_its_columns_the_first_to_the_left_the_others_to_the_right) {
    MarkdownTable table({"program", "CPU"});
    table.add({"top", "0.25"});
    EXPECT_EQ(table.text(),
              "| program |  CPU |\n"
              "|---------|-----:|\n"
              "| top     | 0.25 |\n");
}

TEST(MarkdownTable, counts_characters_and_not_their_bytes) {
    MarkdownTable table({"×", "n"});
    table.add({"—", "abc"});
    EXPECT_EQ(table.text(),
              "| ×   |   n |\n"
              "|-----|----:|\n"
              "| —   | abc |\n");
}

}  // namespace
}  // namespace vtx::bench
