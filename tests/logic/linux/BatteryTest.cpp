// SPDX-License-Identifier: MIT
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "linux/TemporaryTree.h"
#include "platform/linux/BatteryGauge.h"
#include "platform/linux/BatterySource.h"
#include "platform/linux/LinuxPowerSources.h"
#include "platform/simulated/ManualClock.h"
#include "support/AtOnceExecutor.h"

namespace vtx::test {
namespace {

using namespace std::chrono_literals;
using Status = BatteryFacts::Status;

struct Changes final : DeviceChanges {
    std::uint64_t now = 1;
    std::uint64_t generation() override { return now; }
};

std::optional<BatteryState> readFixture(std::string_view machine) {
    return BatteryReader(LinuxRoot(fixture(machine)), std::make_shared<Changes>()).read();
}

BatteryState merged(const BatteryFacts& facts) { return mergeBatteries({&facts, 1}); }

BatteryFacts inCharge() {
    BatteryFacts facts;
    facts.status = Status::discharging;
    facts.chargeNow = 2'000'000;
    facts.chargeFull = 4'000'000;
    facts.voltageNow = 12'000'000;
    facts.currentNow = 1'000'000;
    return facts;
}

BatteryFacts inEnergy() {
    BatteryFacts facts;
    facts.status = Status::charging;
    facts.energyNow = 22'800'000;
    facts.energyFull = 45'600'000;
    facts.energyFullDesign = 57'000'000;
    facts.voltageMinDesign = 11'400'000;
    facts.voltageNow = 12'000'000;
    facts.powerNow = 24'000'000;
    return facts;
}

TEST(Battery, a_recorded_one_that_tells_charge) {
    const auto state = readFixture("charge-battery-laptop-6.12");
    ASSERT_TRUE(state);
    EXPECT_EQ(state->percent, 70);
    EXPECT_EQ(state->isCharging, false);
    EXPECT_EQ(state->currentMAh, 2236);
    EXPECT_EQ(state->maxMAh, 3194);
    EXPECT_EQ(state->designMAh, 3572);
    EXPECT_EQ(state->voltageMV, 15'912);
    EXPECT_EQ(state->amperageMA, -742);
    EXPECT_EQ(state->cycleCount, 212);
    EXPECT_EQ(state->minutesToFull, std::nullopt);
    // 2.236 Ah at 15.4 V, against 0.742 A at 15.912 V.
    EXPECT_EQ(state->minutesToEmpty, 174);
}

TEST(Battery, a_recorded_one_that_tells_energy_each_figure_from_its_own_file) {
    const auto state = readFixture("energy-battery-laptop-5.15");
    ASSERT_TRUE(state);
    EXPECT_EQ(state->percent, 60);
    EXPECT_EQ(state->isCharging, true);
    EXPECT_EQ(state->currentMAh, 2631);
    EXPECT_EQ(state->maxMAh, 4385);
    EXPECT_EQ(state->designMAh, 5000);
    EXPECT_EQ(state->amperageMA, 1652);
    EXPECT_EQ(state->minutesToFull, 60);
    EXPECT_EQ(state->minutesToEmpty, std::nullopt);
    EXPECT_EQ(state->cycleCount, std::nullopt) << "0 stands for not known";
    EXPECT_EQ(state->centiCelsius, 3050);
}

TEST(Battery, two_recorded_ones_are_one_and_the_mouses_and_the_empty_slot_are_none) {
    const auto state = readFixture("two-batteries-laptop-6.8");
    ASSERT_TRUE(state);
    EXPECT_EQ(state->percent, 75);
    EXPECT_EQ(state->isCharging, false);
    EXPECT_EQ(state->currentMAh, 3000);
    EXPECT_EQ(state->maxMAh, 4000);
    EXPECT_EQ(state->voltageMV, 11'950);
    EXPECT_EQ(state->amperageMA, -715);
    EXPECT_EQ(state->cycleCount, 301);
    EXPECT_EQ(state->minutesToEmpty, 240);
}

TEST(Battery, the_older_recorded_laptop_tells_its_percentage_alone) {
    BatteryState expected;
    expected.percent = 71;
    expected.isCharging = false;
    expected.powersMachine = true;
    EXPECT_EQ(readFixture("intel-hybrid-laptop-6.12"), expected);
    EXPECT_EQ(readFixture("virtual-server-6.18"), std::nullopt);
}

TEST(BatteryFacts, the_sign_of_the_current_is_the_statuss) {
    for (const std::int64_t current : {1'500'000, -1'500'000}) {
        auto facts = inCharge();
        facts.currentNow = current;
        EXPECT_EQ(merged(facts).amperageMA, -1500);
        facts.status = Status::charging;
        EXPECT_EQ(merged(facts).amperageMA, 1500);
        for (const auto idle : {Status::full, Status::notCharging, Status::unknown}) {
            facts.status = idle;
            EXPECT_EQ(merged(facts).amperageMA, std::nullopt);
        }
        facts.currentNow = 0;
        EXPECT_EQ(merged(facts).amperageMA, 0);
    }
}

TEST(BatteryFacts, energy_becomes_charge_by_the_design_voltage) {
    const auto state = merged(inEnergy());
    EXPECT_EQ(state.currentMAh, 2000);
    EXPECT_EQ(state.maxMAh, 4000);
    EXPECT_EQ(state.designMAh, 5000);
    EXPECT_EQ(state.amperageMA, 2000) << "power by the voltage of now";
    EXPECT_EQ(state.percent, 50);
}

TEST(BatteryFacts, energy_becomes_charge_by_the_highest_design_voltage_where_that_alone_is_told) {
    auto facts = inEnergy();
    facts.voltageMinDesign = std::nullopt;
    facts.voltageMaxDesign = 22'800'000;
    EXPECT_EQ(merged(facts).currentMAh, 1000);
    facts.voltageMaxDesign = std::nullopt;
    EXPECT_EQ(merged(facts).currentMAh, 1900) << "by the voltage of now";
}

TEST(BatteryFacts, without_a_usable_voltage_energy_is_no_charge_and_gives_a_fraction_all_the_same) {
    for (const auto none : {std::optional<std::int64_t>(), std::optional<std::int64_t>(0)}) {
        auto facts = inEnergy();
        facts.voltageMinDesign = facts.voltageNow = none;
        const auto state = merged(facts);
        EXPECT_EQ(state.currentMAh, std::nullopt);
        EXPECT_EQ(state.maxMAh, std::nullopt);
        EXPECT_EQ(state.amperageMA, std::nullopt);
        EXPECT_EQ(state.percent, 50);
    }
}

TEST(BatteryFacts, charge_says_the_fraction_and_the_times_where_no_voltage_is_told) {
    auto facts = inCharge();
    facts.voltageNow = std::nullopt;
    EXPECT_EQ(merged(facts).percent, 50);
    EXPECT_EQ(merged(facts).minutesToEmpty, 120);
    facts.status = Status::charging;
    EXPECT_EQ(merged(facts).minutesToFull, 120);
    facts.chargeFull = std::nullopt;
    EXPECT_EQ(merged(facts).percent, std::nullopt);
    EXPECT_EQ(merged(facts).minutesToFull, std::nullopt);
}

TEST(BatteryFacts, what_is_left_says_no_fraction_without_what_there_is_room_for) {
    auto facts = inEnergy();
    facts.energyFull = std::nullopt;
    EXPECT_EQ(merged(facts).percent, std::nullopt);
    EXPECT_EQ(merged(facts).minutesToFull, std::nullopt);
    facts.energyFull = 22'000'000;
    EXPECT_EQ(merged(facts).percent, 100);
    EXPECT_EQ(merged(facts).minutesToFull, std::nullopt) << "it is beyond full";
    facts.energyFull = 0;
    EXPECT_EQ(merged(facts).percent, std::nullopt);
    EXPECT_EQ(merged(facts).minutesToFull, std::nullopt) << "more is left than there is room for";
    facts.energyNow = std::nullopt;
    EXPECT_EQ(merged(facts).minutesToFull, std::nullopt);
}

TEST(BatteryFacts, several_that_tell_percentages_alone_have_their_mean) {
    BatteryFacts both[2];
    both[0].capacity = 40;
    EXPECT_EQ(mergeBatteries(both).percent, std::nullopt);
    both[1].capacity = 61;
    EXPECT_EQ(mergeBatteries(both).percent, 50);
}

TEST(BatteryFacts, times_come_from_energy_and_power_where_the_driver_gives_none) {
    auto facts = inEnergy();
    EXPECT_EQ(merged(facts).minutesToFull, 57);
    facts.secondsToFull = 3600;
    EXPECT_EQ(merged(facts).minutesToFull, 60);
    facts = inCharge();
    EXPECT_EQ(merged(facts).minutesToEmpty, 120);
    facts.secondsToEmpty = 119;
    EXPECT_EQ(merged(facts).minutesToEmpty, 1);
    facts.secondsToEmpty = std::nullopt;
    facts.currentNow = 0;
    EXPECT_EQ(merged(facts).minutesToEmpty, std::nullopt);
    facts.currentNow = 100;
    EXPECT_EQ(merged(facts).minutesToEmpty, std::nullopt) << "beyond a hundred hours";
}

TEST(BatteryFacts, impossible_fractions_are_refused) {
    auto facts = inCharge();
    facts.chargeNow = 5'000'000;
    EXPECT_EQ(merged(facts).percent, 100) << "a little beyond full is full";
    facts.chargeNow = 5'040'001;
    const auto state = merged(facts);
    EXPECT_EQ(state.percent, std::nullopt);
    EXPECT_EQ(state.currentMAh, std::nullopt);
    EXPECT_EQ(state.maxMAh, std::nullopt);
    EXPECT_EQ(parseBatteryFacts("POWER_SUPPLY_CAPACITY=101\n").capacity, std::nullopt);
    EXPECT_EQ(parseBatteryFacts("POWER_SUPPLY_CHARGE_FULL=0\n").chargeFull, std::nullopt);
}

TEST(BatteryFacts, every_status_says_whether_it_charges) {
    const std::pair<const char*, std::optional<bool>> cases[] = {
        {"Charging", true},        {"Discharging", false},    {"Not charging", false},
        {"Full", false},           {"Unknown", std::nullopt}, {"", std::nullopt},
        {"charging", std::nullopt}};
    for (const auto& [status, expected] : cases) {
        const auto text = fmt::format("POWER_SUPPLY_STATUS={}\n", status);
        EXPECT_EQ(merged(parseBatteryFacts(text)).isCharging, expected) << status;
    }
}

TEST(BatteryFacts, one_of_several_that_charges_is_enough) {
    const BatteryFacts both[] = {inCharge(), inEnergy()};
    EXPECT_EQ(mergeBatteries(both).isCharging, true);
    EXPECT_EQ(mergeBatteries(both).amperageMA, 1000);
    EXPECT_EQ(mergeBatteries({}), BatteryState());
}

TEST(BatteryFacts, a_line_that_is_not_understood_is_passed_over) {
    for (const auto* line : {"POWER_SUPPLY_CHARGE_NOW=x", "POWER_SUPPLY_CHARGE_NOW=-5",
                             "POWER_SUPPLY_CHARGE_NOW=", "POWER_SUPPLY_CHARGE_NOW", "CHARGE_NOW=5",
                             "POWER_SUPPLY_CHARGE_NOW=99999999999999999999",
                             "POWER_SUPPLY_CHARGE_NOW=1000000000000", "=", "POWER_SUPPLY_="}) {
        const auto facts = parseBatteryFacts(fmt::format("{}\nPOWER_SUPPLY_CAPACITY=5\n", line));
        EXPECT_EQ(facts.chargeNow, std::nullopt) << line;
        EXPECT_EQ(facts.capacity, 5) << line;
    }
}

TEST(BatteryFacts, a_text_cut_anywhere_gives_whole_numbers_or_none) {
    const auto text =
        contentsOf(fixture("charge-battery-laptop-6.12") + "/sys/class/power_supply/BAT1/uevent");
    const auto whole = parseBatteryFacts(text);
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        const auto facts = parseBatteryFacts(std::string_view(text).substr(0, cut));
        EXPECT_TRUE(!facts.chargeNow || facts.chargeNow == whole.chargeNow) << cut;
        EXPECT_TRUE(!facts.voltageNow || facts.voltageNow == whole.voltageNow) << cut;
        static_cast<void>(merged(facts));
    }
    EXPECT_EQ(parseBatteryFacts(std::string(1 << 20, 'P')), BatteryFacts());
}

/// Both ports over one machine.
struct Ports {
    explicit Ports(const std::string& folder) : root(folder) {}
    LinuxRoot root;
    ManualClock clock;
    AtOnceExecutor worker;
    std::shared_ptr<Changes> changes = std::make_shared<Changes>();
    BatteryGauge gauge{root, clock, worker, changes};
    BatterySource source{gauge};
    LinuxPowerSources sources{gauge};

    std::optional<PropertyMap> entry() {
        const auto services = source.services();
        return services.empty() ? std::nullopt : services.front()->properties();
    }
};

TEST(BatterySource, the_entry_has_the_platforms_names_and_units) {
    Ports ports(fixture("charge-battery-laptop-6.12"));
    ASSERT_TRUE(ports.entry());
    const Property entry(*ports.entry());
    const PropertyView view(entry);
    EXPECT_EQ(view["AppleRawCurrentCapacity"].number(), 2236);
    EXPECT_EQ(view["AppleRawMaxCapacity"].number(), 3194);
    EXPECT_EQ(view["DesignCapacity"].number(), 3572);
    EXPECT_EQ(view["CycleCount"].number(), 212);
    EXPECT_EQ(view["Voltage"].number(), 15'912);
    EXPECT_EQ(view["Amperage"].number(), 4'294'967'296 - 742);
    EXPECT_FALSE(view["Temperature"].exists());
}

TEST(BatterySource, a_current_that_flows_in_is_itself) {
    Ports ports(fixture("energy-battery-laptop-5.15"));
    ASSERT_TRUE(ports.entry());
    const Property entry(*ports.entry());
    EXPECT_EQ(PropertyView(entry)["Amperage"].number(), 1652);
    EXPECT_EQ(PropertyView(entry)["Temperature"].number(), 3050);
}

TEST(LinuxPowerSources, the_battery_is_the_one_source_of_the_list) {
    Ports ports(fixture("two-batteries-laptop-6.8"));
    const auto info = ports.sources.copyPowerSourcesInfo();
    EXPECT_EQ(info->providingPowerSourceType(), "Battery Power");
    EXPECT_EQ(info->powerSourceCount(), 1U);
    const auto view = info->powerSourceDescription(0);
    EXPECT_EQ(view["Current Capacity"].number(), 75);
    EXPECT_EQ(view["Max Capacity"].number(), 100);
    EXPECT_EQ(view["Is Charging"].flag(), false);
    EXPECT_EQ(view["Time to Empty"].number(), 240);
    EXPECT_EQ(view["Time to Full Charge"].number(), -1);
    EXPECT_FALSE(info->powerSourceDescription(1).exists());
}

TEST(LinuxPowerSources, a_machine_without_a_battery_has_an_empty_list) {
    Ports ports(fixture("virtual-server-6.18"));
    const auto info = ports.sources.copyPowerSourcesInfo();
    EXPECT_EQ(info->powerSourceCount(), 0U);
    EXPECT_FALSE(info->powerSourceDescription(0).exists());
    EXPECT_EQ(ports.entry(), std::nullopt);
}

TEST(BatteryGauge, both_ports_share_one_read_and_the_next_tick_has_a_new_one) {
    const TemporaryTree tree;
    tree.write("/sys/class/power_supply/BAT0/type", "Battery\n");
    const auto write = [&tree](int percent) {
        tree.write("/sys/class/power_supply/BAT0/uevent",
                   fmt::format("POWER_SUPPLY_STATUS=Full\nPOWER_SUPPLY_CAPACITY={}\n", percent));
    };
    write(50);
    Ports ports(tree.path());
    EXPECT_EQ(ports.gauge.state()->percent, 50);
    write(51);
    EXPECT_EQ(ports.gauge.state()->percent, 50);
    ports.clock.advanceBy(1s);
    static_cast<void>(ports.gauge.state());
    ports.clock.advanceBy(1s);
    EXPECT_EQ(ports.gauge.state()->percent, 51);
}

TEST(BatteryGauge, after_a_pause_of_some_seconds_the_state_is_of_this_moment) {
    const TemporaryTree tree;
    tree.write("/sys/class/power_supply/BAT0/type", "Battery\n");
    const auto write = [&tree](std::string_view status) {
        tree.write("/sys/class/power_supply/BAT0/status", status);
    };
    write("Discharging\n");
    Ports ports(tree.path());
    const auto type = [&ports] {
        return ports.sources.copyPowerSourcesInfo()->providingPowerSourceType();
    };
    EXPECT_EQ(type(), "Battery Power");
    write("Charging\n");
    ports.clock.advanceBy(1s);
    EXPECT_EQ(type(), "Battery Power") << "what the last read found, which nobody waits for";
    ports.clock.advanceBy(1s);
    EXPECT_EQ(type(), "AC Power");
    write("Discharging\n");
    ports.clock.advanceBy(5s);
    EXPECT_EQ(type(), "Battery Power");
}

TEST(BatteryGauge, a_battery_that_is_taken_out_takes_its_entry_with_it) {
    const TemporaryTree tree;
    tree.write("/sys/class/power_supply/BAT0/type", "Battery\n");
    tree.write("/sys/class/power_supply/BAT0/status", "Full\n");
    Ports ports(tree.path());
    ASSERT_TRUE(ports.entry());
    const auto node = ports.source.services().front();
    tree.remove("/sys/class/power_supply/BAT0");
    ports.clock.advanceBy(1s);
    static_cast<void>(ports.gauge.state());  // asks
    ports.clock.advanceBy(1s);
    EXPECT_TRUE(ports.gauge.hasBattery()) << "nobody said that devices changed";
    EXPECT_EQ(ports.gauge.state(), std::nullopt);
    ++ports.changes->now;
    EXPECT_EQ(ports.entry(), std::nullopt);
    EXPECT_EQ(node->properties(), std::nullopt);
    EXPECT_FALSE(node->isThere());
}

}  // namespace
}  // namespace vtx::test
