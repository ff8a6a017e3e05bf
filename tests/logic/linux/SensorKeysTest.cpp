// SPDX-License-Identifier: MIT
#include "platform/linux/SensorKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "linux/SensorTree.h"

namespace vtx::test {
namespace {

using Doubles = std::vector<double>;

/// A recorded machine and its keys.
struct RecordedKeys : SensorBench {
    explicit RecordedKeys(const std::string& machine) : root(fixture(machine)) {}
    LinuxRoot root;
    SensorKeys keys{root, tools()};
    KeyReader read{keys};
};

TEST(SensorKeys, of_a_hybrid_laptop_offer_the_package_and_pass_over_its_cores) {
    const RecordedKeys laptop("intel-hybrid-laptop-6.12");
    EXPECT_EQ(laptop.read.processors(), Doubles{52.0});
    const auto others = laptop.read.beginning("S");
    // Twelve cores, the board's eight, the drive's two, the firmware's and the radio's.
    EXPECT_EQ(others.size(), 24u);
    for (const auto& [name, value] : others) EXPECT_EQ(laptop.read.type(name), "sp78") << name;
    EXPECT_EQ(laptop.read.value("FNum"), 2.0);
    EXPECT_EQ(laptop.read.value("F0Ac"), 2410.0);
    EXPECT_EQ(laptop.read.value("F1Ac"), 2395.0);
    EXPECT_EQ(laptop.read.type("F0Mx"), "");
    EXPECT_EQ(laptop.read.type("B0AT"), "");
}

TEST(SensorKeys, of_two_sockets_are_two_and_no_fan_is_told) {
    const RecordedKeys server("two-socket-server-5.15");
    EXPECT_EQ(server.read.processors(), (Doubles{47.0, 63.0}));
    EXPECT_EQ(server.read.value("FNum"), 0.0);
    EXPECT_EQ(server.read.beginning("S").size(), 16u);
}

TEST(SensorKeys, of_a_desktop_have_the_fans_of_the_board_and_of_the_graphics) {
    const RecordedKeys desktop("amd-desktop-6.8");
    EXPECT_EQ(desktop.read.processors(), Doubles{58.875});
    EXPECT_EQ(desktop.read.value("FNum"), 8.0);
    // The graphics come first, by their place.
    EXPECT_EQ(desktop.read.value("F0Ac"), 0.0);
    EXPECT_EQ(desktop.read.value("F0Mx"), 3300.0);
    EXPECT_EQ(desktop.read.value("F1Ac"), 842.0);
    EXPECT_EQ(desktop.read.value("F7Ac"), 2812.0);
}

TEST(SensorKeys, of_other_machines_say_what_these_say) {
    const RecordedKeys board("arm-big-little-board-6.6");
    EXPECT_EQ(board.read.processors(), Doubles{48.333F});
    EXPECT_EQ(board.read.value("F0Ac"), 2940.0);
    const RecordedKeys dell("dell-laptop-6.1");
    EXPECT_EQ(dell.read.processors(), Doubles{61.0});
    EXPECT_EQ(dell.read.value("F0Ac"), 3187.0);
    EXPECT_EQ(dell.read.value("F0Tg"), 3000.0);
    EXPECT_EQ(dell.read.value("F0Mn"), 0.0);
    EXPECT_EQ(dell.read.value("F0Mx"), 5700.0);
    const RecordedKeys asus("amd-two-gpus-laptop-6.15");
    EXPECT_EQ(asus.read.processors(), Doubles{67.375});
    EXPECT_EQ(asus.read.value("FNum"), 2.0);
    EXPECT_EQ(asus.read.value("F1Ac"), 3100.0);
}

TEST(SensorKeys, of_a_machine_without_sensors_are_none) {
    RecordedKeys server("virtual-server-6.18");
    EXPECT_TRUE(server.keys.isEmpty());
    EXPECT_FALSE(RecordedKeys("dell-laptop-6.1").keys.isEmpty());
}

TEST(SensorKeys, are_counted_and_told_by_their_index) {
    const RecordedKeys dell("dell-laptop-6.1");
    const auto names = dell.read.names();
    EXPECT_EQ(dell.read.value("#KEY"), static_cast<double>(names.size()));
    EXPECT_EQ(std::ranges::count(names, "#KEY"), 1);
    EXPECT_EQ(std::ranges::count(names, "FNum"), 1);
    EXPECT_EQ(dell.read.type("#KEY"), "ui32");
    EXPECT_EQ(dell.read.type("FNum"), "ui8 ");
    EXPECT_EQ(dell.read.type("F0Ac"), "flt ");
    // What discovery takes up comes before all that could be slow to answer.
    const auto isProcessor = [](const std::string& name) { return name.starts_with("TC"); };
    const auto isFan = [](const std::string& name) { return name == "F0Ac"; };
    EXPECT_LT(std::ranges::find_if(names, isProcessor), std::ranges::find_if(names, isFan));
}

TEST(SensorKeys, that_discovery_passes_over_are_not_read_by_it) {
    const RecordedKeys laptop("amd-two-gpus-laptop-6.15");
    for (const auto& name : laptop.read.names()) {
        if (laptop.read.type(name) != "flt ") continue;
        EXPECT_NE(laptop.read.value(name), 99.0) << name;
    }
}

TEST(SensorKeys, have_the_same_names_in_every_run) {
    EXPECT_EQ(RecordedKeys("amd-desktop-6.8").read.names(),
              RecordedKeys("amd-desktop-6.8").read.names());
}

/// A machine that a test lays out, and its keys.
struct KeysOfAMachine : SensorTree {
    void start() {
        keys.emplace(root, bench.tools());
        read.emplace(*keys);
    }
    void addPackage(int socket, int number, std::string_view value) const {
        const std::string device = "/sys/devices/platform/coretemp." + std::to_string(socket);
        addSensor(addChip(number, device, "coretemp"), "temp1", value,
                  "Package id " + std::to_string(socket) + "\n");
    }

