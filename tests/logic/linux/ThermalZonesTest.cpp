// SPDX-License-Identifier: MIT
#include "platform/linux/ThermalZones.h"

#include <gtest/gtest.h>

#include "base/QueueExecutor.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxThermalState.h"
#include "platform/simulated/ManualClock.h"
#include "support/AtOnceExecutor.h"

namespace vtx::test {
namespace {

using namespace std::chrono_literals;
using Kind = TripPoint::Kind;
using Levels = std::vector<int>;

struct Changes final : DeviceChanges {
    std::uint64_t now = 1;
    std::uint64_t generation() override { return now; }
};

/// A machine whose zones a test writes.
struct Machine {
    void add(const std::string& zone, const std::string& file, std::string_view text) const {
        tree.write("/sys/class/thermal/" + zone + "/" + file, text);
    }
    void addTrip(const std::string& zone, int number, std::string_view type,
                 std::string_view temperature, std::string_view hysteresis = "") const {
        const auto stem = "trip_point_" + std::to_string(number);
        add(zone, stem + "_type", type);
        add(zone, stem + "_temp", temperature);
        if (!hysteresis.empty()) add(zone, stem + "_hyst", hysteresis);
    }
    void heat(const std::string& zone, std::string_view temperature) const {
        add(zone, "temp", temperature);
    }
    [[nodiscard]] int stateAt(std::string_view temperature) const {
        heat("thermal_zone0", temperature);
        return zones->level().value_or(-1);
    }

