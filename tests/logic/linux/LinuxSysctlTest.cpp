// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSysctl.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <optional>

#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

struct Machine {
    explicit Machine(const std::string& folder) : root(folder) {}

    template <class Number>
    std::optional<Number> number(std::string_view name) {
        Number value = 0;
        std::size_t size = 0;
        const auto into = std::as_writable_bytes(std::span(&value, 1));
        if (sysctl.sysctlbyname(name, into, size) != 0 || size != sizeof value) return {};
        return value;
    }
    auto int32(std::string_view name) { return number<std::int32_t>(name); }
    auto int64(std::string_view name) { return number<std::int64_t>(name); }

    std::optional<std::string> text(std::string_view name) {
        std::size_t size = 0;
        if (sysctl.sysctlbyname(name, {}, size) != 0) return {};
        std::vector<std::byte> bytes(size);
        if (sysctl.sysctlbyname(name, bytes, size) != 0) return {};
        EXPECT_EQ(bytes.back(), std::byte{0});
        return std::string(reinterpret_cast<const char*>(bytes.data()));
    }

    LinuxRoot root;
    LinuxProcessors processors{root};
    SteadyMemory memory{root};
    LinuxSysctl sysctl{root, processors, memory.reader};
};

TEST(LinuxSysctl, a_hybrid_laptop_has_two_levels_that_add_up_to_its_processors) {
    Machine machine(fixture("intel-hybrid-laptop-6.12"));
    EXPECT_EQ(machine.int32("hw.logicalcpu"), 16);
    EXPECT_EQ(machine.int32("hw.nperflevels"), 2);
    EXPECT_EQ(machine.int32("hw.perflevel0.logicalcpu"), 8);
    EXPECT_EQ(machine.int32("hw.perflevel1.logicalcpu"), 8);
    EXPECT_EQ(machine.int64("hw.perflevel0.cpufrequency_max"), 4'700'000'000);
    EXPECT_EQ(machine.int64("hw.perflevel1.cpufrequency_max"), 3'400'000'000);
    EXPECT_EQ(machine.int64("hw.memsize"), 16025884LL * 1024);
    EXPECT_EQ(machine.text("machdep.cpu.brand_string"), "12th Gen Intel(R) Core(TM) i7-1260P");
    EXPECT_EQ(machine.text("hw.model"), "Hybrid Laptop 14");
    EXPECT_EQ(machine.text("kern.osversion"), "6.12.38-generic");
    EXPECT_EQ(machine.int32("hw.cputype"), 7);
    EXPECT_EQ(machine.int32("hw.optional.arm64"), std::nullopt);
}

TEST(LinuxSysctl, only_one_vendors_processors_have_a_cpu_type) {
    for (const auto* vendor : {"AuthenticAMD", "CentaurHauls", "genuineintel"}) {
        const TemporaryTree tree;
        tree.write("/proc/cpuinfo", std::string("processor\t: 0\nvendor_id\t: ") + vendor + "\n");
        EXPECT_EQ(Machine(tree.path()).int32("hw.cputype"), std::nullopt) << vendor;
    }
}

TEST(LinuxSysctl, a_board_is_named_by_its_device_tree) {
    Machine machine(fixture("arm-big-little-board-6.6"));
    EXPECT_EQ(machine.int32("hw.perflevel0.logicalcpu"), 2);
    EXPECT_EQ(machine.int32("hw.perflevel1.logicalcpu"), 4);
    EXPECT_EQ(machine.int64("hw.perflevel0.cpufrequency_max"), 1'800'000'000);
    EXPECT_EQ(machine.int64("hw.perflevel1.cpufrequency_max"), 1'416'000'000);
    EXPECT_EQ(machine.text("machdep.cpu.brand_string"), "rockchip,rk3399");
    EXPECT_EQ(machine.text("hw.model"), "Pine64 RockPro64 v2.1");
    EXPECT_EQ(machine.int32("hw.cputype"), std::nullopt);
    EXPECT_EQ(machine.int32("hw.optional.arm64"), std::nullopt);
}

TEST(LinuxSysctl, of_three_tiers_the_fastest_two_are_level_0) {
    Machine machine(fixture("arm-three-tier-6.10"));
    EXPECT_EQ(machine.int32("hw.nperflevels"), 2);
    EXPECT_EQ(machine.int32("hw.perflevel0.logicalcpu"), 4);
    EXPECT_EQ(machine.int32("hw.perflevel1.logicalcpu"), 4);
    EXPECT_EQ(machine.int64("hw.perflevel0.cpufrequency_max"), 2'850'000'000);
}

TEST(LinuxSysctl, what_a_virtual_server_does_not_tell_is_an_unknown_name) {
    Machine machine(fixture("virtual-server-6.18"));
    EXPECT_EQ(machine.int32("hw.logicalcpu"), 2);
    EXPECT_EQ(machine.int32("hw.nperflevels"), 1);
    EXPECT_EQ(machine.int32("hw.perflevel0.logicalcpu"), 2);
    std::size_t size = 0;
    for (const auto* name : {"hw.perflevel1.logicalcpu", "hw.perflevel0.cpufrequency_max",
                             "hw.perflevel1.cpufrequency_max", "hw.cpufrequency_max", "hw.model",
                             "hw.optional.arm64", "", "hw", "hw.logicalcpu "}) {
        EXPECT_EQ(machine.sysctl.sysctlbyname(name, {}, size), ENOENT) << name;
    }
}

TEST(LinuxSysctl, the_size_is_told_alone_and_a_value_that_does_not_fit_is_refused) {
    Machine machine(fixture("virtual-server-6.18"));
    std::size_t size = 99;
    EXPECT_EQ(machine.sysctl.sysctlbyname("hw.memsize", {}, size), 0);
    EXPECT_EQ(size, 8u);
    std::array<std::byte, 4> small{};
    EXPECT_EQ(machine.sysctl.sysctlbyname("hw.memsize", small, size), ENOMEM);
    std::array<std::byte, 16> large{};
    EXPECT_EQ(machine.sysctl.sysctlbyname("hw.logicalcpu", large, size), 0);
    EXPECT_EQ(size, 4u);
}

TEST(LinuxSysctl, the_makers_own_machines_say_so_by_their_device_tree) {
    const TemporaryTree tree;
    tree.write("/proc/device-tree/compatible",
               std::string_view("apple,j293\0apple,t8103\0apple,arm-platform\0", 41));
    Machine machine(tree.path());
    EXPECT_EQ(machine.int32("hw.optional.arm64"), 1);
    EXPECT_EQ(machine.text("machdep.cpu.brand_string"), "apple,t8103");
}

TEST(LinuxSysctl, words_of_firmware_that_say_nothing_are_no_model) {
    const TemporaryTree tree;
    tree.write("/sys/class/dmi/id/product_name", "To Be Filled By O.E.M.\n");
    tree.write("/sys/class/dmi/id/board_name", "B550M\n");
    EXPECT_EQ(Machine(tree.path()).text("hw.model"), "B550M");
    tree.write("/sys/class/dmi/id/board_name", "Default string\n");
    EXPECT_EQ(Machine(tree.path()).text("hw.model"), std::nullopt);
}

TEST(LinuxSysctl, hostile_files_make_names_unknown) {
    const TemporaryTree tree;
    tree.write("/sys/devices/system/cpu/present", "0-1\n");
    for (const auto* text : {"", "-1\n", "0\n", "junk", "99999999999999999999", "1000000000\n"}) {
        tree.write("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq", text);
        EXPECT_EQ(Machine(tree.path()).int64("hw.perflevel0.cpufrequency_max"), std::nullopt)
            << text;
    }
    for (const auto* text : {"", "MemTotal:", "MemTotal: 12", "MemTotal: x kB", "MemTotal: -1 kB",
                             "MemTotal: 18446744073709551615 kB"}) {
        tree.write("/proc/meminfo", text);
        EXPECT_EQ(Machine(tree.path()).int64("hw.memsize"), std::nullopt) << text;
    }
}

TEST(LinuxSysctl, an_empty_tree_knows_no_name_at_all) {
    const TemporaryTree tree;
    Machine machine(tree.path());
    std::size_t size = 0;
    for (const auto* name : {"hw.logicalcpu", "hw.nperflevels", "hw.perflevel0.logicalcpu",
                             "hw.memsize", "machdep.cpu.brand_string", "kern.osversion"}) {
        EXPECT_EQ(machine.sysctl.sysctlbyname(name, {}, size), ENOENT) << name;
    }
}

}  // namespace
}  // namespace vtx::test
