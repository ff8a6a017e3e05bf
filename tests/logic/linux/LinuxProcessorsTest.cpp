// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessors.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

/// The level of each place as digits.
std::string levelsOf(const LinuxRoot& root) {
    const LinuxProcessors processors(root);
    std::string levels;
    for (std::size_t place = 0; place < processors.count(); ++place) {
        levels += static_cast<char>('0' + processors.levelAt(place));
    }
    return levels;
}

std::string levelsOfFixture(std::string_view machine) {
    return levelsOf(LinuxRoot(fixture(machine)));
}

/// A tree with that many present processors on no known architecture.
struct Machine {
    explicit Machine(std::string_view present) {
        tree.write("/sys/devices/system/cpu/present", present);
    }
    void capacity(int cpu, std::string_view value) const {
        tree.write(fmt::format("/sys/devices/system/cpu/cpu{}/cpu_capacity", cpu), value);
    }
    [[nodiscard]] std::string levels() const { return levelsOf(LinuxRoot(tree.path())); }

    TemporaryTree tree;
};

TEST(LinuxProcessors, recorded_machines_have_the_levels_they_were_built_with) {
    EXPECT_EQ(levelsOfFixture("virtual-server-6.18"), "00");
    EXPECT_EQ(levelsOfFixture("intel-hybrid-laptop-6.12"), "0000000011111111");
    EXPECT_EQ(levelsOfFixture("arm-big-little-board-6.6"), "111100");
    EXPECT_EQ(levelsOfFixture("arm-three-tier-6.10"), "11110000");
}

TEST(LinuxProcessors, a_list_of_the_present_that_is_empty_leaves_them_to_the_counters) {
    const Machine machine("\n");
    EXPECT_EQ(machine.levels(), "");
    machine.tree.write("/proc/stat", "cpu  1 2 3 4\ncpu0 1 2 3 4\ncpu1 1 2 3 4\nintr 0\n");
    EXPECT_EQ(machine.levels(), "00");
}

TEST(LinuxProcessors, a_list_of_fast_ones_that_is_empty_tells_no_kinds) {
    const Machine machine("0-1\n");
    machine.tree.write("/sys/devices/cpu_core/cpus", "\n");
    machine.tree.write("/sys/devices/cpu_atom/cpus", "0-1\n");
    EXPECT_EQ(machine.levels(), "00");
}

TEST(LinuxProcessors, equal_capacities_are_one_level) {
    const Machine machine("0-1\n");
    machine.capacity(0, "1024\n");
    machine.capacity(1, "1024\n");
    EXPECT_EQ(machine.levels(), "00");
}

TEST(LinuxProcessors, a_processor_of_unknown_capacity_counts_as_fast) {
    const Machine machine("0-3\n");
    machine.capacity(0, "400\n");
    machine.capacity(1, "junk\n");
    machine.capacity(2, "0\n");
    machine.capacity(3, "1024\n");
    EXPECT_EQ(machine.levels(), "1000");
}

TEST(LinuxProcessors, turbo_ranks_of_x86_make_no_levels) {
    const Machine machine("0-1\n");
    machine.tree.write("/proc/cpuinfo", "processor\t: 0\nvendor_id\t: AuthenticAMD\n");
    machine.capacity(0, "1024\n");
    machine.capacity(1, "980\n");
    EXPECT_EQ(machine.levels(), "00");
}

TEST(LinuxProcessors, the_slowest_kind_of_a_hybrid_with_three_is_efficient_too) {
    const Machine machine("0-5\n");
    machine.tree.write("/sys/devices/cpu_core/cpus", "0-1\n");
    machine.tree.write("/sys/devices/cpu_atom/cpus", "2-3\n");
    machine.tree.write("/sys/devices/cpu_lowpower/cpus", "4-5\n");
    EXPECT_EQ(machine.levels(), "001111");
}

TEST(LinuxProcessors, damaged_lists_of_kinds_never_name_a_processor_that_is_not_there) {
    for (const auto* atom : {"", "\n", "junk", "3-", "7-9", "0-4294967295", "0-3"}) {
        const Machine machine("0-3\n");
        machine.tree.write("/sys/devices/cpu_core/cpus", "0-3\n");
        machine.tree.write("/sys/devices/cpu_atom/cpus", atom);
        EXPECT_EQ(machine.levels(), "0000") << atom;
    }
}

TEST(LinuxProcessors, a_list_of_one_kind_alone_is_one_level) {
    const Machine machine("0-1\n");
    machine.tree.write("/sys/devices/cpu_atom/cpus", "0-1\n");
    EXPECT_EQ(machine.levels(), "00");
}

TEST(LinuxProcessors, without_the_list_of_present_ones_the_lines_of_the_counters_tell) {
    const TemporaryTree tree;
    tree.write("/proc/stat", "cpu  1 1 1 1\ncpu4 1 1 1 1\ncpu0 1 1 1 1\ncpu0 1 1 1 1\nintr 0\n");
    const LinuxProcessors processors{LinuxRoot(tree.path())};
    EXPECT_EQ(std::vector(processors.numbers().begin(), processors.numbers().end()),
              (std::vector<std::uint32_t>{0, 4}));
    EXPECT_EQ(processors.placeOf(4), 1u);
    EXPECT_EQ(processors.placeOf(1), std::nullopt);
}

TEST(LinuxProcessors, an_empty_tree_has_none) {
    const TemporaryTree tree;
    EXPECT_EQ(LinuxProcessors(LinuxRoot(tree.path())).count(), 0u);
}

}  // namespace
}  // namespace vtx::test