    TemporaryTree tree;
    std::shared_ptr<Changes> changes = std::make_shared<Changes>();
    std::shared_ptr<ThermalZones> zones =
        std::make_shared<ThermalZones>(LinuxRoot(tree.path()), changes);
};

/// One whose only zone slows down at 90 and shuts down at 105 degrees.
struct Ordinary : Machine {
    Ordinary() {
        addTrip("thermal_zone0", 0, "passive\n", "90000\n");
        addTrip("thermal_zone0", 1, "critical\n", "105000\n");
        addTrip("thermal_zone0", 2, "active\n", "40000\n");
    }
};

TEST(ThermalTrips, levels_come_from_the_passive_and_the_critical_point) {
    const TripPoint trips[] = {{Kind::passive, 90'000, 0}, {Kind::critical, 105'000, 0}};
    const auto thresholds = thresholdsOf(trips);
    EXPECT_EQ(thresholds, (ThermalThresholds{85'000, 90'000, 100'000, 2000}));
}

TEST(ThermalTrips, the_lowest_of_a_kind_counts_and_a_hot_point_is_critical) {
    const TripPoint trips[] = {{Kind::passive, 95'000, 0},
                               {Kind::passive, 80'000, 3000},
                               {Kind::hot, 97'000, 0},
                               {Kind::critical, 110'000, 0}};
    EXPECT_EQ(thresholdsOf(trips), (ThermalThresholds{75'000, 80'000, 97'000, 3000}));
}

TEST(ThermalTrips, without_a_passive_point_the_critical_one_gives_all_levels) {
    const TripPoint trips[] = {{Kind::critical, 100'000, 0}};
    EXPECT_EQ(thresholdsOf(trips), (ThermalThresholds{85'000, 90'000, 95'000, 2000}));
}

TEST(ThermalTrips, a_hot_point_alone_gives_the_worst_level_alone) {
    const TripPoint trips[] = {{Kind::hot, 97'000, 0}};
    const auto thresholds = thresholdsOf(trips);
    EXPECT_EQ(thresholds, (ThermalThresholds{{}, {}, 97'000, 2000}));
    EXPECT_FALSE(thresholds.isEmpty());
    EXPECT_EQ(thermalLevel(96'999, thresholds, 0), 0);
    EXPECT_EQ(thermalLevel(97'000, thresholds, 0), 3);
}

TEST(ThermalTrips, kinds_are_told_by_their_exact_names) {
    EXPECT_EQ(parseTripKind("passive\n"), Kind::passive);
    EXPECT_EQ(parseTripKind("hot\n"), Kind::hot);
    EXPECT_EQ(parseTripKind("critical\n"), Kind::critical);
    for (const auto* other : {"active\n", "Hot\n", "", "hotter"})
        EXPECT_EQ(parseTripKind(other), Kind::other) << other;
}

TEST(ThermalTrips, points_that_are_off_or_of_fans_give_none) {
    const TripPoint trips[] = {
        {Kind::passive, 0, 0}, {Kind::critical, -274'000, 0}, {Kind::other, 50'000, 5000}};
    EXPECT_TRUE(thresholdsOf(trips).isEmpty());
    EXPECT_TRUE(thresholdsOf({}).isEmpty());
}

TEST(ThermalTrips, a_hysteresis_that_makes_no_sense_is_the_usual_one) {
    for (const MilliCelsius odd : {-1, 0, 10'001, 200'000}) {
        const TripPoint trips[] = {{Kind::passive, 90'000, odd}};
        EXPECT_EQ(thresholdsOf(trips).hysteresis, 2000) << odd;
    }
}

TEST(ThermalTrips, a_level_is_left_only_below_its_hysteresis) {
    const ThermalThresholds thresholds{85'000, 90'000, 100'000, 2000};
    int held = 0;
    Levels levels;
    for (const MilliCelsius now : {84'999, 85'000, 83'000, 82'999, 90'000, 88'001, 87'999, 100'000,
                                   98'000, 97'999, 20'000}) {
        held = thermalLevel(now, thresholds, held);
        levels.push_back(held);
    }
    EXPECT_EQ(levels, (Levels{0, 1, 1, 0, 2, 2, 1, 3, 3, 2, 0}));
}

TEST(ThermalTrips, temperatures_of_no_running_machine_are_none) {
    EXPECT_EQ(parseMilliCelsius("45000\n"), 45'000);
    EXPECT_EQ(parseMilliCelsius("-5000\n"), -5000);
    for (const auto* text :
         {"", "\n", "x", "45000 C", "-274000", "200001", "4.5", "99999999999999999999", "-40001"})
        EXPECT_EQ(parseMilliCelsius(text), std::nullopt) << text;
}

TEST(ThermalZones, a_zone_is_held_against_its_own_points) {
    const Ordinary machine;
    EXPECT_EQ(machine.stateAt("50000\n"), 0);
    EXPECT_EQ(machine.stateAt("86000\n"), 1);
    EXPECT_EQ(machine.stateAt("90000\n"), 2);
    EXPECT_EQ(machine.stateAt("101000\n"), 3);
    EXPECT_EQ(machine.stateAt("20000\n"), 0);
}

TEST(ThermalZones, the_hottest_of_several_counts) {
    const Ordinary machine;
    machine.addTrip("thermal_zone1", 0, "passive", "60000");
    machine.heat("thermal_zone1", "61000\n");
    EXPECT_EQ(machine.stateAt("50000\n"), 2);
    EXPECT_EQ(machine.stateAt("101000\n"), 3);
}

TEST(ThermalZones, a_zone_that_cannot_be_read_or_says_nonsense_is_passed_over) {
    const Ordinary machine;
    machine.addTrip("thermal_zone1", 0, "passive", "60000");
    EXPECT_EQ(machine.stateAt("86000\n"), 1);
    for (const auto* text : {"", "-273000\n", "garbage\n", "300000\n"}) {
        machine.heat("thermal_zone1", text);
        EXPECT_EQ(machine.stateAt("86000\n"), 1) << text;
    }
    EXPECT_EQ(machine.stateAt("nonsense"), -1) << "no zone tells anything";
}

TEST(ThermalZones, points_are_read_once_and_again_when_devices_changed) {
    const Ordinary machine;
    EXPECT_EQ(machine.stateAt("70000\n"), 0);
    machine.addTrip("thermal_zone0", 0, "passive", "60000");
    EXPECT_EQ(machine.stateAt("70000\n"), 0);
    ++machine.changes->now;
    EXPECT_EQ(machine.stateAt("70000\n"), 2);
    machine.tree.remove("/sys/class/thermal/thermal_zone0");
    ++machine.changes->now;
    EXPECT_EQ(machine.zones->level(), std::nullopt);
}

TEST(ThermalZones, zones_that_are_off_without_points_or_no_zones_have_no_part) {
    const Machine machine;
    machine.addTrip("thermal_zone0", 0, "passive", "60000");
    machine.add("thermal_zone0", "mode", "disabled\n");
    machine.heat("thermal_zone0", "99000\n");
    machine.add("thermal_zone1", "type", "acpitz\n");
    machine.heat("thermal_zone1", "99000\n");
    machine.addTrip("cooling_device0", 0, "passive", "60000");
    machine.heat("cooling_device0", "99000\n");
    EXPECT_EQ(machine.zones->level(), std::nullopt);
}

TEST(ThermalZones, the_recorded_laptop_is_warm) {
    const auto changes = std::make_shared<Changes>();
    ThermalZones zones(LinuxRoot(fixture("charge-battery-laptop-6.12")), changes);
    EXPECT_EQ(zones.level(), 1);
}

/// The port with a worker that the test steps.
struct Port {
    Ordinary machine;
    LinuxRoot root{machine.tree.path()};
    ManualClock clock;
    QueueExecutor main;
    AtOnceExecutor worker;
    std::optional<LinuxThermalState> state{std::in_place, root,   clock,
                                           main,          worker, machine.changes};
};

TEST(LinuxThermalState, the_first_answer_is_of_this_moment_and_no_change) {
    Port p;
    p.machine.heat("thermal_zone0", "91000\n");
    int told = 0;
    const auto token = p.state->onThermalStateDidChange([&told] { ++told; });
    EXPECT_EQ(p.state->thermalState(), 2);
    p.main.drain();
    EXPECT_EQ(told, 0);
}

TEST(LinuxThermalState, another_level_is_told_on_the_main_executor) {
    Port p;
    p.machine.heat("thermal_zone0", "50000\n");
    EXPECT_EQ(p.state->thermalState(), 0);
    Levels told;
    const auto token = p.state->onThermalStateDidChange(
        [&] { told.push_back(static_cast<int>(p.state->thermalState())); });
    p.machine.heat("thermal_zone0", "91000\n");
    static_cast<void>(p.state->thermalState());
    EXPECT_EQ(told, Levels{});
    p.main.drain();
    EXPECT_EQ(told, Levels{2});
    static_cast<void>(p.state->thermalState());
    p.main.drain();
    EXPECT_EQ(told, Levels{2}) << "the same level again is no change";
}

TEST(LinuxThermalState, a_machine_without_zones_is_nominal_and_reads_nothing) {
    const TemporaryTree tree;
    const LinuxRoot root(tree.path());
    ManualClock clock;
    QueueExecutor main, worker;
    LinuxThermalState state(root, clock, main, worker, std::make_shared<Changes>());
    EXPECT_EQ(state.thermalState(), 0);
    EXPECT_TRUE(worker.isEmpty());
}

TEST(LinuxThermalState, a_change_under_way_when_the_port_goes_is_told_to_nobody) {
    Port p;
    p.machine.heat("thermal_zone0", "50000\n");
    static_cast<void>(p.state->thermalState());
    int told = 0;
    const auto token = p.state->onThermalStateDidChange([&told] { ++told; });
    p.machine.heat("thermal_zone0", "91000\n");
    static_cast<void>(p.state->thermalState());
    p.state.reset();
    p.main.drain();
    EXPECT_EQ(told, 0);
}

TEST(LinuxThermalState, what_was_read_too_long_ago_is_no_level) {
    const Ordinary machine;
    machine.heat("thermal_zone0", "91000\n");
    const LinuxRoot root(machine.tree.path());
    ManualClock clock;
    QueueExecutor main;
    struct Hanging final : Executor {
        bool hangs = false;
        void post(Job job) override {
            if (!hangs) job();
        }
        [[nodiscard]] bool isCurrent() const override { return true; }
    } worker;
    LinuxThermalState state(root, clock, main, worker, machine.changes);
    EXPECT_EQ(state.thermalState(), 2);
    worker.hangs = true;
    EXPECT_EQ(state.thermalState(), 2);
    clock.advanceBy(13s);
    EXPECT_EQ(state.thermalState(), 0);
}

}  // namespace
}  // namespace vtx::test
