// SPDX-License-Identifier: MIT
#include "platform/linux/BlockStorageSource.h"

#include <gtest/gtest.h>

#include <string>

#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/simulated/ManualClock.h"
#include "telemetry/DiskIOMonitor.h"

namespace vtx::test {
namespace {

struct FakeChanges final : DeviceChanges {
    std::uint64_t generation() override { return now; }
    std::uint64_t now = 1;
};

/// A recorded machine, as the monitor of its drives sees it.
struct Machine {
    explicit Machine(const std::string& folder) : root(folder) {}

    [[nodiscard]] static LinuxIORegistry::Sources sourcesOf(std::unique_ptr<RegistrySource> one) {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::move(one));
        return sources;
    }
    const DiskIOReading& refresh() {
        clock.advanceBy(seconds(1));
        monitor.refresh();
        return **monitor.latest;
    }
    /// "device:product" of all drives.
    [[nodiscard]] std::string found() {
        std::string all;
        for (const auto& volume : refresh().volumes)
            all += volume.bsdDevice.value_or("-") + ":" + volume.name + " ";
        return all;
    }
    [[nodiscard]] std::optional<std::uint64_t> number() {
        return registry.entryGetRegistryEntryID(
            registry.getMatchingService({"IOBlockStorageDriver"}));
    }

    LinuxRoot root;
    ManualClock clock;
    FakeChanges changes;
    LinuxProcessors processors{root};
    CpuFreq cpuFreq{root, processors};
    LinuxIORegistry registry{processors, cpuFreq,
                             sourcesOf(std::make_unique<BlockStorageSource>(root, changes))};
    DiskIOMonitor monitor{registry, clock};
};

/// A tree of disks.
struct BlockStorage : testing::Test {
    void add(const std::string& name, std::string_view stat = "1 0 2 0 3 0 4 0 0 0 0\n") const {
        tree.write("/sys/block/" + name + "/stat", stat);
    }
    void set(const std::string& file, std::string_view text) const {
        tree.write("/sys/block/" + file, text);
    }
    TemporaryTree tree;
};

TEST(BlockStorageSource, a_laptop_has_its_disk_its_cards_its_stick_and_its_optical_drive) {
    Machine laptop(fixture("sd-card-laptop-6.8"));
    EXPECT_EQ(laptop.found(),
              "mmcblk0:SD64G mmcblk1:DV4064 nvme0n1:NVME CLIENT 512G sda:Pocket Stick "
              "sr0:DVD WRITER ");
}

TEST(BlockStorageSource, a_server_has_its_disks_and_neither_their_ways_nor_what_is_made_of_them) {
    Machine server(fixture("storage-server-6.12"));
    EXPECT_EQ(server.found(),
              "nvme0n1:NVME ENTERPRISE 1920G nvme1n1:NVME ENTERPRISE 1920G "
              "sda:ROTATING 16000G sdb:ROTATING 16000G ");
}

TEST(BlockStorageSource, a_disk_that_is_counted_on_its_ways_alone_is_their_sum) {
    Machine server(fixture("storage-server-6.12"));
    const auto volumes = server.refresh().volumes;
    ASSERT_EQ(volumes.size(), 4U);
    EXPECT_EQ(volumes[0].bytesRead, 9876544ULL * 512);
    EXPECT_EQ(volumes[0].readOps, 81234U);
    EXPECT_EQ(volumes[1].bytesRead, 12000U * 512);
    EXPECT_EQ(volumes[1].bytesWritten, 32800U * 512);
    EXPECT_EQ(volumes[1].readOps, 1500U);
    EXPECT_EQ(volumes[1].writeOps, 2100U);
}

TEST(BlockStorageSource, a_disk_that_tells_no_model_is_called_by_its_device) {
    Machine server(fixture("virtual-server-6.18"));
    EXPECT_EQ(server.found(), "vda:vda ");
    EXPECT_EQ(server.refresh().volumes[0].bytesRead, 20440314ULL * 512);
}

TEST(BlockStorageSource, a_machine_without_disks_has_none) {
    Machine board(fixture("arm-big-little-board-6.6"));
    EXPECT_EQ(board.found(), "");
    EXPECT_FALSE(board.registry.getMatchingServices({"IOBlockStorageDriver"}).iterator);
}

TEST_F(BlockStorage, names_of_what_is_no_disk_of_its_own_are_left_out) {
    for (const auto* name : {"loop0", "ram1", "zram0", "dm-3", "md0", "md_d1", "nbd7", "drbd1000",
                             "zd16", "bcache0", "mmcblk0boot0", "mmcblk2boot1", "nvme0c1n1"})
        EXPECT_FALSE(isWholeDisk(name)) << name;
    for (const auto* name :
         {"sda", "sdaa", "nvme0n1", "nvme10n2", "vda", "xvda", "hda", "mmcblk0", "sr0", "fd0",
          "pmem0", "nvmec0n1", "nvme0c1", "nvme0c1n", "nvme0c1n1p2"})
        EXPECT_TRUE(isWholeDisk(name)) << name;
}

TEST_F(BlockStorage, a_hidden_disk_is_left_out) {
    add("sda");
    set("sda/hidden", "1\n");
    add("sdb");
    set("sdb/hidden", "0\n");
    EXPECT_EQ(Machine(tree.path()).found(), "sdb:sdb ");
}

TEST_F(BlockStorage, a_way_to_a_disk_that_is_not_there_is_none) {
    add("nvme0c1n1");
    add("sda");
    EXPECT_EQ(Machine(tree.path()).found(), "sda:sda ");
}

TEST_F(BlockStorage, a_way_that_tells_nothing_sensible_is_left_out_of_the_sum) {
    add("nvme0n1", "0 0 0 0 0 0 0 0 0 0 0\n");
    add("nvme0c1n1", "10 0 20 0 30 0 40 0 0 0 0\n");
    add("nvme0c2n1", "junk\n");
    Machine machine(tree.path());
    const auto volumes = machine.refresh().volumes;
    ASSERT_EQ(volumes.size(), 1U);
    EXPECT_EQ(volumes[0].readOps, 10U);
    EXPECT_EQ(volumes[0].writeOps, 30U);
}

TEST_F(BlockStorage, are_not_looked_for_again_until_devices_changed) {
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "");
    add("sda");
    EXPECT_EQ(machine.found(), "");
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "sda:sda ");
}

