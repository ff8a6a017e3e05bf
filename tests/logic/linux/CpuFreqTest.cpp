// SPDX-License-Identifier: MIT
#include "platform/linux/CpuFreq.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

using Steps = std::vector<std::uint64_t>;
using Places = std::vector<std::size_t>;

struct Found {
    explicit Found(const std::string& folder)
        : root(folder), processors(root), cpuFreq(root, processors) {}
    [[nodiscard]] Steps steps(std::size_t level = 0) const {
        const auto steps = cpuFreq.stepsKHz(level);
        return {steps.begin(), steps.end()};
    }

    LinuxRoot root;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
};

/// Two processors and one policy.
struct Machine {
    Machine() {
        tree.write("/sys/devices/system/cpu/present", "0-1\n");
        set("related_cpus", "0 1\n");
        set("cpuinfo_min_freq", "800000\n");
        set("cpuinfo_max_freq", "1000000\n");
    }
    void set(std::string_view file, std::string_view text) const {
        tree.write(std::string("/sys/devices/system/cpu/cpufreq/policy0/").append(file), text);
    }
    [[nodiscard]] Steps steps() const { return Found(tree.path()).steps(); }

    TemporaryTree tree;
};

TEST(CpuFreq, a_cluster_has_the_clocks_that_its_driver_lists) {
    const Found board(fixture("arm-big-little-board-6.6"));
    EXPECT_EQ(board.steps(1), (Steps{408000, 600000, 816000, 1008000, 1200000, 1416000}));
    EXPECT_EQ(board.steps(0),
              (Steps{408000, 600000, 816000, 1008000, 1200000, 1416000, 1608000, 1800000}));
    ASSERT_EQ(board.cpuFreq.policies().size(), 2u);
    EXPECT_EQ(board.cpuFreq.policies()[0].places, (Places{0, 1, 2, 3}));
    EXPECT_EQ(board.cpuFreq.policies()[1].places, (Places{4, 5}));
}

TEST(CpuFreq, what_else_its_folder_has_is_no_policy) {
    const Machine machine;
    machine.tree.write("/sys/devices/system/cpu/cpufreq/boost", "1\n");
    machine.tree.write("/sys/devices/system/cpu/cpufreq/conservative/down_threshold", "20\n");
    const Found found(machine.tree.path());
    ASSERT_EQ(found.cpuFreq.policies().size(), 1U);
    EXPECT_EQ(found.cpuFreq.policies()[0].places, (Places{0, 1}));
}

TEST(CpuFreq, a_level_of_two_clusters_has_the_clocks_of_both) {
    const Found board(fixture("arm-three-tier-6.10"));
    EXPECT_EQ(board.steps(0), (Steps{499200, 600000, 844800, 1132800, 1190400, 1670400, 1785600,
                                     2073600, 2361600, 2400000, 2707200, 2850000}));
    EXPECT_EQ(board.steps(1).back(), 1'800'000u);
}

