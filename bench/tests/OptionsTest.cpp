// SPDX-License-Identifier: MIT
#include "Options.h"

#include <gmock/gmock.h>

#include <sstream>
#include <stdexcept>

#include "MachineFacts.h"

namespace vtx::bench {
namespace {

TEST(Options, a_comparison_has_rounds_figures_and_a_table) {
    const auto options = parse({"--compare", "3", "--seconds", "20", "--figures", "a.json",
                                "--figures", "b.json", "--markdown", "table.md"});
    EXPECT_EQ(options.rounds, 3);
    EXPECT_EQ(options.seconds, 20);
    EXPECT_THAT(options.figures, testing::ElementsAre("a.json", "b.json"));
    EXPECT_EQ(options.markdown, "table.md");
}

TEST(Options, without_any_the_costs_alone_are_measured) {
    EXPECT_EQ(parse({}).rounds, std::nullopt);
}

TEST(Options, what_is_not_understood_is_refused) {
    using Words = std::vector<std::string>;
    for (const auto& words : {Words{"--compare"}, Words{"--compare", "0"}, Words{"--compare", "3x"},
                              Words{"--seconds", "-1"}, Words{"--colour"}})
        EXPECT_THROW((void)parse(words), std::runtime_error) << words.front();
}

TEST(MachineFacts, a_distribution_is_named_as_its_file_does) {
    for (const auto* text : {"NAME=x\nPRETTY_NAME=\"Some Linux 12\"\nID=y\n",
                             "PRETTY_NAME='Some Linux 12'", "PRETTY_NAME=Some Linux 12\n"}) {
        std::istringstream file(text);
        EXPECT_EQ(prettyNameOf(file), "Some Linux 12") << text;
    }
}

TEST(MachineFacts, a_distribution_that_does_not_tell_its_name_has_none) {
    for (const auto* text : {"", "NAME=x\n", "MY_PRETTY_NAME=x\n"}) {
        std::istringstream file(text);
        EXPECT_EQ(prettyNameOf(file), "") << text;
    }
    std::istringstream lone("PRETTY_NAME=\"\n");
    EXPECT_EQ(prettyNameOf(lone), "\"");
}

TEST(MachineFacts, the_busy_part_is_absent_where_no_time_has_passed) {
    EXPECT_EQ(busyFraction({10, 100}, {20, 140}), 0.25);
    EXPECT_EQ(busyFraction({10, 100}, {10, 100}), std::nullopt);
    EXPECT_EQ(busyFraction({10, 100}, {5, 140}), std::nullopt);
}

}  // namespace
}  // namespace vtx::bench