TEST_F(BlockStorage, that_stop_answering_are_looked_for_once) {
    add("sda");
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "sda:sda ");
    set("sda/stat", "damaged\n");
    EXPECT_EQ(machine.found(), "");
    // This look finds the second disk; the first is still listed and may answer again.
    add("sdb");
    EXPECT_EQ(machine.found(), "sdb:sdb ");
    add("sdc");
    EXPECT_EQ(machine.found(), "sdb:sdb ");
    add("sda");
    EXPECT_EQ(machine.found(), "sda:sda sdb:sdb ");
}

TEST_F(BlockStorage, that_went_are_dropped_by_the_next_look) {
    add("sda");
    add("sdb");
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "sda:sda sdb:sdb ");
    const auto held = machine.registry.getMatchingService({"IOBlockStorageDriver"});
    tree.remove("/sys/block/sda");
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "sdb:sdb ");
    EXPECT_EQ(machine.registry.entryProperties(held).result, kernFailure);
    EXPECT_FALSE(machine.registry.entryProperty(held, "Statistics").exists());
}

TEST_F(BlockStorage, keep_their_number_until_the_kernel_gives_them_another) {
    add("sda");
    set("sda/diskseq", "7\n");
    Machine machine(tree.path());
    const auto first = machine.number();
    ++machine.changes.now;
    EXPECT_EQ(machine.number(), first);
    set("sda/diskseq", "8\n");
    ++machine.changes.now;
    EXPECT_NE(machine.number(), first);
}

TEST_F(BlockStorage, a_stick_that_was_swapped_for_another_has_that_ones_name) {
    add("sda");
    set("sda/device/model", "One\n");
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "sda:One ");
    set("sda/device/model", "Two\n");
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "sda:Two ");
}

TEST_F(BlockStorage, rates_are_those_of_all_whole_disks) {
    add("sda", "10 0 100 0 20 0 200 0\n");
    add("dm-0", "10 0 100 0 20 0 200 0\n");
    Machine machine(tree.path());
    machine.refresh();
    add("sda", "13 0 102 0 24 0 208 0\n");
    add("dm-0", "99 0 999 0 99 0 999 0\n");
    const auto& reading = machine.refresh();
    EXPECT_EQ(reading.bytesReadPerSecond, 1024.0);
    EXPECT_EQ(reading.bytesWrittenPerSecond, 4096.0);
    EXPECT_EQ(reading.readIOPS, 3.0);
    EXPECT_EQ(reading.writeIOPS, 4.0);
}

