// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsSource.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/simulated/ManualClock.h"
#include "telemetry/GPUMonitorEngine.h"

namespace vtx::test {
namespace {

using std::chrono::seconds;

struct FakeChanges final : DeviceChanges {
    std::uint64_t generation() override { return now; }
    std::uint64_t now = 1;
};

struct Machine {
    explicit Machine(const std::string& folder) : root(folder) {}

    [[nodiscard]] static LinuxIORegistry::Sources sourcesOf(std::unique_ptr<RegistrySource> one) {
        LinuxIORegistry::Sources sources;
        sources.push_back(std::move(one));
        return sources;
    }
    /// The addresses of all devices.
    [[nodiscard]] std::string found() {
        std::string addresses;
        const auto walk = registry.getMatchingServices({"IOAccelerator"});
        while (const auto entry = registry.iteratorNext(walk.iterator)) {
            const auto address = registry.entryProperty(entry, "PCI Address").text();
            addresses.append(address.value_or("?")).append(" ");
        }
        return addresses;
    }

    LinuxRoot root;
    ManualClock clock;
    FakeChanges changes;
    LinuxProcessors processors{root};
    CpuFreq cpuFreq{root, processors};
    LinuxIORegistry registry{processors, cpuFreq,
                             sourcesOf(std::make_unique<GraphicsSource>(root, clock, changes))};
};

/// A tree of graphics devices, as the kernel lays it out.
struct Graphics : testing::Test {
    static constexpr const char* address = "0000:03:00.0";

    static void link(const std::filesystem::path& at, const std::string& target) {
        std::filesystem::create_directories(at.parent_path());
        std::filesystem::create_symlink(target, at);
    }
    void add(const std::string& card, const std::string& at,
             const std::string& driver = "amdgpu") const {
        const std::string folder = "/sys/bus/pci/devices/" + at;
        tree.write(folder + "/gpu_busy_percent", "30\n");
        tree.write(folder + "/power/runtime_status", "active\n");
        tree.write(folder + "/power/control", "auto\n");
        tree.write(folder + "/power/autosuspend_delay_ms", "5000\n");
        link(tree.path() + folder + "/driver", "../../../bus/pci/drivers/" + driver);
        link(tree.path() + "/sys/class/drm/" + card + "/device", "../../../bus/pci/devices/" + at);
    }
    void set(const std::string& file, std::string_view text) const {
        tree.write("/sys/bus/pci/devices/" + std::string(address) + "/" + file, text);
    }
    void remove(const std::string& file) const {
        tree.remove("/sys/bus/pci/devices/" + std::string(address) + "/" + file);
    }
    /// What the device says with the next second's reading.
    [[nodiscard]] static std::optional<std::int64_t> tick(Machine& machine,
                                                          const RegistryEntry& entry) {
        machine.clock.advanceBy(seconds(1));
        return machine.registry.entryProperties(entry)
            .properties["PerformanceStatistics"]["Device Utilization %"]
            .number();
    }

    TemporaryTree tree;
};

/// One device and an entry for it.
struct AmdGraphicsLoad : Graphics {
    AmdGraphicsLoad() { add("card0", address); }
    void start() {
        entry.reset();
        machine.emplace(tree.path());
        entry = machine->registry.getMatchingService({"IOAccelerator"});
        ASSERT_TRUE(entry);
    }
    [[nodiscard]] std::optional<std::int64_t> next() { return tick(*machine, entry); }

