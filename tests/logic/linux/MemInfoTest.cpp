// SPDX-License-Identifier: MIT
#include "platform/linux/MemInfo.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

constexpr auto usual =
    "MemTotal:       1000000 kB\nMemFree:         300000 kB\nMemAvailable:    600000 kB\n"
    "Unevictable:       2000 kB\nSwapTotal:        50000 kB\nSwapFree:         40000 kB\n"
    "Zswap:             8000 kB\nSUnreclaim:       40000 kB\nKernelStack:       4000 kB\n"
    "PageTables:        6000 kB\n";

MemInfo usualInfo() {
    return {1'000'000, 300'000, 600'000, 2000, 8000, 40'000, 4000, 6000, 50'000, 40'000};
}

std::uint64_t usedOf(const VMPageCounts& pages) {
    return pages.active + pages.wired + pages.compressor;
}

TEST(MemInfo, fields_are_found_by_their_names) { EXPECT_EQ(parseMemInfo(usual), usualInfo()); }

TEST(MemInfo, lines_may_come_in_any_order_and_among_others) {
    std::string reordered;
    std::string_view rest = usual;
    while (!rest.empty()) {
        const auto end = rest.find('\n') + 1;
        reordered.insert(0,
                         std::string(rest.substr(0, end)) + "Other:  1 kB\nHugePages_Total: 3\n");
        rest.remove_prefix(end);
    }
    EXPECT_EQ(parseMemInfo(reordered), usualInfo());
}

TEST(MemInfo, the_recorded_server_is_understood) {
    const auto info = parseMemInfo(contentsOf(fixture("virtual-server-6.18") + "/proc/meminfo"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->total, 24'684'096U);
    EXPECT_EQ(info->available, 24'220'764U);
    EXPECT_EQ(info->unevictable, 19'732U);
    EXPECT_EQ(info->slabUnreclaimable, 31'000U);
    const auto pages = pageCountsOf(*info, 0, 4096);
    EXPECT_EQ(usedOf(pages) * 4, 24'684'096U - 24'220'764U);
}

TEST(MemInfo, used_is_exactly_what_is_not_available) {
    for (const std::uint64_t pageSize : {4096U, 16'384U, 65'536U}) {
        const auto pages = pageCountsOf(usualInfo(), 0, pageSize);
        const std::uint64_t perPage = pageSize / 1024;
        EXPECT_EQ(usedOf(pages), 1'000'000 / perPage - 600'000 / perPage) << pageSize;
        EXPECT_EQ(pages.free + pages.inactive, 600'000 / perPage) << pageSize;
    }
}

TEST(MemInfo, parts_are_what_the_kernel_says_they_are) {
    const auto pages = pageCountsOf(usualInfo(), 4'096'000, 4096);
    EXPECT_EQ(pages.compressor, (8000U + 4000U) / 4);
    EXPECT_EQ(pages.wired, (40'000U + 4000U + 6000U + 2000U) / 4);
    EXPECT_EQ(pages.active, (400'000U - 12'000U - 52'000U) / 4);
    EXPECT_EQ(pages.free, 300'000U / 4);
    EXPECT_EQ(pages.inactive, 300'000U / 4);
    EXPECT_EQ(pages.speculative, 0U);
}

TEST(MemInfo, parts_that_claim_more_than_there_is_are_cut) {
    auto info = usualInfo();
    info.slabUnreclaimable = 10'000'000;
    info.zswap = 390'000;
    auto pages = pageCountsOf(info, 0, 4096);
    EXPECT_EQ(pages.compressor, 390'000U / 4);
    EXPECT_EQ(pages.wired, 10'000U / 4);
    EXPECT_EQ(pages.active, 0U);
    EXPECT_EQ(usedOf(pages), 400'000U / 4);
    info.available = 2'000'000;
    info.free = 1'500'000;
    pages = pageCountsOf(info, 0, 4096);
    EXPECT_EQ(usedOf(pages), 0U);
    EXPECT_EQ(pages.free, 1'000'000U / 4);
    EXPECT_EQ(pages.inactive, 0U);
}

TEST(MemInfo, without_total_free_or_available_there_is_nothing_to_tell) {
    for (const auto* key : {"MemTotal:", "MemFree:", "MemAvailable:"}) {
        std::string text = usual;
        text.replace(text.find(key), 3, "Xyz");
        EXPECT_EQ(parseMemInfo(text), std::nullopt) << key;
    }
    EXPECT_EQ(parseMemInfo("MemTotal: 0 kB\nMemFree: 0 kB\nMemAvailable: 0 kB\n"), std::nullopt);
}

TEST(MemInfo, a_line_that_is_not_understood_is_passed_over) {
    for (const auto* line : {"MemTotal: -5 kB", "MemTotal: x kB", "MemTotal: 5", "MemTotal: 5 MB",
                             "MemTotal:", "MemTotal: 99999999999999999999 kB",
                             "MemTotal: 1125899906842624 kB", "MemTotal", ":"}) {
        EXPECT_EQ(parseMemInfo(fmt::format("{}\n{}", line, usual)), usualInfo()) << line;
    }
}

TEST(MemInfo, of_a_line_that_comes_twice_the_first_counts) {
    EXPECT_EQ(parseMemInfo(std::string(usual) + "MemTotal: 7 kB\n"), usualInfo());
    EXPECT_EQ(parseMemInfo("MemTotal: 7 kB\n" + std::string(usual))->total, 7U);
}

TEST(MemInfo, a_text_cut_anywhere_gives_whole_numbers_or_none) {
    const std::string text = usual;
    for (std::size_t cut = 0; cut < text.size(); ++cut) {
        const auto info = parseMemInfo(std::string_view(text).substr(0, cut));
        if (cut <= text.find("Unevictable") - 1) {
            EXPECT_EQ(info, std::nullopt) << cut;
            continue;
        }
        ASSERT_TRUE(info) << cut;
        EXPECT_EQ(info->available, 600'000U);
        EXPECT_TRUE(info->zswap == 0 || info->zswap == 8000) << cut;
        EXPECT_TRUE(info->pageTables == 0) << cut;
    }
}

TEST(MemInfo, enormous_and_binary_input_is_survived) {
    EXPECT_EQ(parseMemInfo(std::string(1 << 20, 'M')), std::nullopt);
    EXPECT_EQ(parseMemInfo(std::string(1 << 20, '\n')), std::nullopt);
    EXPECT_EQ(parseMemInfo(std::string_view("\0\xff\n:\n", 5)), std::nullopt);
}

TEST(MemInfoText, reads_the_numbers_anew_where_the_lines_were) {
    MemInfoText reader;
    EXPECT_EQ(reader.parse(usual), usualInfo());
    std::string text = usual;
    const auto digit = text.find_first_of("123456789", text.find("MemAvailable"));
    text[digit] = '1';
    EXPECT_EQ(reader.parse(text), parseMemInfo(text));
    EXPECT_NE(reader.parse(text), usualInfo());
}

TEST(MemInfoText, whatever_one_character_becomes_it_says_what_a_first_look_says) {
    const std::string before = usual;
    for (std::size_t at = 0; at < before.size(); ++at) {
        for (const char other : {'\n', ':', ' ', '0', '9', 'M', '\0'}) {
            MemInfoText reader;
            ASSERT_TRUE(reader.parse(before));
            std::string text = before;
            text[at] = other;
            ASSERT_EQ(reader.parse(text), parseMemInfo(text)) << at << other;
            ASSERT_EQ(reader.parse(before), usualInfo()) << at << other;
        }
    }
}

TEST(MemInfoText, a_name_within_a_line_is_no_field) {
    MemInfoText reader;
    const std::string before = "Other: 1 kB\n";
    ASSERT_TRUE(reader.parse(before + usual));
    std::string text = before + usual;
    text[before.size() - 1] = ' ';
    EXPECT_EQ(reader.parse(text), parseMemInfo(text));
}

TEST(MemInfoText, lines_that_moved_came_or_went_are_found_again) {
    MemInfoText reader;
    ASSERT_TRUE(reader.parse(usual));
    std::string text = usual;
    const auto zswap = text.find("Zswap:");
    text.erase(zswap, text.find('\n', zswap) + 1 - zswap);
    EXPECT_EQ(reader.parse(text), parseMemInfo(text));
    EXPECT_EQ(reader.parse(usual), usualInfo());
    text = std::string("Other: 1 kB\n") + usual;
    EXPECT_EQ(reader.parse(text), usualInfo());
    for (std::size_t cut = 0; cut < text.size(); ++cut) {
        const auto part = std::string_view(text).substr(0, cut);
        ASSERT_EQ(reader.parse(part), parseMemInfo(part)) << cut;
    }
}

TEST(ZramPool, is_the_third_number_of_the_line) {
    EXPECT_EQ(parseZramPool("  90112  3040  12288        0    12288       15        0\n"), 12'288U);
    for (const auto* text : {"", "\n", "1 2\n", "1 2 3", "1 2 x \n", "1 2 -3 4\n",
                             "1 2 99999999999999999999 4\n", "1 2 18446744073709551615 4\n"})
        EXPECT_EQ(parseZramPool(text), std::nullopt) << text;
}

}  // namespace
}  // namespace vtx::test
