// SPDX-License-Identifier: MIT
#include "processes/ProcessFilter.h"

#include <gtest/gtest.h>

#include "platform/linux/LinuxLocale.h"
#include "support/Snapshots.h"
#include "support/TestBench.h"

namespace vtx {
namespace {

using Names = std::vector<std::string>;

/// Filters a list of some names, whose numbers are 412, 2207, 48113 and 3.
struct ProcessFilters : testing::Test {
    TestBench bench;
    std::vector<ProcessSnapshot> all{snapshotOf(412, 0, "mds_stores"),
                                     snapshotOf(2207, 0, "Firefox"), snapshotOf(48113, 0, "node 2"),
                                     snapshotOf(3, 0, "ÄRGER")};

    Names found(std::string_view search) {
        Names names;
        for (const auto& process : ProcessFilter(search, bench.platform.locale).of(all))
            names.push_back(process.name);
        return names;
    }
};

TEST_F(ProcessFilters, nothing_and_blanks_find_all_in_their_order) {
    const Names names{"mds_stores", "Firefox", "node 2", "ÄRGER"};
    for (const char* search : {"", " ", "  \t\n", "\u00a0", "\u3000 \u2003"})
        EXPECT_EQ(found(search), names) << '"' << search << '"';
}

TEST_F(ProcessFilters, part_of_a_name_is_found_whatever_its_case) {
    EXPECT_EQ(found("fire"), Names{"Firefox"});
    EXPECT_EQ(found("STORES"), Names{"mds_stores"});
    EXPECT_EQ(found("ärg"), Names{"ÄRGER"});
}

TEST_F(ProcessFilters, blanks_around_do_not_count_and_those_within_do) {
    EXPECT_EQ(found("  node \n"), Names{"node 2"});
    EXPECT_EQ(found("e 2"), Names{"node 2"});
    EXPECT_EQ(found("e  2"), Names{});
}

TEST_F(ProcessFilters, digits_find_numbers_and_names) {
    EXPECT_EQ(found("2"), (Names{"mds_stores", "Firefox", "node 2"}));
    EXPECT_EQ(found("4811"), Names{"node 2"});
    EXPECT_EQ(found("99"), Names{});
}

TEST_F(ProcessFilters, a_search_for_nothing_matches_each) {
    const ProcessFilter blanks("  ", bench.platform.locale);
    for (const auto& process : all) EXPECT_TRUE(blanks.matches(process)) << process.name;
    EXPECT_FALSE(ProcessFilter("firefox", bench.platform.locale).matches(all.front()));
}

TEST_F(ProcessFilters, the_path_takes_no_part) { EXPECT_EQ(found("opt"), Names{}); }

TEST(LowercasedLetters, are_those_of_every_script_whatever_the_language) {
    const LinuxLocale turkish(
        [](std::string_view) { return std::optional<std::string>("tr_TR.UTF-8"); });
    EXPECT_EQ(turkish.lowercased("ImageMagick"), "imagemagick");
    EXPECT_EQ(turkish.lowercased("ÄÉÎØ Ж Σ 名"), "äéîø ж σ 名");
    EXPECT_EQ(turkish.lowercased("GNU-2 [B]"), "gnu-2 [b]");
    EXPECT_EQ(turkish.lowercased(""), "");
    EXPECT_EQ(turkish.lowercased("cut \xC3"), "cut \uFFFD");
}

}  // namespace
}  // namespace vtx