    std::optional<Machine> machine;
    RegistryEntry entry;
};

TEST(GraphicsSource, integrated_graphics_come_first_whatever_their_place_on_the_bus) {
    Machine laptop(fixture("amd-two-gpus-laptop-6.15"));
    EXPECT_EQ(laptop.found(), "0000:c4:00.0 0000:03:00.0 ");
    GPUMonitorEngine engine(laptop.registry, laptop.clock);
    const auto stats = engine.sample();
    ASSERT_TRUE(stats);
    EXPECT_DOUBLE_EQ(stats->deviceUtilization, 0.17);
    EXPECT_FALSE(stats->tilerUtilization);
    EXPECT_FALSE(stats->rendererUtilization);
}

TEST(GraphicsSource, machines_without_graphics_have_none) {
    for (const auto* name : {"virtual-server-6.18", "arm-big-little-board-6.6"}) {
        Machine machine(fixture(name));
        EXPECT_EQ(machine.found(), "") << name;
        EXPECT_FALSE(machine.registry.getMatchingServices({"IOAccelerator"}).iterator);
    }
}

TEST_F(Graphics, are_not_looked_for_again_until_devices_changed) {
    Machine machine(tree.path());
    EXPECT_EQ(machine.found(), "");
    add("card0", address);
    EXPECT_EQ(machine.found(), "");
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "0000:03:00.0 ");
}

TEST_F(Graphics, that_went_are_not_walked_to_and_stop_answering) {
    add("card0", address);
    add("card1", "0000:04:00.0");
    Machine machine(tree.path());
    const auto held = machine.registry.getMatchingService({"IOAccelerator"});
    const auto walk = machine.registry.getMatchingServices({"IOAccelerator"});
    tree.remove("/sys/bus/pci/devices/0000:03:00.0");
    const auto next = machine.registry.iteratorNext(walk.iterator);
    EXPECT_EQ(machine.registry.entryProperty(next, "PCI Address").text(), "0000:04:00.0");
    EXPECT_EQ(machine.registry.entryProperties(held).result, kernFailure);
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "0000:04:00.0 ");
}

TEST_F(Graphics, keep_their_number_while_they_are_there) {
    add("card0", address);
    Machine machine(tree.path());
    LinuxIORegistry& registry = machine.registry;
    const auto before =
        registry.entryGetRegistryEntryID(registry.getMatchingService({"IOAccelerator"}));
    ++machine.changes.now;
    EXPECT_EQ(registry.entryGetRegistryEntryID(registry.getMatchingService({"IOAccelerator"})),
              before);
}

TEST_F(Graphics, of_one_address_are_one_device_and_connectors_are_none) {
    add("card0", address);
    link(tree.path() + "/sys/class/drm/card1/device", "../../../bus/pci/devices/0000:03:00.0");
    link(tree.path() + "/sys/class/drm/card0-DP-1/device", "../card0");
    link(tree.path() + "/sys/class/drm/card/device", "../../../bus/pci/devices/0000:03:00.0");
    EXPECT_EQ(Machine(tree.path()).found(), "0000:03:00.0 ");
}

TEST_F(Graphics, of_other_drivers_are_left_out) {
    add("card0", address, "nouveau");
    add("card1", "0000:04:00.0", "amdgpu-pro");
    tree.write("/sys/class/drm/card2/device/gpu_busy_percent", "5\n");
    EXPECT_EQ(Machine(tree.path()).found(), "");
}

TEST_F(Graphics, with_an_address_that_is_none_are_left_out) {
    for (const auto* at : {"amdgpu_xcp_0", "0000:03:00", "0000-03-00.0", "000g:03:00.0", "..."}) {
        add("card0", at);
        EXPECT_EQ(Machine(tree.path()).found(), "") << at;
        tree.remove("/sys/class/drm/card0");
    }
}

TEST_F(Graphics, of_many_domains_have_longer_addresses) {
    add("card0", "10000:03:00.0");
    EXPECT_EQ(Machine(tree.path()).found(), "10000:03:00.0 ");
}

TEST_F(AmdGraphicsLoad, is_what_the_driver_says) {
    start();
    EXPECT_EQ(next(), 30);
    set("gpu_busy_percent", "100\n");
    EXPECT_EQ(next(), 100);
    set("gpu_busy_percent", "0\n");
    EXPECT_EQ(next(), 0);
}