TEST(CpuFreq, a_level_of_very_many_clocks_keeps_those_of_its_fastest_processor) {
    const TemporaryTree tree;
    tree.write("/sys/devices/system/cpu/present", "0-7\n");
    for (std::size_t cpu = 0; cpu < 8; ++cpu) {
        const auto folder = fmt::format("/sys/devices/system/cpu/cpufreq/policy{}/", cpu);
        tree.write(folder + "related_cpus", fmt::format("{}\n", cpu));
        tree.write(folder + "cpuinfo_min_freq", fmt::format("{}\n", 400'000 + cpu));
        tree.write(folder + "cpuinfo_max_freq", fmt::format("{}\n", 4'400'000 + cpu));
    }
    const auto steps = Found(tree.path()).steps();
    EXPECT_EQ(steps.size(), 81u);
    EXPECT_EQ(steps.front(), 400'007u);
    EXPECT_EQ(steps.back(), 4'400'007u);
}

TEST(CpuFreq, a_driver_that_lists_no_clocks_gets_steps_from_its_lowest_to_its_highest) {
    const Found laptop(fixture("intel-hybrid-laptop-6.12"));
    EXPECT_EQ(laptop.cpuFreq.policies().size(), 15u);
    ASSERT_EQ(laptop.steps(0).size(), 87u);
    EXPECT_EQ(laptop.steps(0)[1], 450'000u);
    EXPECT_EQ(laptop.steps(0).back(), 4'700'000u);
    EXPECT_EQ(laptop.steps(1).front(), 400'000u);
    EXPECT_EQ(laptop.steps(1).back(), 3'400'000u);
}

TEST(CpuFreq, a_machine_without_cpufreq_has_no_clocks) {
    const Found server(fixture("virtual-server-6.18"));
    EXPECT_TRUE(server.cpuFreq.policies().empty());
    EXPECT_TRUE(server.steps(0).empty());
    EXPECT_TRUE(server.steps(1).empty());
}

TEST(CpuFreq, listed_clocks_ascend_once_each_with_the_boosted_ones) {
    const Machine machine;
    machine.set("scaling_available_frequencies", "900000 800000 900000 \n");
    machine.set("scaling_boost_frequencies", "1000000 \n");
    EXPECT_EQ(machine.steps(), (Steps{800000, 900000, 1000000}));
}

TEST(CpuFreq, steps_lead_from_the_highest_listed_clock_to_the_highest_of_all) {
    const Machine machine;
    machine.set("scaling_available_frequencies", "800000 600000\n");
    machine.set("cpuinfo_max_freq", "930000\n");
    EXPECT_EQ(machine.steps(), (Steps{600000, 800000, 850000, 900000, 930000}));
}

TEST(CpuFreq, a_damaged_list_is_as_none) {
    for (const auto* text : {"800000 x 900000", "", "\n", "0 800000", "800000 100000000",
                             "800000 99999999999999999999", "-1"}) {
        const Machine machine;
        machine.set("scaling_available_frequencies", text);
        EXPECT_EQ(machine.steps(), (Steps{800000, 850000, 900000, 950000, 1000000})) << text;
    }
}

TEST(CpuFreq, bounds_that_are_no_clocks_give_no_steps) {
    for (const auto* file : {"cpuinfo_min_freq", "cpuinfo_max_freq"}) {
        for (const auto* text :
             {"", "0\n", "junk", "-800000\n", "999\n", "99999999999999999999\n"}) {
            const Machine machine;
            machine.set(file, text);
            EXPECT_TRUE(machine.steps().empty()) << file << " " << text;
        }
    }
}

TEST(CpuFreq, a_lowest_clock_above_the_highest_gives_no_steps) {
    const Machine machine;
    machine.set("cpuinfo_min_freq", "2000000\n");
    EXPECT_TRUE(machine.steps().empty());
}

TEST(CpuFreq, a_span_without_end_has_few_steps) {
    const Machine machine;
    machine.set("cpuinfo_min_freq", "1000\n");
    machine.set("cpuinfo_max_freq", "99999999\n");
    EXPECT_LE(machine.steps().size(), 129u);
    EXPECT_EQ(machine.steps().back(), 99'999'999u);
}

TEST(CpuFreq, a_processor_is_in_one_policy_however_many_name_it) {
    const Machine machine;
    const std::string second = "/sys/devices/system/cpu/cpufreq/policy1/related_cpus";
    for (const auto* text : {"0 1\n", "7 99 4294967296\n", "junk\n", "\n"}) {
        machine.tree.write(second, text);
        const Found found(machine.tree.path());
        ASSERT_EQ(found.cpuFreq.policies().size(), 1u) << text;
        EXPECT_EQ(found.cpuFreq.policies()[0].places, (Places{0, 1}));
    }
}

}  // namespace
}  // namespace vtx::test
