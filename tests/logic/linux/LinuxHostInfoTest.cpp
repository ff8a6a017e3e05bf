// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxHostInfo.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

constexpr auto statPath = "/proc/stat";
constexpr auto presentPath = "/sys/devices/system/cpu/present";

using Words = std::vector<std::uint32_t>;

Words wordsOf(const ProcessorLoadInfo& info) {
    const auto words = info.words.words();
    return {words.begin(), words.end()};
}

/// A host of two processors whose /proc/stat a test writes.
struct Host {
    explicit Host(std::string_view stat) { write(stat); }
    void write(std::string_view stat) const { tree.write(statPath, stat); }
    Words read() { return wordsOf(info.processorLoadInfo()); }

    [[nodiscard]] LinuxProcessors twoProcessors() const {
        tree.write(presentPath, "0-1\n");
        return LinuxProcessors(root);
    }

    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    LinuxProcessors processors = twoProcessors();
    SteadyMemory memory{root};
    LinuxHostInfo info{root, processors, memory.reader};
};

TEST(LinuxHostInfo, gives_four_words_for_each_processor_in_order) {
    Host host("cpu  5 5 5 5\ncpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
    const auto info = host.info.processorLoadInfo();
    EXPECT_EQ(info.result, kernSuccess);
    EXPECT_EQ(info.processorCount, 2u);
    EXPECT_EQ(wordsOf(info), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
}

TEST(LinuxHostInfo, a_processor_that_goes_offline_keeps_its_place_and_its_counters) {
    Host host("cpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
    host.write("cpu1 11 21 31 41\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 11, 31, 41, 21}));
}

TEST(LinuxHostInfo, a_processor_offline_since_the_start_has_its_place_too) {
    const LinuxRoot root(fixture("intel-hybrid-laptop-6.12"));
    const LinuxProcessors processors(root);
    SteadyMemory memory(root);
    LinuxHostInfo host(root, processors, memory.reader);
    const auto info = host.processorLoadInfo();
    EXPECT_EQ(info.processorCount, 16u);
    const auto words = wordsOf(info);
    EXPECT_EQ(words.at(8), 1020u);
    EXPECT_EQ(Words(words.begin() + 12, words.begin() + 16), (Words{0, 0, 0, 0}));
    EXPECT_EQ(words.at(16), 1040u);
    EXPECT_EQ(words.at(60), 1150u);
}

TEST(LinuxHostInfo, lines_in_another_order_reach_their_own_places) {
    Host host("cpu1 10 20 30 40\ncpu0 1 2 3 4\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
}

TEST(LinuxHostInfo, a_processor_without_a_place_is_passed_over) {
    Host host("cpu0 1 2 3 4\ncpu1 1 2 3 4\ncpu2 9 9 9 9\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 1, 3, 4, 2}));
}

TEST(LinuxHostInfo, a_line_not_understood_leaves_the_last_values_of_that_processor_alone) {
    for (const auto* line :
         {"cpu0 x 2 3 4", "cpu0 -1 2 3 4", "cpu0 5 6 7", "cpu0", "cpu0 5 6 7 18446744073709551000",
          "cpu0 99999999999999999999 1 1 1"}) {
        Host host("cpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
        EXPECT_EQ(host.read().size(), 8u);
        host.write(fmt::format("{}\ncpu1 11 21 31 41\nintr 1\n", line));
        EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 11, 31, 41, 21})) << line;
    }
}

TEST(LinuxHostInfo, a_file_cut_anywhere_never_moves_a_counter_wrongly) {
    const std::string before = "cpu  1 1 1 1\ncpu0 100 200 300 400\ncpu1 100 200 300 400\nintr 1\n";
    const std::string after = "cpu  1 1 1 1\ncpu0 111 222 333 444\ncpu1 111 222 333 444\nintr 1\n";
    const Words old{100, 300, 400, 200};
    const Words renewed{111, 333, 444, 222};
    Host host(before);
    for (std::size_t cut = 0; cut <= after.size(); ++cut) {
        LinuxHostInfo reader(host.root, host.processors, host.memory.reader);
        host.write(before);
        ASSERT_EQ(reader.processorLoadInfo().result, kernSuccess);
        host.write(after.substr(0, cut));
        const auto info = reader.processorLoadInfo();
        const bool firstWhole = cut >= after.find("cpu1");
        ASSERT_EQ(info.result, firstWhole ? kernSuccess : kernFailure) << cut;
        if (!firstWhole) continue;
        const auto words = wordsOf(info);
        EXPECT_EQ(Words(words.begin(), words.begin() + 4), renewed) << cut;
        const bool secondWhole = cut >= after.find("intr");
        EXPECT_EQ(Words(words.begin() + 4, words.end()), secondWhole ? renewed : old) << cut;
    }
}

TEST(LinuxHostInfo, what_is_no_stat_file_fails_the_call_and_gives_no_array) {
    for (const auto* text :
         {"", "\n", "intr 1\ncpu0 1 2 3 4\n", "cpu  1 2 3 4\nintr 1\n", "cpu", "\xff\xfe\xfd"}) {
        Host host(text);
        const auto info = host.info.processorLoadInfo();
        EXPECT_EQ(info.result, kernFailure) << text;
        EXPECT_TRUE(info.words.isNull()) << text;
    }
    Host host("");
    host.tree.remove(statPath);
    EXPECT_EQ(host.info.processorLoadInfo().result, kernFailure);
}

TEST(LinuxHostInfo, a_file_that_comes_later_is_read_then) {
    Host host("");
    host.tree.remove(statPath);
    EXPECT_EQ(host.info.processorLoadInfo().result, kernFailure);
    host.write("cpu0 1 2 3 4\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 0, 0, 0, 0}));
}

TEST(LinuxHostInfo, lines_far_longer_than_usual_are_read_whole) {
    const std::string longer(20'000, '7');
    Host host("cpu  " + longer + "\ncpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
    host.write("cpu  " + longer + longer + "\ncpu0 2 3 4 5\ncpu1 11 21 31 41\nintr 1\n");
    EXPECT_EQ(host.read(), (Words{2, 4, 5, 3, 11, 31, 41, 21}));
}

TEST(LinuxHostInfo, a_second_call_while_the_first_array_is_out_leaves_it_as_it_was) {
    Host host("cpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
    const auto first = host.info.processorLoadInfo();
    host.write("cpu0 2 3 4 5\ncpu1 11 21 31 41\nintr 1\n");
    const auto second = host.info.processorLoadInfo();
    EXPECT_EQ(wordsOf(first), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
    EXPECT_EQ(wordsOf(second), (Words{2, 4, 5, 3, 11, 31, 41, 21}));
    EXPECT_EQ(host.info.outstandingArrays(), 2u);
}

TEST(LinuxHostInfo, every_array_comes_back_and_is_used_again) {
    Host host("cpu0 1 2 3 4\ncpu1 10 20 30 40\nintr 1\n");
    const std::uint32_t* const address = host.info.processorLoadInfo().words.words().data();
    EXPECT_EQ(host.info.outstandingArrays(), 0u);
    EXPECT_EQ(host.info.processorLoadInfo().words.words().data(), address);
}

TEST(LinuxHostInfo, counters_of_a_gap_in_the_numbers_have_no_place) {
    const TemporaryTree tree;
    tree.write(presentPath, "0,2\n");
    tree.write(statPath, "cpu0 1 2 3 4\ncpu1 7 7 7 7\ncpu2 10 20 30 40\nintr 1\n");
    const LinuxRoot root(tree.path());
    const LinuxProcessors processors(root);
    SteadyMemory memory(root);
    LinuxHostInfo host(root, processors, memory.reader);
    EXPECT_EQ(wordsOf(host.processorLoadInfo()), (Words{1, 3, 4, 2, 10, 30, 40, 20}));
}

TEST(LinuxHostInfo, a_machine_that_names_no_processor_fails_every_call) {
    const TemporaryTree tree;
    const LinuxRoot root(tree.path());
    const LinuxProcessors processors(root);
    SteadyMemory memory(root);
    EXPECT_EQ(LinuxHostInfo(root, processors, memory.reader).processorLoadInfo().result,
              kernFailure);
}

}  // namespace
}  // namespace vtx::test