TEST_F(AmdGraphicsLoad, is_absent_while_the_driver_says_nothing_sensible) {
    start();
    for (const auto* text :
         {"", "\n", "junk\n", "-1\n", "101\n", "65535\n", "3.5\n", "99999999999999999999999\n"}) {
        set("gpu_busy_percent", text);
        EXPECT_EQ(next(), std::nullopt) << text;
        // The device itself is still there.
        EXPECT_EQ(machine->registry.entryProperties(entry).result, kernSuccess);
    }
    set("gpu_busy_percent", std::string(100'000, '1'));
    EXPECT_EQ(next(), std::nullopt);
}

TEST_F(AmdGraphicsLoad, of_a_sleeping_device_is_zero_without_asking_it) {
    for (const auto* status : {"suspended\n", "suspending\n", "resuming\n"}) {
        set("power/runtime_status", status);
        start();
        EXPECT_EQ(next(), 0) << status;
    }
    set("power/runtime_status", "active\n");
    EXPECT_EQ(next(), 30);
}

TEST_F(AmdGraphicsLoad, is_absent_while_nobody_knows_whether_the_device_sleeps) {
    start();
    for (const auto* status : {"", "error\n", "junk\n", "activesuspended\n"}) {
        set("power/runtime_status", status);
        EXPECT_EQ(next(), std::nullopt) << status;
    }
    remove("power");
    EXPECT_EQ(next(), std::nullopt);
}

TEST_F(AmdGraphicsLoad, is_asked_where_the_kernel_suspends_nothing) {
    remove("power");
    start();
    EXPECT_EQ(next(), 30);
}

TEST_F(AmdGraphicsLoad, that_is_zero_twice_leaves_the_device_alone_beyond_its_delay) {
    set("gpu_busy_percent", "0\n");
    start();
    EXPECT_EQ(next(), 0);
    EXPECT_EQ(next(), 0);
    set("gpu_busy_percent", "80\n");
    // Five seconds of its own and one more.
    for (int i = 0; i < 5; ++i) EXPECT_EQ(next(), 0) << i;
    EXPECT_EQ(next(), 80);
    EXPECT_EQ(next(), 80);
}

TEST_F(AmdGraphicsLoad, leaves_a_device_alone_again_after_one_more_zero) {
    set("gpu_busy_percent", "0\n");
    start();
    for (int i = 0; i < 8; ++i) EXPECT_EQ(next(), 0) << i;
    set("gpu_busy_percent", "80\n");
    for (int i = 0; i < 5; ++i) EXPECT_EQ(next(), 0) << i;
    EXPECT_EQ(next(), 80);
}

TEST_F(AmdGraphicsLoad, of_a_device_that_woke_is_known_at_once) {
    set("gpu_busy_percent", "0\n");
    start();
    EXPECT_EQ(next(), 0);
    EXPECT_EQ(next(), 0);
    set("power/runtime_status", "suspended\n");
    EXPECT_EQ(next(), 0);
    set("power/runtime_status", "active\n");
    set("gpu_busy_percent", "70\n");
    EXPECT_EQ(next(), 70);
}

TEST_F(AmdGraphicsLoad, one_zero_among_others_changes_nothing) {
    start();
    for (const auto* text : {"0\n", "5\n", "0\n", "6\n"}) {
        set("gpu_busy_percent", text);
        EXPECT_EQ(next(), *text - '0');
    }
}

TEST_F(AmdGraphicsLoad, of_a_device_that_never_suspends_itself_is_asked_every_time) {
    for (const auto& [file, text] :
         {std::pair{"power/control", "on\n"}, std::pair{"power/autosuspend_delay_ms", "-1\n"}}) {
        set("power/control", "auto\n");
        set(file, text);
        set("gpu_busy_percent", "0\n");
        start();
        for (int i = 0; i < 3; ++i) EXPECT_EQ(next(), 0);
        set("gpu_busy_percent", "80\n");
        EXPECT_EQ(next(), 80) << file;
    }
}

TEST_F(AmdGraphicsLoad, a_delay_that_cannot_be_read_is_none) {
    for (const auto* text : {"junk\n", "", "9223372036854775807\n"}) {
        set("power/autosuspend_delay_ms", text);
        set("gpu_busy_percent", "0\n");
        start();
        EXPECT_EQ(next(), 0);
        EXPECT_EQ(next(), 0);
        set("gpu_busy_percent", "80\n");
        machine->clock.advanceBy(seconds(10));
        EXPECT_EQ(next(), 80) << text;
    }
}

TEST_F(AmdGraphicsLoad, of_a_device_that_waits_too_long_to_suspend_is_asked_every_time) {
    set("power/autosuspend_delay_ms", "10001\n");
    set("gpu_busy_percent", "0\n");
    start();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(next(), 0);
    set("gpu_busy_percent", "80\n");
    EXPECT_EQ(next(), 80);
}

}  // namespace
}  // namespace vtx::test
