// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsDevice.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "linux/GraphicsTree.h"
#include "platform/simulated/ManualClock.h"

namespace vtx::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Percent = GraphicsLoad::Percent;

/// A load that says what it is told and notes how it was asked.
struct FakeLoad final : GraphicsLoad {
    struct Notes {
        Percent value = 30;
        Percent waitedFor;  ///< instead of the value, where there is none
        Duration leastRest{0};
        int firsts = 0;
        int nexts = 0;
        int letGos = 0;
    };
    explicit FakeLoad(Notes& n) : notes(n) {}
    Percent first() override { return ++notes.firsts, notes.value ? notes.value : notes.waitedFor; }
    Percent next() override { return ++notes.nexts, notes.value; }
    void letGo() override { ++notes.letGos; }
    Duration leastRest() const override { return notes.leastRest; }
    Notes& notes;
};

struct GraphicsDeviceLoad : testing::Test, GraphicsTree {
    GraphicsDeviceLoad() { add("card0", address, "fast"); }

    void start() {
        load = {};
        device = std::make_unique<GraphicsDevice>(root, clock, "fast", address,
                                                  std::make_unique<FakeLoad>(load));
    }
    /// What the device says with the next second's reading.
    [[nodiscard]] std::optional<std::int64_t> tick() {
        clock.advanceBy(seconds(1));
        const auto properties = device->properties();
        if (!properties) return std::nullopt;
        return PropertyView(Property(*properties))["PerformanceStatistics"]["Device Utilization %"]
            .number();
    }
    /// Ticks until the device was found busy twice and idle twice.
    void comeToRest() {
        EXPECT_EQ(tick(), 30);
        load.value = 0;
        EXPECT_EQ(tick(), 0);
        EXPECT_EQ(tick(), 0);
    }

    LinuxRoot root{tree.path()};
    ManualClock clock;
    FakeLoad::Notes load;
    std::unique_ptr<GraphicsDevice> device;
};

TEST_F(GraphicsDeviceLoad, is_waited_for_at_first_and_never_again) {
    start();
    for (int i = 0; i < 4; ++i) EXPECT_EQ(tick(), 30);
    EXPECT_EQ(load.firsts, 1);
    EXPECT_EQ(load.nexts, 3);
}

TEST_F(GraphicsDeviceLoad, is_absent_while_the_driver_tells_none) {
    start();
    load.value.reset();
    EXPECT_EQ(tick(), std::nullopt);
    // The device itself is still there.
    EXPECT_TRUE(device->properties());
    load.value = 40;
    EXPECT_EQ(tick(), 40);
}

TEST_F(GraphicsDeviceLoad, that_is_missing_all_at_once_is_waited_for_and_only_once) {
    start();
    EXPECT_EQ(tick(), 30);
    load.value.reset();
    load.waitedFor = 50;
    EXPECT_EQ(tick(), 50);
    load.waitedFor.reset();
    for (int i = 0; i < 4; ++i) EXPECT_EQ(tick(), std::nullopt);
    EXPECT_EQ(load.firsts, 3);
    load.value = 70;
    EXPECT_EQ(tick(), 70);
}

TEST_F(GraphicsDeviceLoad, of_a_sleeping_device_is_zero_without_asking_it) {
    for (const auto* status : {"suspended\n", "suspending\n", "resuming\n"}) {
        set("power/runtime_status", status);
        start();
        EXPECT_EQ(tick(), 0) << status;
        EXPECT_EQ(tick(), 0) << status;
        EXPECT_EQ(load.firsts + load.nexts, 0) << status;
    }
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_woke_is_known_a_reading_later) {
    set("power/runtime_status", "suspended\n");
    start();
    EXPECT_EQ(tick(), 0);
    set("power/runtime_status", "active\n");
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(load.nexts, 1);
    EXPECT_EQ(tick(), 30);
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_falls_asleep_is_let_go_once) {
    start();
    EXPECT_EQ(tick(), 30);
    set("power/runtime_status", "suspended\n");
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(load.letGos, 1);
}

