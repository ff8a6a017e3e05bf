// SPDX-License-Identifier: MIT
#include "platform/linux/IdentityNodes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "linux/TemporaryTree.h"
#include "platform/linux/MachineIdentity.h"

namespace vtx::test {
namespace {

TEST(MemoryRecords, tell_the_first_module_that_is_there) {
    EXPECT_EQ(parseMemoryRecords("I:1\nE:MEMORY_DEVICE_0_PRESENT=0\nE:MEMORY_DEVICE_0_TYPE=DDR3\n"
                                 "E:MEMORY_DEVICE_10_TYPE=DDR5\nE:MEMORY_DEVICE_2_TYPE=DDR4\n"
                                 "E:MEMORY_DEVICE_2_SPEED_MTS=3200\n"
                                 "E:MEMORY_DEVICE_2_CONFIGURED_SPEED_MTS=2933\n"),
              (MemoryModules{"DDR4", 2'933'000'000}));
}

TEST(MemoryRecords, tell_the_speed_that_modules_could_have_where_theirs_is_not_known) {
    EXPECT_EQ(parseMemoryRecords("E:MEMORY_DEVICE_0_TYPE=DDR4\nE:MEMORY_DEVICE_0_SPEED_MTS=3200\n"
                                 "E:MEMORY_DEVICE_0_CONFIGURED_SPEED_MTS=0\n"),
              (MemoryModules{"DDR4", 3'200'000'000}));
    EXPECT_EQ(parseMemoryRecords("E:MEMORY_DEVICE_0_TYPE=DDR4\n"),
              (MemoryModules{"DDR4", std::nullopt}));
}

TEST(MemoryRecords, that_make_no_sense_tell_nothing) {
    for (const std::string text :
         {"", "\n", "E:MEMORY_DEVICE_", "E:MEMORY_DEVICE_0_TYPE", "E:MEMORY_DEVICE_0=DDR4",
          "E:MEMORY_DEVICE_x_TYPE=DDR4", "E:MEMORY_DEVICE_0_TYPE=Unknown",
          "E:MEMORY_DEVICE_99999999999999999999_TYPE=DDR4", "E:MEMORY_DEVICE_5000_TYPE=DDR4",
          "MEMORY_DEVICE_0_TYPE=DDR4", "E:MEMORY_DEVICE_0_SPEED_MTS=3200", "E:MEMORY_DEVICE_=_TYPE",
          "E:MEMORY_DEVICE_0=_TYPE=DDR4", "E:MEMORY_DEVICE__TYPE=DDR4"})
        EXPECT_EQ(parseMemoryRecords(text), MemoryModules()) << text;
    EXPECT_EQ(parseMemoryRecords("E:MEMORY_DEVICE_0_TYPE=DDR4\n"
                                 "E:MEMORY_DEVICE_0_SPEED_MTS=99999999999999999999\n"),
              (MemoryModules{"DDR4", std::nullopt}));
    EXPECT_EQ(parseMemoryRecords("E:MEMORY_DEVICE_0_TYPE=DDR4\n"
                                 "E:MEMORY_DEVICE_0_SPEED_MTS=0\n"),
              (MemoryModules{"DDR4", std::nullopt}));
    EXPECT_EQ(parseMemoryRecords("E:MEMORY_DEVICE_0_TYPE=DDR4\n"
                                 "E:MEMORY_DEVICE_0_SPEED_MTS=1000000\n"),
              (MemoryModules{"DDR4", std::nullopt}));
}

TEST(MemoryKind, is_the_word_that_names_it) {
    for (const auto& [name, kind] :
         {std::pair{"DDR4", "DDR4"}, std::pair{"Registered-DDR4", "DDR4"},
          std::pair{"Load-Reduced-DDR4-RAM", "DDR4"}, std::pair{"LPDDR5", "LPDDR5"},
          std::pair{"HBM2", "HBM2"}})
        EXPECT_EQ(memoryKindOf(name), kind);
    for (const std::string name : {"", "-", "Unknown", "RAM", "Reserved"})
        EXPECT_EQ(memoryKindOf(name), std::nullopt) << name;
    EXPECT_EQ(memoryKindOf("DDR" + std::string(100'000, '4')), std::nullopt);
}

/// The bytes of a property; empty where there is none.
std::string bytesOf(const std::shared_ptr<RegistryNode>& node, const char* key) {
    const auto properties = node->properties();
    const auto found = properties->find(key);
    if (found == properties->end()) return "";
    return std::string(asText(*PropertyView(found->second).data()));
}

TEST(IdentityNodes, memory_is_told_by_records_or_else_by_its_controllers) {
    const auto dell = makeMemoryNode(LinuxRoot(fixture("dell-laptop-6.1")));
    EXPECT_EQ(bytesOf(dell, "dram-type"), "DDR4");
    EXPECT_EQ(bytesOf(dell, "dram-speed"), std::string("\x00\x20\xbc\xbe", 4));
    const auto server = makeMemoryNode(LinuxRoot(fixture("two-socket-server-5.15")));
    EXPECT_EQ(bytesOf(server, "dram-type"), "DDR4");
    EXPECT_EQ(bytesOf(server, "dram-speed"), "");
    EXPECT_EQ(makeMemoryNode(LinuxRoot(fixture("virtual-server-6.18"))), nullptr);
}

TEST(IdentityNodes, controllers_without_modules_that_say_their_kind_are_passed_over) {
    const TemporaryTree tree;
    const std::string controllers = "/sys/devices/system/edac/mc/";
    tree.write(controllers + "mc0/dimm0/dimm_mem_type", "Unknown\n");
    tree.write(controllers + "mc0/dimm1/size", "0\n");
    tree.write(controllers + "power/control", "auto\n");
    EXPECT_EQ(makeMemoryNode(LinuxRoot(tree.path())), nullptr);
    tree.write(controllers + "mc1/dimm0/dimm_mem_type", "Unbuffered-DDR5\n");
    EXPECT_EQ(bytesOf(makeMemoryNode(LinuxRoot(tree.path())), "dram-type"), "DDR5");
}

TEST(IdentityNodes, a_speed_beyond_what_the_form_holds_is_left_out) {
    const auto laptop = makeMemoryNode(LinuxRoot(fixture("intel-hybrid-laptop-6.12")));
    EXPECT_EQ(bytesOf(laptop, "dram-type"), "LPDDR5");
    EXPECT_EQ(bytesOf(laptop, "dram-speed"), "");
}

TEST(MachineIdentity, takes_no_empty_name_for_one) {
    const TemporaryTree tree;
    tree.write("/proc/cpuinfo", "vendor_id\t: \nmodel name\t: \n");
    tree.write("/proc/device-tree/compatible",
               std::string_view("\0maker,board\0\0maker,chip\0", 25));
    const MachineIdentity identity{LinuxRoot(tree.path())};
    EXPECT_EQ(identity.processorVendor, std::nullopt);
    EXPECT_EQ(identity.chip, "maker,chip");
    EXPECT_EQ(identity.compatible, (std::vector<std::string>{"maker,board", "maker,chip"}));
}

TEST(MachineIdentity, knows_a_maker_by_the_whole_of_its_name) {
    const TemporaryTree tree;
    tree.write("/proc/device-tree/compatible", std::string_view("makerboard\0makers,chip\0", 23));
    const MachineIdentity identity{LinuxRoot(tree.path())};
    EXPECT_FALSE(identity.isMadeBy("maker"));
    EXPECT_TRUE(identity.isMadeBy("makers"));
}

TEST(IdentityNodes, the_product_is_the_family_or_the_machine_and_never_a_guess) {
    const auto productOf = [](const char* machine) {
        return bytesOf(makeProductNode(LinuxRoot(fixture(machine))), "product-name");
    };
    EXPECT_EQ(productOf("dell-laptop-6.1"), "Latitude");
    EXPECT_EQ(productOf("intel-hybrid-laptop-6.12"), "Hybrid Laptop 14 Gen 2");
    EXPECT_EQ(productOf("amd-desktop-6.8"), "X570 Board");
    EXPECT_EQ(productOf("virtual-server-6.18"), "Unknown");
}

}  // namespace
}  // namespace vtx::test