    std::optional<SensorKeys> keys;
    std::optional<KeyReader> read;
};

TEST_F(KeysOfAMachine, another_number_for_a_chip_swaps_nothing) {
    addPackage(0, 1, "50000\n");
    addPackage(1, 2, "60000\n");
    start();
    const auto before = read->beginning("TC");
    ASSERT_EQ(before.size(), 2u);
    removeChip(1, coretemp0);
    removeChip(2, coretemp1);
    addPackage(0, 2, "50000\n");
    addPackage(1, 1, "60000\n");
    bench.devicesChanged();
    EXPECT_EQ(read->beginning("TC"), before);
    start();
    EXPECT_EQ(read->beginning("TC"), before);
}

TEST_F(KeysOfAMachine, a_device_that_went_fails_and_comes_back_under_its_key) {
    addPackage(0, 1, "50000\n");
    addPackage(1, 2, "60000\n");
    start();
    const auto before = read->beginning("TC");
    removeChip(2, coretemp1);
    bench.devicesChanged();
    EXPECT_EQ(read->processors(), Doubles{50.0});
    EXPECT_EQ(read->beginning("TC").size(), 2u);
    addPackage(1, 9, "60000\n");
    bench.devicesChanged();
    EXPECT_EQ(read->beginning("TC"), before);
}

TEST_F(KeysOfAMachine, a_device_that_came_is_found_when_it_is_announced) {
    addPackage(0, 1, "50000\n");
    start();
    const auto before = read->names();
    addPackage(1, 2, "60000\n");
    bench.clock.advanceBy(std::chrono::hours(1));
    EXPECT_EQ(read->names(), before);
    bench.devicesChanged();
    auto after = read->names();
    EXPECT_EQ(read->value("#KEY"), static_cast<double>(after.size()));
    ASSERT_EQ(after.size(), before.size() + 1);
    after.pop_back();
    EXPECT_EQ(after, before);
}

TEST_F(KeysOfAMachine, a_board_that_stood_in_for_the_processor_keeps_its_key) {
    const auto board = addChip(0, "/sys/devices/platform/nct6775.656", "nct6798");
    addSensor(board, "temp7", "44000\n", "PECI Agent 0\n");
    start();
    const auto before = read->beginning("TC");
    ASSERT_EQ(before.size(), 1u);
    addPackage(0, 1, "50000\n");
    bench.devicesChanged();
    EXPECT_EQ(read->value(before.begin()->first), 44.0);
    EXPECT_EQ(read->processors(), (Doubles{44.0, 50.0}));
    start();
    EXPECT_EQ(read->processors(), Doubles{50.0});
}

TEST_F(KeysOfAMachine, processors_keep_their_keys_when_they_become_many) {
    for (int socket = 0; socket < 3; ++socket) addPackage(socket, socket, "45000\n");
    start();
    const auto before = read->beginning("TC");
    ASSERT_EQ(before.size(), 3u);
    addPackage(3, 3, "80000\n");
    bench.devicesChanged();
    for (const auto& [name, value] : before) EXPECT_EQ(read->value(name), value) << name;
}

TEST_F(KeysOfAMachine, devices_are_looked_for_once_a_second_at_most) {
    addPackage(0, 1, "50000\n");
    start();
    EXPECT_EQ(read->processors().size(), 1u);
    addPackage(1, 2, "60000\n");
    ++bench.changes.now;
    EXPECT_EQ(read->processors().size(), 1u);
    bench.clock.advanceBy(std::chrono::seconds(1));
    EXPECT_EQ(read->processors().size(), 2u);
}

TEST_F(KeysOfAMachine, of_more_than_three_processors_one_key_tells_the_hottest) {
    for (int socket = 0; socket < 4; ++socket)
        addPackage(socket, socket, socket == 2 ? "80000\n" : "45000\n");
    start();
    EXPECT_EQ(read->processors(), Doubles{80.0});
    EXPECT_EQ(read->beginning("S").size(), 4u);
    tree.write("/sys/devices/platform/coretemp.2/hwmon/hwmon2/temp1_input", "0\n");
    EXPECT_EQ(read->processors(), Doubles{45.0});
}

TEST_F(KeysOfAMachine, a_failed_sensor_is_a_failed_key_that_still_says_what_it_is) {
    addPackage(0, 1, "127000\n");
    start();
    const auto names = read->beginning("TC");
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(names.begin()->second, std::nullopt);
    EXPECT_EQ(read->type(names.begin()->first), "flt ");
}

TEST_F(KeysOfAMachine, fans_are_ten_at_most_and_keep_their_numbers) {
    const auto board = addChip(0, "/sys/devices/platform/nct6775.656", "nct6798");
    for (int i = 1; i <= 12; ++i)
        addSensor(board, "fan" + std::to_string(i), std::to_string(i * 100));
    start();
    EXPECT_EQ(read->value("FNum"), 10.0);
    EXPECT_EQ(read->value("F9Ac"), 1000.0);
    const auto early = addChip(1, "/sys/devices/pci0000:00/0000:00:01.0", "amdgpu");
    addSensor(early, "fan1", "3000\n");
    tree.remove("/sys/devices/platform/nct6775.656/hwmon/hwmon0/fan2_input");
    bench.devicesChanged();
    EXPECT_EQ(read->value("FNum"), 10.0);
    EXPECT_EQ(read->value("F0Ac"), 100.0);
    EXPECT_EQ(read->value("F1Ac"), std::nullopt);
    EXPECT_EQ(read->value("F2Ac"), 300.0);
}

TEST_F(KeysOfAMachine, a_fan_that_came_is_the_last) {
    addSensor(addChip(0, "/sys/devices/platform/z", "thinkpad"), "fan1", "2000\n");
    start();
    EXPECT_EQ(read->value("FNum"), 1.0);
    addSensor(addChip(1, "/sys/devices/platform/a", "usbfan"), "fan1", "900\n");
    bench.devicesChanged();
    EXPECT_EQ(read->value("FNum"), 2.0);
    EXPECT_EQ(read->value("F0Ac"), 2000.0);
    EXPECT_EQ(read->value("F1Ac"), 900.0);
}

TEST_F(KeysOfAMachine, the_batterys_temperature_is_that_of_the_hottest) {
    for (const auto& [name, temp] : {std::pair{"BAT0", "305\n"}, std::pair{"BAT1", "322\n"}}) {
        const std::string folder = std::string("/sys/class/power_supply/") + name;
        tree.write(folder + "/type", "Battery\n");
        tree.write(folder + "/temp", temp);
    }
    start();
    EXPECT_FLOAT_EQ(static_cast<float>(*read->value("B0AT")), 32.2F);
    EXPECT_EQ(read->type("B0AT"), "flt ");
}

TEST_F(KeysOfAMachine, sensors_whose_names_would_meet_have_a_key_each_in_every_run) {
    addPackage(0, 1, "50000\n");
    addPackage(1, 2, "60000\n");
    auto tools = bench.tools();
    tools.hash = [](std::string_view) { return std::uint64_t{5}; };
    SensorKeys first(root, tools);
    const auto before = KeyReader(first).beginning("TC");
    EXPECT_EQ(before.size(), 2u);
    EXPECT_EQ(bench.defaults.writes, 1);
    // The one that came first is away, the other keeps its name.
    removeChip(1, coretemp0);
    SensorKeys second(root, tools);
    EXPECT_EQ(KeyReader(second).beginning("TC"),
              (std::map<std::string, std::optional<double>>{{"TC60", 60.0}}));
    EXPECT_EQ(before.at("TC60"), 60.0);
}

TEST_F(KeysOfAMachine, thousands_of_sensors_have_a_key_each_up_to_a_bound) {
    const auto chip = addChip(0, coretemp0, "coretemp");
    for (int i = 1; i < 2'200; ++i)
        std::ofstream(tree.path() + chip + "/temp" + std::to_string(i) + "_input") << i << "000\n";
    start();
    const auto names = read->names();
    // Besides: the number of keys and of fans, and the hottest of all.
    EXPECT_EQ(names.size(), mostSensors + 3);
    EXPECT_EQ(std::ranges::count_if(names, [](auto& name) { return name.starts_with("TC"); }), 1);
    EXPECT_EQ(read->processors(), Doubles{126.0});
    EXPECT_FALSE(bench.defaults.stored.empty());
}

TEST_F(KeysOfAMachine, keys_that_are_not_there_and_other_commands_fail) {
    addPackage(0, 1, "50000\n");
    start();
    EXPECT_EQ(read->value("Tp01"), std::nullopt);
    EXPECT_EQ(read->type(""), "");
    SMCRequest request;
    request.key = packSMCCode("FNum");
    for (const int command : {0, 1, 6, 7, 255}) {
        request.command = static_cast<std::uint8_t>(command);
        EXPECT_NE(keys->answer(request).result, smcResults::success) << command;
    }
}

}  // namespace
}  // namespace vtx::test