TEST_F(BlockStorage, each_disk_keeps_its_own_figures_over_many_refreshes) {
    Machine machine(tree.path());
    for (int second = 1; second < 4; ++second) {
        add("sda", std::to_string(second) + " 0 2 0 3 0 4 0\n");
        add("sdb", std::to_string(10 * second) + " 0 20 0 30 0 40 0\n");
        ++machine.changes.now;
        const auto volumes = machine.refresh().volumes;
        ASSERT_EQ(volumes.size(), 2U);
        EXPECT_EQ(volumes[0].readOps, static_cast<std::uint64_t>(second));
        EXPECT_EQ(volumes[0].bytesRead, 1024U);
        EXPECT_EQ(volumes[0].writeOps, 3U);
        EXPECT_EQ(volumes[0].bytesWritten, 2048U);
        EXPECT_EQ(volumes[1].readOps, static_cast<std::uint64_t>(10 * second));
        EXPECT_EQ(volumes[1].bytesWritten, 20'480U);
    }
}

TEST_F(BlockStorage, a_disk_that_goes_between_the_search_and_the_reading_is_left_out) {
    add("sda");
    add("sdb");
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "sda:sda sdb:sdb ");
    LinuxIORegistry& registry = machine.registry;
    const auto walk = registry.getMatchingServices({"IOBlockStorageDriver"});
    const auto entry = registry.iteratorNext(walk.iterator);
    EXPECT_TRUE(registry.entryProperty(entry, "Statistics").exists());
    set("sda/stat", "");  // the kernel refuses to read, and gives no numbers
    EXPECT_FALSE(registry.entryProperty(entry, "Statistics").exists());
    EXPECT_TRUE(registry.iteratorNext(walk.iterator));
    EXPECT_EQ(machine.found(), "sdb:sdb ");
    add("sda");
    EXPECT_EQ(machine.found(), "sda:sda sdb:sdb ");
}

TEST_F(BlockStorage, an_owner_looks_at_one_property_after_another) {
    add("sda");
    set("sda/device/model", "One\n");
    Machine machine(tree.path());
    LinuxIORegistry& registry = machine.registry;
    const auto driver = registry.getMatchingService({"IOBlockStorageDriver"});
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(registry.entryProperty(driver, "Statistics")["Bytes (Write)"].number(), 2048);
        EXPECT_EQ(registry.entryProperty(driver, "Device Characteristics")["Product Name"].text(),
                  "One");
        EXPECT_EQ(
            registry.entryProperties(driver).properties["Statistics"]["Operations (Read)"].number(),
            1);
    }
}

TEST_F(BlockStorage, a_medium_knows_its_driver) {
    add("sda");
    Machine machine(tree.path());
    LinuxIORegistry& registry = machine.registry;
    const auto driver = registry.getMatchingService({"IOBlockStorageDriver"});
    const auto walk = registry.entryGetChildIterator(driver, planes::service);
    const auto medium = registry.iteratorNext(walk.iterator);
    EXPECT_EQ(registry.entryGetName(medium), "sda");
    EXPECT_EQ(
        registry.entryGetRegistryEntryID(registry.entryGetParentEntry(medium, planes::service)),
        registry.entryGetRegistryEntryID(driver));
    EXPECT_EQ(registry.entryProperties(driver).properties["Statistics"]["Bytes (Read)"].number(),
              1024);
    EXPECT_FALSE(registry.entryProperty(driver, "Device Characteristics").exists());
}

TEST_F(BlockStorage, two_owners_of_a_driver_look_at_values_of_their_own) {
    add("sda");
    Machine machine(tree.path());
    LinuxIORegistry& registry = machine.registry;
    const auto first = registry.getMatchingService({"IOBlockStorageDriver"});
    const auto second = registry.objectRetain(first);
    const auto before = registry.entryProperty(first, "Statistics");
    add("sda", "9 0 9 0 9 0 9 0\n");
    EXPECT_EQ(registry.entryProperty(second, "Statistics")["Operations (Read)"].number(), 9);
    EXPECT_EQ(before["Operations (Read)"].number(), 1);
}

TEST_F(BlockStorage, everything_that_a_refresh_was_given_comes_back) {
    add("sda");
    Machine machine(tree.path());
    for (int i = 0; i < 3; ++i) machine.refresh();
    EXPECT_EQ(machine.registry.outstandingObjects(), 0U);
}

}  // namespace
}  // namespace vtx::test
