// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsSource.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/QueueExecutor.h"
#include "linux/GraphicsTree.h"
#include "platform/linux/AmdLoad.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/linux/SlowGraphicsLoad.h"
#include "platform/simulated/ManualClock.h"
#include "support/AtOnceExecutor.h"
#include "telemetry/GPUMonitorEngine.h"

namespace vtx::test {
namespace {

using std::chrono::seconds;

struct FakeNvml final : Nvml {
    std::optional<std::uint32_t> utilization(const std::string& at) override {
        lastAsked = at;
        return 60;
    }
    void close() override { ++closes; }
    std::string lastAsked;
    int closes = 0;
};

struct Machine {
    explicit Machine(const std::string& folder) : root(folder) {}

    [[nodiscard]] LinuxIORegistry::Sources sources() {
        GraphicsSource::Tools tools{slowReads,
                                    [this] {
                                        ++openings;
                                        return nvml;
                                    },
                                    [this](Duration span) { clock.advanceBy(span); }};
        LinuxIORegistry::Sources all;
        all.push_back(std::make_unique<GraphicsSource>(root, clock, changes, std::move(tools)));
        return all;
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
    /// What the first device says with the next second's reading.
    [[nodiscard]] std::optional<std::int64_t> tick() {
        clock.advanceBy(seconds(1));
        const auto entry = registry.getMatchingService({"IOAccelerator"});
        return registry.entryProperties(entry)
            .properties["PerformanceStatistics"]["Device Utilization %"]
            .number();
    }

    LinuxRoot root;
    ManualClock clock;
    AtOnceExecutor slowReads;
    FakeChanges changes;
    std::shared_ptr<FakeNvml> nvml;  ///< null while the machine has no such library
    int openings = 0;
    LinuxProcessors processors{root};
    CpuFreq cpuFreq{root, processors};
    LinuxIORegistry registry{processors, cpuFreq, sources()};
};

struct Graphics : testing::Test, GraphicsTree {};

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
    addAmd("card0", address);
    EXPECT_EQ(machine.found(), "");
    ++machine.changes.now;
    EXPECT_EQ(machine.found(), "0000:03:00.0 ");
}

TEST_F(Graphics, that_went_are_not_walked_to_and_stop_answering) {
    addAmd("card0", address);
    addAmd("card1", "0000:04:00.0");
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
    addAmd("card0", address);
    Machine machine(tree.path());
    LinuxIORegistry& registry = machine.registry;
    const auto before =
        registry.entryGetRegistryEntryID(registry.getMatchingService({"IOAccelerator"}));
    ++machine.changes.now;
    EXPECT_EQ(registry.entryGetRegistryEntryID(registry.getMatchingService({"IOAccelerator"})),
              before);
}

TEST_F(Graphics, of_one_address_are_one_device_and_connectors_are_none) {
    addAmd("card0", address);
    link("/sys/class/drm/card1/device", "../../../bus/pci/devices/0000:03:00.0");
    link("/sys/class/drm/card0-DP-1/device", "../card0");
    link("/sys/class/drm/card/device", "../../../bus/pci/devices/0000:03:00.0");
    EXPECT_EQ(Machine(tree.path()).found(), "0000:03:00.0 ");
}

TEST_F(Graphics, with_memory_or_a_link_of_their_own_come_behind_those_that_have_none) {
    addAmd("card0", "0000:01:00.0");
    addAmd("card1", "0000:02:00.0");
    addAmd("card2", address);
    tree.write(folderOf("0000:01:00.0") + "/mem_busy_percent", "0\n");
    tree.write(folderOf("0000:02:00.0") + "/pcie_bw", "1 1 256\n");
    EXPECT_EQ(Machine(tree.path()).found(), "0000:03:00.0 0000:01:00.0 0000:02:00.0 ");
}

TEST_F(Graphics, without_a_driver_or_a_device_are_left_out) {
    addAmd("card0", address);
    tree.remove(folderOf(address) + "/driver");
    tree.write("/sys/class/drm/card1/dev", "226:1\n");
    EXPECT_EQ(Machine(tree.path()).found(), "");
}

TEST_F(Graphics, of_other_drivers_are_left_out) {
    addAmd("card0", address);
    add("card0", address, "nouveau");
    addAmd("card1", "0000:04:00.0");
    add("card1", "0000:04:00.0", "amdgpu-pro");
    tree.write("/sys/class/drm/card2/device/gpu_busy_percent", "5\n");
    EXPECT_EQ(Machine(tree.path()).found(), "");
}

TEST_F(Graphics, with_an_address_that_is_none_are_left_out) {
    for (const auto* at : {"amdgpu_xcp_0", "0000:03:00", "0000-03-00.0", "000g:03:00.0", "...",
                           "g0000:03:00.0", "000000000:03:00.0"}) {
        addAmd("card0", at);
        EXPECT_EQ(Machine(tree.path()).found(), "") << at;
        tree.remove("/sys/class/drm/card0");
    }
}

TEST_F(Graphics, of_many_domains_have_longer_addresses) {
    addAmd("card0", "10000:03:00.0");
    EXPECT_EQ(Machine(tree.path()).found(), "10000:03:00.0 ");
}

TEST_F(Graphics, of_amd_have_the_load_that_the_driver_says) {
    addAmd("card0", address);
    Machine machine(tree.path());
    EXPECT_EQ(machine.tick(), 30);
    set("gpu_busy_percent", "100\n");
    // What was read since the last time, and no more.
    EXPECT_EQ(machine.tick(), 30);
    EXPECT_EQ(machine.tick(), 100);
}

TEST_F(Graphics, of_amd_have_no_load_while_the_driver_says_nothing_sensible) {
    addAmd("card0", address);
    Machine machine(tree.path());
    EXPECT_EQ(machine.tick(), 30);
    for (const std::string& text :
         {std::string(), std::string("\n"), std::string("junk\n"), std::string("-1\n"),
          std::string("101\n"), std::string("65535\n"), std::string("3.5\n"),
          std::string("99999999999999999999999\n"), std::string(100'000, '1')}) {
        set("gpu_busy_percent", text);
        (void)machine.tick();
        EXPECT_EQ(machine.tick(), std::nullopt) << text.substr(0, 40);
        // The device itself is still there.
        EXPECT_EQ(machine.found(), "0000:03:00.0 ");
    }
}

TEST_F(Graphics, of_amd_without_a_load_are_left_out) {
    add("card0", address, "amdgpu");
    EXPECT_EQ(Machine(tree.path()).found(), "");
}

TEST_F(Graphics, that_know_no_sleep_are_on_and_never_suspend_themselves) {
    const auto power = [this] { return RuntimePower(LinuxRoot(tree.path()), folderOf(address)); };
    add("card0", address, "amdgpu");
    set("power/runtime_status", "unsupported\n");
    EXPECT_EQ(power().state(), RuntimePower::State::on);
    EXPECT_EQ(power().autosuspendDelay(), Duration(std::chrono::seconds(5)));
    remove("power/autosuspend_delay_ms");
    EXPECT_EQ(power().autosuspendDelay(), Duration(0));
    set("power/control", "on\n");
    EXPECT_EQ(power().autosuspendDelay(), std::nullopt);
    remove("power/runtime_status");
    EXPECT_EQ(power().state(), RuntimePower::State::on);
}

TEST_F(Graphics, of_amd_that_fell_asleep_before_their_turn_are_not_asked) {
    set("power/runtime_status", "active\n");
    auto load = std::make_shared<AmdLoad>(tree.path() + folderOf(address) + "/gpu_busy_percent");
    set("gpu_busy_percent", "99\n");
    const auto power = std::make_shared<RuntimePower>(LinuxRoot(tree.path()), folderOf(address));
    QueueExecutor slowReads;
    const ManualClock clock;
    SlowGraphicsLoad slow(slowReads, clock, power, load, Duration(0));
    EXPECT_EQ(slow.next(), std::nullopt);
    set("power/runtime_status", "suspended\n");
    slowReads.drain();
    EXPECT_EQ(slow.next(), 0);
    set("power/runtime_status", "junk\n");
    slowReads.drain();
    EXPECT_EQ(slow.next(), std::nullopt);
}

TEST(GraphicsSource, intel_graphics_tell_their_load_at_once) {
    Machine laptop(fixture("intel-nvidia-laptop-6.8"));
    EXPECT_EQ(laptop.found(), "0000:00:02.0 ");
    // The recorded counters stand still, as those of a part do that never idles.
    EXPECT_EQ(laptop.tick(), 100);
    GPUMonitorEngine engine(laptop.registry, laptop.clock);
    EXPECT_DOUBLE_EQ(engine.sample()->deviceUtilization, 1.0);
}

TEST(GraphicsSource, nvidia_graphics_that_sleep_are_not_woken) {
    Machine laptop(fixture("intel-nvidia-laptop-6.8"));
    laptop.nvml = std::make_shared<FakeNvml>();
    EXPECT_EQ(laptop.found(), "0000:00:02.0 0000:01:00.0 ");
    EXPECT_EQ(laptop.openings, 1);
    EXPECT_EQ(laptop.nvml->lastAsked, "");
    EXPECT_EQ(laptop.nvml->closes, 0);
}

TEST(GraphicsSource, both_devices_of_the_newer_intel_driver_are_found) {
    Machine laptop(fixture("intel-xe-two-gpus-6.12"));
    EXPECT_EQ(laptop.found(), "0000:00:02.0 0000:03:00.0 ");
    EXPECT_EQ(laptop.openings, 0);
}

TEST_F(Graphics, of_intel_that_came_back_as_another_card_are_read_there) {
    add("card0", "0000:00:02.0", "i915");
    tree.write("/sys/class/drm/card0/gt/gt0/rc6_residency_ms", "5\n");
    Machine machine(tree.path());
    EXPECT_EQ(machine.tick(), 100);
    // What the kernel took away cannot be read even by those who have it open.
    tree.write("/sys/class/drm/card0/gt/gt0/rc6_residency_ms", "");
    tree.remove("/sys/class/drm/card0");
    add("card1", "0000:00:02.0", "i915");
    tree.write("/sys/class/drm/card1/gt/gt0/rc6_residency_ms", "5\n");
    ++machine.changes.now;
    EXPECT_EQ(machine.tick(), 100);
}

TEST_F(Graphics, of_intel_without_a_counter_are_left_out) {
    add("card0", "0000:00:02.0", "i915");
    add("card1", address, "xe");
    EXPECT_EQ(Machine(tree.path()).found(), "");
}

TEST_F(Graphics, of_nvidia_need_no_card_and_are_asked_by_their_address) {
    addNvidia(address);
    Machine server(tree.path());
    server.nvml = std::make_shared<FakeNvml>();
    EXPECT_EQ(server.tick(), 60);
    EXPECT_EQ(server.nvml->lastAsked, address);
}

TEST_F(Graphics, of_nvidia_share_one_library_and_what_else_its_driver_has_is_none) {
    addNvidia(address);
    addNvidia("0000:04:00.0");
    tree.write("/sys/bus/pci/drivers/nvidia/bind", "");
    tree.write("/sys/bus/pci/drivers/nvidia/module/version", "570\n");
    Machine machine(tree.path());
    machine.nvml = std::make_shared<FakeNvml>();
    EXPECT_EQ(machine.found(), "0000:03:00.0 0000:04:00.0 ");
    EXPECT_EQ(machine.openings, 1);
}

TEST_F(Graphics, of_nvidia_that_idle_are_let_go) {
    addNvidia(address);
    Machine server(tree.path());
    server.nvml = std::make_shared<FakeNvml>();
    EXPECT_EQ(server.tick(), 60);
    set("power/runtime_status", "suspended\n");
    EXPECT_EQ(server.tick(), 0);
    EXPECT_EQ(server.nvml->closes, 1);
}

TEST_F(Graphics, of_nvidia_that_went_are_let_go) {
    addNvidia(address);
    Machine server(tree.path());
    server.nvml = std::make_shared<FakeNvml>();
    EXPECT_EQ(server.tick(), 60);
    tree.remove("/sys/bus/pci/drivers/nvidia/0000:03:00.0");
    ++server.changes.now;
    EXPECT_EQ(server.found(), "");
    EXPECT_EQ(server.nvml->closes, 1);
}

TEST_F(Graphics, of_nvidia_are_left_out_without_the_library_which_is_looked_for_once) {
    addNvidia(address);
    Machine server(tree.path());
    for (int i = 0; i < 3; ++i) EXPECT_EQ(server.found(), "");
    EXPECT_EQ(server.openings, 1);
    server.nvml = std::make_shared<FakeNvml>();
    ++server.changes.now;
    EXPECT_EQ(server.found(), "0000:03:00.0 ");
}

TEST_F(Graphics, that_changed_their_driver_are_another_device) {
    addAmd("card0", address);
    Machine machine(tree.path());
    const auto before = machine.registry.getMatchingService({"IOAccelerator"});
    EXPECT_EQ(machine.registry.entryGetName(before), "amdgpu");
    tree.write("/sys/class/drm/card0/power/rc6_residency_ms", "1\n");
    set("mem_busy_percent", "0\n");
    add("card0", address, "xe");
    EXPECT_EQ(machine.registry.entryProperties(before).result, kernSuccess);
    ++machine.changes.now;
    const auto after = machine.registry.getMatchingService({"IOAccelerator"});
    EXPECT_EQ(machine.registry.entryGetName(after), "xe");
}

}  // namespace
}  // namespace vtx::test