TEST_F(GraphicsDeviceLoad, is_absent_while_nobody_knows_whether_the_device_sleeps) {
    start();
    for (const auto* status : {"", "error\n", "junk\n", "activesuspended\n"}) {
        set("power/runtime_status", status);
        EXPECT_EQ(tick(), std::nullopt) << status;
    }
    set("power/runtime_status", std::string(100'000, 'a'));
    EXPECT_EQ(tick(), std::nullopt);
    remove("power");
    EXPECT_EQ(tick(), std::nullopt);
    EXPECT_EQ(load.firsts + load.nexts, 0);
}

TEST_F(GraphicsDeviceLoad, is_asked_where_the_kernel_suspends_nothing) {
    remove("power");
    start();
    comeToRest();
    load.value = 80;
    EXPECT_EQ(tick(), 80);
}

TEST_F(GraphicsDeviceLoad, that_is_zero_twice_leaves_the_device_alone_beyond_its_delay) {
    start();
    comeToRest();
    EXPECT_EQ(load.letGos, 1);
    const int asked = load.nexts;
    load.value = 80;
    // Five seconds of its own and one more.
    for (int i = 0; i < 5; ++i) EXPECT_EQ(tick(), 0) << i;
    EXPECT_EQ(load.nexts, asked);
    // The one with which the next figure begins.
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(tick(), 80);
    EXPECT_EQ(tick(), 80);
}

TEST_F(GraphicsDeviceLoad, leaves_a_device_alone_again_after_one_more_zero) {
    start();
    comeToRest();
    for (int i = 0; i < 7; ++i) EXPECT_EQ(tick(), 0) << i;
    EXPECT_EQ(load.letGos, 2);
    const int asked = load.nexts;
    for (int i = 0; i < 5; ++i) EXPECT_EQ(tick(), 0) << i;
    EXPECT_EQ(load.nexts, asked);
}

TEST_F(GraphicsDeviceLoad, leaves_a_device_alone_for_as_long_as_its_driver_needs) {
    start();
    load.leastRest = seconds(8);
    comeToRest();
    load.value = 80;
    for (int i = 0; i < 9; ++i) EXPECT_EQ(tick(), 0) << i;
    EXPECT_EQ(tick(), 80);
}

TEST_F(GraphicsDeviceLoad, one_zero_among_others_changes_nothing) {
    start();
    for (const std::uint64_t value : {1u, 0u, 5u, 0u, 6u}) {
        load.value = value;
        EXPECT_EQ(tick(), value);
    }
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_never_suspends_itself_is_asked_every_time) {
    for (const auto& [file, text] :
         {std::pair{"power/control", "on\n"}, std::pair{"power/autosuspend_delay_ms", "-1\n"},
          std::pair{"power/autosuspend_delay_ms", "10001\n"},
          std::pair{"power/autosuspend_delay_ms", "9223372036854775807\n"}}) {
        set("power/control", "auto\n");
        set(file, text);
        start();
        comeToRest();
        EXPECT_EQ(tick(), 0);
        load.value = 80;
        EXPECT_EQ(tick(), 80) << file << text;
    }
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_drives_a_display_is_asked_every_time) {
    set("drm/renderD128/dev", "226:128\n");
    set("drm/card0/power/control", "auto\n");
    set("drm/card0/card0-DP-1/enabled", "disabled\n");
    set("drm/card0/card0-DP-1/dpms", "Off\n");
    set("drm/card0/card0-eDP-1/enabled", "enabled\n");
    set("drm/card0/card0-eDP-1/dpms", "On\n");
    start();
    comeToRest();
    load.value = 80;
    EXPECT_EQ(tick(), 80);
    // Switched off, the display no longer keeps it awake.
    set("drm/card0/card0-eDP-1/dpms", "Off\n");
    load.value = 0;
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(tick(), 0);
    load.value = 80;
    EXPECT_EQ(tick(), 0);
}

TEST_F(GraphicsDeviceLoad, a_delay_that_cannot_be_read_is_none) {
    for (const auto* text : {"junk\n", ""}) {
        set("power/autosuspend_delay_ms", text);
        start();
        comeToRest();
        load.value = 80;
        EXPECT_EQ(tick(), 0) << text;
        EXPECT_EQ(tick(), 80) << text;
    }
}

TEST_F(GraphicsDeviceLoad, is_waited_for_again_after_the_machine_slept) {
    start();
    EXPECT_EQ(tick(), 30);
    clock.sleepMachine(seconds(60));
    EXPECT_EQ(tick(), 30);
    EXPECT_EQ(load.firsts, 2);
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_woke_while_it_was_left_alone_is_told_soon) {
    start();
    comeToRest();
    set("power/runtime_status", "suspended\n");
    EXPECT_EQ(tick(), 0);
    set("power/runtime_status", "active\n");
    EXPECT_EQ(tick(), 0);
    // One zero is not two: those from before its sleep are forgotten.
    EXPECT_EQ(tick(), 0);
    load.value = 80;
    EXPECT_EQ(tick(), 80);
}

TEST_F(GraphicsDeviceLoad, after_the_machine_slept_begins_with_what_is_told_then) {
    start();
    comeToRest();
    clock.sleepMachine(seconds(60));
    load.value = 80;
    EXPECT_EQ(tick(), 80);
    EXPECT_EQ(tick(), 80);
    load.value = 0;
    EXPECT_EQ(tick(), 0);
    clock.sleepMachine(seconds(60));
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(tick(), 0);
    load.value = 80;
    EXPECT_EQ(tick(), 80);
}

TEST_F(GraphicsDeviceLoad, that_vanishes_while_it_is_read_leaves_no_properties) {
    start();
    tree.remove("/sys/bus/pci/devices/0000:03:00.0");
    EXPECT_FALSE(device->isThere());
    load.value.reset();
    EXPECT_EQ(device->properties(), std::nullopt);
}

TEST_F(GraphicsDeviceLoad, of_a_device_that_another_driver_took_is_not_there) {
    start();
    EXPECT_TRUE(device->isThere());
    link("/sys/bus/pci/devices/0000:03:00.0/driver", "../../../bus/pci/drivers/other");
    EXPECT_FALSE(device->isThere());
}

}  // namespace
}  // namespace vtx::test
