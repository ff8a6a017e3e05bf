// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPowerSources.h"

#include <gtest/gtest.h>

#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"
#include "support/AtOnceExecutor.h"

namespace vtx::test {
namespace {

std::string sourceOf(const std::string& folder) {
    const LinuxRoot root(folder);
    const ManualClock clock;
    AtOnceExecutor worker;
    BatteryGauge gauge(root, clock, worker, std::make_shared<NoChanges>());
    return LinuxPowerSources(gauge).copyPowerSourcesInfo()->providingPowerSourceType().value();
}

/// A machine with the supplies that a test gives it.
struct Machine {
    void add(const std::string& name, std::string_view file, std::string_view text) const {
        tree.write("/sys/class/power_supply/" + name + "/" + std::string(file), text);
    }
    void addBattery(const std::string& name, std::string_view status) const {
        add(name, "type", "Battery\n");
        add(name, "status", status);
    }
    void addSupply(const std::string& name, std::string_view type, std::string_view online) const {
        add(name, "type", type);
        add(name, "online", online);
    }
    [[nodiscard]] std::string source() const { return sourceOf(tree.path()); }

    TemporaryTree tree;
};

TEST(LinuxPowerSources, recorded_machines_run_on_what_they_ran_on) {
    EXPECT_EQ(sourceOf(fixture("intel-hybrid-laptop-6.12")), "Battery Power");
    EXPECT_EQ(sourceOf(fixture("virtual-server-6.18")), "AC Power");
}

TEST(LinuxPowerSources, a_discharging_battery_counts_only_while_no_supply_is_online) {
    for (const auto* type : {"Mains\n", "USB\n", "USB_PD\n", "Wireless\n"}) {
        const Machine machine;
        machine.addBattery("BAT0", "Discharging\n");
        machine.addSupply("AC", type, "1\n");
        EXPECT_EQ(machine.source(), "AC Power") << type;
        machine.addSupply("AC", type, "0\n");
        EXPECT_EQ(machine.source(), "Battery Power") << type;
    }
}

TEST(LinuxPowerSources, a_battery_in_any_other_state_is_not_run_on) {
    for (const auto* status : {"Charging\n", "Full\n", "Not charging\n", "Unknown\n", "", "x"}) {
        const Machine machine;
        machine.addBattery("BAT0", status);
        EXPECT_EQ(machine.source(), "AC Power") << status;
    }
}

TEST(LinuxPowerSources, one_of_several_batteries_is_enough) {
    const Machine machine;
    machine.addBattery("BAT0", "Full\n");
    machine.addBattery("BAT1", "Discharging\n");
    EXPECT_EQ(machine.source(), "Battery Power");
}

TEST(LinuxPowerSources, batteries_and_chargers_of_devices_do_not_count) {
    const Machine machine;
    machine.addBattery("mouse", "Discharging\n");
    machine.add("mouse", "scope", "Device\n");
    EXPECT_EQ(machine.source(), "AC Power");
    machine.addBattery("BAT0", "Discharging\n");
    machine.addSupply("pen", "USB\n", "1\n");
    machine.add("pen", "scope", "Device\n");
    EXPECT_EQ(machine.source(), "Battery Power");
}

TEST(LinuxPowerSources, damaged_files_are_passed_over) {
    const Machine machine;
    machine.addBattery("BAT0", "Discharging\n");
    machine.addSupply("AC", "Mains\n", "yes\n");
    machine.add("odd", "online", "1\n");
    EXPECT_EQ(machine.source(), "Battery Power");
}

}  // namespace
}  // namespace vtx::test
